// A live window to own message boxes: a real one on Windows, elsewhere the handle alone.
#pragma once

#include <string>

#include "host/host.h"

#if defined(_WIN32)

inline std::string WindowText(HWND window) {
    char text[512] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

inline std::string WindowClass(HWND window) {
    char name[16] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

#endif

class TestWindow : public CWnd {
  public:
    explicit TestWindow(char const* title = "A test's main window") {
#if defined(_WIN32)
        Attach(CreateWindowExA(0, "STATIC", title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 500,
                               300, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr));
#else
        Attach(reinterpret_cast<HWND>(const_cast<char*>(title)));
#endif
    }
    ~TestWindow() override {
        Destroy();
    }

    // The window goes, its handle stays in the object, as when a program closes.
    void Destroy() {
#if defined(_WIN32)
        DestroyWindow(m_hWnd);
#else
        m_hWnd = nullptr;
#endif
    }
};
