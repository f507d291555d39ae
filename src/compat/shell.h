// The shell's folders, command line and processes: what the bootstrap alone meets of the host.
#pragma once

#if defined(_WIN32)
#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
#else
#include "win32/shell.h"
#endif
