// A status bar of a live window, handed to the library while it lives.
#pragma once

#include "core/message.h"
#include "support/window.h"

class StatusBar {
  public:
    StatusBar() {
        m_bar.m_hWnd = m_window.m_hWnd;
        SetStatusBar(&m_bar);
    }
    ~StatusBar() { SetStatusBar(nullptr); }
    StatusBar(StatusBar const&) = delete;
    StatusBar& operator=(StatusBar const&) = delete;

    CString Text() { return m_bar.GetPaneText(0); }

  private:
    TestWindow m_window;
    CStatusBar m_bar;
};
