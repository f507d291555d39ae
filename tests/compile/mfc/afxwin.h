// The syntax check's MFC, made of the stand-ins: it shows that the sources take each class from the
// header that MFC documents for it, and need nothing of the stand-ins beyond MFC's names.
#pragma once

#include <windows.h>

#define COleDateTime OleDateTimeOfAfxdisp // declared here, named by afxdisp.h alone
#include "host/afx/app.h"
#include "host/afx/cstring.h"
#include "host/afx/stdiofile.h"
#include "host/afx/values.h"
#undef COleDateTime
