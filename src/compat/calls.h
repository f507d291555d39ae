// The host's plain calls, of files, folders and processes: Windows' own, or those of them that the
// library uses on other hosts.
#pragma once

#include "types.h"

#if !defined(_WIN32)
#include "win32/files.h"
#include "win32/process.h"
#include "win32/search.h"
#endif
