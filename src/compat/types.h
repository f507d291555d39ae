// Windows' types: Windows' own, as MFC brings them where it is there, or what stands in for them.
#pragma once

#if defined(_AFXDLL) || defined(KVARNPROG_MFC)
#include <afxwin.h> // before any other of the host's headers
#elif defined(_WIN32)
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>
#else
#include "win32/types.h"
#endif
