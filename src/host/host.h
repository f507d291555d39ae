// The one header through which clients see the host: Windows itself, or on other hosts the types
// and the few calls of it that they need, and MFC or its stand-ins. The library's own code includes
// calls.h, which offers more.
//
// With MFC (KVARNPROG_MFC, or a client with the shared MFC library) the Windows headers come from
// MFC and nothing of compat/ is used.
#pragma once

#if defined(UNICODE) || defined(_UNICODE)
#error                                                                                             \
    "KvarnProg's texts are 8-bit, in code page 1252: build this file without UNICODE and _UNICODE"
#endif

#include "../compat/types.h"

#if defined(_AFXDLL) || defined(KVARNPROG_MFC)
#include <afxcmn.h>
#include <afxdisp.h> // COleDateTime
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
