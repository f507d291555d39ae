// All calls of the host that the library's own code makes: those that clients see too, the plain
// calls, and the calls for settings, the registry, modules and windows.
#pragma once

#include "../compat/calls.h"
#include "host.h"

#if !defined(_WIN32)
#include "win32/modules.h"
#include "win32/profile.h"
#include "win32/registry.h"
#include "win32/window.h"
#endif
