// Windows' types: from MFC when it is used, else from Windows itself, else their stand-ins.
#pragma once

#if defined(_AFXDLL) || defined(KVARNPROG_MFC)
#include <afxwin.h> // must come before other headers of the host
#elif defined(_WIN32)
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>
#else
#include "win32/types.h"
#endif
