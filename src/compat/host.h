// The one header through which everything else meets the host: Windows itself or the part of it
// that other hosts are given, and MFC or the stand-ins for it.
//
// Built with MFC (KVARNPROG_MFC, or a client with the shared MFC library), MFC brings the Windows
// headers along and nothing of compat/ is used.
#pragma once

#if defined(_AFXDLL) || defined(KVARNPROG_MFC)
#include <afxcmn.h>
#include <afxext.h>
#include <afxwin.h>
#else

#if defined(_WIN32)
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>
#else
#include "win32/files.h"
#include "win32/gdi.h"
#include "win32/process.h"
#include "win32/profile.h"
#include "win32/registry.h"
#include "win32/resources.h"
#include "win32/search.h"
#include "win32/types.h"
#include "win32/window.h"
#endif

#include "afx/app.h"
#include "afx/cstring.h"
#include "afx/stdiofile.h"
#include "afx/values.h"

#endif
