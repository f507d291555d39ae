// The shell's folders and paths, the command line and processes, for the first start and for making
// projects.
#pragma once

#include "../compat/types.h"

#if defined(_WIN32)
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
#else
#include "win32/shell.h"
#endif
