// The host's plain calls for files, folders and processes: Windows' own, or on other hosts those
// that the library uses.
#pragma once

#include "types.h"

#if !defined(_WIN32)
#include "win32/files.h"
#include "win32/process.h"
#include "win32/search.h"
#endif
