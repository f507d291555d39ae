// The shell's folders, command line and processes: what the bootstrap alone meets of the host.
#pragma once

#include "../compat/types.h"

#if defined(_WIN32)
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
#else
#include "win32/shell.h"
#endif
