#include "kvarnprogapp.h"

BEGIN_MESSAGE_MAP(CKvarnProgApp, CWinApp)
END_MESSAGE_MAP()

#if defined(KVARNPROG_MFC)
CKvarnProgApp::CKvarnProgApp() = default; // a module state of its own keeps it apart
#else
CKvarnProgApp::CKvarnProgApp() : CWinApp(libraryObject) {}
#endif

namespace {

CKvarnProgApp const theApp; // lives as long as the library is loaded

} // namespace
