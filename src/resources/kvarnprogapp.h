// The library's own application object.
#pragma once

#include "../host/host.h"

// It stands for the library where MFC asks for one, and does nothing: all state lies in the objects
// that clients make. AfxGetApp answers with the client's.
class CKvarnProgApp : public CWinApp {
  public:
    CKvarnProgApp();

    DECLARE_MESSAGE_MAP()
};
