// The one header through which clients meet the host: Windows itself or the types and the few calls
// of it that they need on other hosts, and MFC or the stand-ins for it. The library's own code
// includes calls.h, which offers more.
//
// Built with MFC (KVARNPROG_MFC, or a client with the shared MFC library), MFC brings the Windows
// headers along and nothing of compat/ is used.
#pragma once

#if defined(UNICODE) || defined(_UNICODE)
#error                                                                                             \
    "KvarnProg's texts are 8-bit, in code page 1252: build this file without UNICODE and _UNICODE"
#endif

#include "../compat/types.h"

#if defined(_AFXDLL) || defined(KVARNPROG_MFC)
#include <afxcmn.h>
#include <afxext.h>
#else

#if !defined(_WIN32)
#include "win32/boxstyles.h"
#include "win32/gdi.h"
#include "win32/registrytypes.h"
#include "win32/resources.h"
#endif

#include "afx/app.h"
#include "afx/cstring.h"
#include "afx/stdiofile.h"
#include "afx/values.h"

#endif
