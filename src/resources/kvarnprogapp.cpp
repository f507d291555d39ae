#include "kvarnprogapp.h"

BEGIN_MESSAGE_MAP(CKvarnProgApp, CWinApp)
END_MESSAGE_MAP()

#if defined(KVARNPROG_MFC)
CKvarnProgApp::CKvarnProgApp() = default; // MFC keeps it in the DLL's own module state
#else
CKvarnProgApp::CKvarnProgApp() : CWinApp(libraryObject) {}
#endif

namespace {

CKvarnProgApp const theApp; // lives as long as the library is loaded

} // namespace
