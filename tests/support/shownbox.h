// A real message box on the desktop: waits for one of this process, reads it and presses its OK
// button.
#pragma once

#include <string>
#include <thread>

#include "support/window.h"

struct SeenBox {
    std::string title;
    std::string text;
    HWND owner = nullptr;
    bool found = false;
};

class BoxReader {
  public:
    BoxReader() : m_thread([this] { Read(); }) {}
    SeenBox Result() {
        m_thread.join();
        return m_seen;
    }

  private:
    static BOOL CALLBACK TakeBox(HWND window, LPARAM found) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        bool const box = process == GetCurrentProcessId() && WindowClass(window) == "#32770";
        if (box) {
            *reinterpret_cast<HWND*>(found) = window;
        }
        return box ? FALSE : TRUE;
    }
    static BOOL CALLBACK TakeText(HWND window, LPARAM text) {
        std::string const shown = WindowText(window);
        if (WindowClass(window) == "Static" && !shown.empty()) {
            *reinterpret_cast<std::string*>(text) = shown;
        }
        return TRUE;
    }
    void Read() {
        HWND box = nullptr;
        for (int i = 0; i < 1500 && box == nullptr; ++i) { // half a minute at most
            Sleep(20);
            EnumWindows(TakeBox, reinterpret_cast<LPARAM>(&box));
        }
        if (box == nullptr) {
            return;
        }
        m_seen = {WindowText(box), "", GetWindow(box, GW_OWNER), true};
        EnumChildWindows(box, TakeText, reinterpret_cast<LPARAM>(&m_seen.text));
        PostMessageA(box, WM_COMMAND, IDOK, 0);
    }

    SeenBox m_seen;
    std::thread m_thread; // last: it uses the other
};
