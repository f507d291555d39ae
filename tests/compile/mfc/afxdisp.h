// Automation's classes in the syntax check's MFC.
#pragma once

#include "afxwin.h"

using COleDateTime = OleDateTimeOfAfxdisp;
