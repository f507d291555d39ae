// A window program of the library's: opens a project, edits its settings.
//
//     settingsclient PROJECT [sv|no] [PICTURES SECOND-PROJECT]
//
// With the last two arguments it shows itself, leaves pictures whose paths begin with PICTURES, and
// ends, with 0 when every step went as expected.
#include <cstring>
#include <memory>

#include "mainwindow.h"
#include "tour.h"

namespace {

// Dispatches messages until the program ends.
void Run() {
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    if (__argc < 2) {
        MessageBoxA(nullptr, "settingsclient PROJEKT [sv|no]", "Ritprogrammet", MB_OK);
        return 2;
    }
    CWinApp application;
    MainWindow window(__argc > 2 && std::strcmp(__argv[2], "no") == 0 ? PageLanguage::norwegian
                                                                      : PageLanguage::swedish);
    application.m_pMainWnd = &window;
    window.OpenProject(__argv[1]);
    std::unique_ptr<Tour> const tour(__argc > 4 ? new Tour(window, __argv[3], __argv[4]) : nullptr);
    Run();
    return tour == nullptr || tour->Done() ? 0 : 1;
}
