// The host's calls, for the library's own code: Windows' own, or those of them that the library
// uses on other hosts.
#pragma once

#include "host.h"

#if !defined(_WIN32)
#include "win32/files.h"
#include "win32/modules.h"
#include "win32/process.h"
#include "win32/profile.h"
#include "win32/registry.h"
#include "win32/search.h"
#include "win32/window.h"
#endif
