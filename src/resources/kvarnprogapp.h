// The library's own application object.
#pragma once

#include "../host/host.h"

// MFC asks every DLL for an application object. This one does nothing: all state lies in the
// objects that clients make. AfxGetApp returns the client's.
class CKvarnProgApp : public CWinApp {
  public:
    CKvarnProgApp();

    DECLARE_MESSAGE_MAP()
};
