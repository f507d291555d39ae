// A part of a program that uses the library, which is loaded and unloaded with it.
#include <kvarnprog.h>

// What is handed over lives on after the part is unloaded, so that a library that keeps it shows.
extern "C" __declspec(dllexport) void HandOver(HWND window, MessageBoxHandler handler) {
    auto* const bar = new CStatusBar;
    bar->m_hWnd = window;
    SetStatusBar(bar);
    SetMessageBoxHandler(handler);
}

// Shows one message box, and one line of a road file in the status bar.
extern "C" __declspec(dllexport) void ShowBoth(char const* road) {
    CProjPath().CreateProjectStructure("C:\\saknas\\ny", nullptr, 0, 1, 1, 0, 0, 0, 0);
    CVaglinje().Init(road);
    LibraryModule(); // asked for, which must not keep the library loaded
}
