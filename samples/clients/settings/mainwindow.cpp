#include "mainwindow.h"

#include <commctrl.h>

#include "sheet.h"

namespace {

constexpr char const* className = "SettingsClient";
constexpr int width = 640;
constexpr int height = 520;

HMENU MakeMenu() {
    HMENU const project = CreatePopupMenu();
    AppendMenuA(project, MF_STRING, MainWindow::settings, "&Inst\xE4llningar...");
    AppendMenuA(project, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(project, MF_STRING, MainWindow::closeProgram, "&Avsluta");
    HMENU const menu = CreateMenu();
    AppendMenuA(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(project), "&Projekt");
    return menu;
}

HFONT DialogFont() {
    return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

} // namespace

MainWindow::MainWindow(int language) : m_language(language) {
    INITCOMMONCONTROLSEX const controls = {sizeof controls, ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    HINSTANCE const program = GetModuleHandleA(nullptr);
    WNDCLASSA window = {};
    window.lpfnWndProc = Procedure;
    window.hInstance = program;
    window.hCursor = LoadCursor(nullptr, IDC_ARROW);
    window.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    window.lpszClassName = className;
    RegisterClassA(&window);
    Attach(CreateWindowExA(0, className, "Ritprogrammet", WS_OVERLAPPEDWINDOW,
                           (GetSystemMetrics(SM_CXSCREEN) - width) / 2,
                           (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height, nullptr,
                           MakeMenu(), program, nullptr));
    m_text = CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_VISIBLE | SS_NOPREFIX, 0, 0, 0, 0,
                             m_hWnd, nullptr, program, nullptr);
    SendMessageA(m_text, WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), FALSE);
    m_statusBar.Attach(CreateWindowExA(0, STATUSCLASSNAMEA, "", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
                                       m_hWnd, nullptr, program, nullptr));
    SetStatusBar(&m_statusBar);
    SetWindowLongPtrA(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_ini.Init(1);
    m_inst.Init(&m_ini, &m_projekt);
    Arrange();
    ShowWindow(m_hWnd, SW_SHOW);
}

MainWindow::~MainWindow() {
    SetStatusBar(nullptr);
    if (IsWindow(m_hWnd) != FALSE) {
        SetWindowLongPtrA(m_hWnd, GWLP_USERDATA, 0);
        DestroyWindow(m_hWnd);
    }
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<MainWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    switch (message) {
    case WM_COMMAND:
        if (self != nullptr) {
            self->OnCommand(LOWORD(wParam));
        }
        return 0;
    case WM_SIZE:
        if (self != nullptr) {
            self->Arrange();
        }
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

void MainWindow::OnCommand(int command) {
    if (command == settings) {
        ShowSettingsSheet(m_hWnd, m_inst, m_language);
        ShowProject();
    } else if (command == closeProgram) {
        DestroyWindow(m_hWnd);
    }
}

void MainWindow::Arrange() const {
    SendMessageA(m_statusBar.GetSafeHwnd(), WM_SIZE, 0, 0); // it finds its own place
    RECT inner;
    GetClientRect(m_hWnd, &inner);
    constexpr int margin = 12;
    constexpr int lines = 120;
    MoveWindow(m_text, margin, margin, inner.right - 2 * margin, lines, TRUE);
}

void MainWindow::ShowProject() {
    std::string text = "Projekt: ";
    text += m_projekt.m_projKat.GetString();
    text += "\n";
    struct {
        char const* name;
        char const* key;
    } const shown[] = {{"H\xF6jdskala 1:", "HSKALA"}, {"L\xE4ngdskala 1:", "LSKALA"}};
    for (auto const& line : shown) {
        text += std::string("\n") + line.name +
                m_inst.ReadKey(CProjPath::KvarnParNamn, line.key).GetString();
    }
    SetWindowTextA(m_text, text.c_str());
}

void MainWindow::OpenProject(char const* folder) {
    m_projekt.SetPath(folder);
    CVag2 road;
    road.ReadOmr(&m_projekt);
    OneBox const once;
    ShowProject();
}
