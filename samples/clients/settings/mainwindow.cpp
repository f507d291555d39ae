#include "mainwindow.h"

#include <commctrl.h>

#include <cstdio>
#include <fstream>

#include "onebox.h"
#include "sheet.h"
#include "texts.h"

namespace {

constexpr char const* className = "SettingsClient";
constexpr int left = 20; // there is room for the settings beside the window
constexpr int width = 460;
constexpr int height = 422;

HMENU MakeMenu(Texts const& texts) {
    HMENU const project = CreatePopupMenu();
    AppendMenuA(project, MF_STRING, MainWindow::settings, texts.settingsCommand);
    AppendMenuA(project, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(project, MF_STRING, MainWindow::closeProgram, texts.closeCommand);
    HMENU const menu = CreateMenu();
    AppendMenuA(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(project), texts.projectMenu);
    return menu;
}

HFONT DialogFont() {
    return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

HWND MakeText(HWND window, DWORD style) {
    HWND const text =
        CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_VISIBLE | SS_NOPREFIX | style, 0, 0, 0, 0,
                        window, nullptr, GetModuleHandleA(nullptr), nullptr);
    SendMessageA(text, WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), FALSE);
    return text;
}

// The number of the last line that begins with a text; 0 when the file has none.
int LastLineWith(std::string const& path, std::string const& text) {
    std::ifstream file(path);
    std::string line;
    int found = 0;
    for (int number = 1; std::getline(file, line); ++number) {
        found = line.compare(0, text.size(), text) == 0 ? number : found;
    }
    return found;
}

} // namespace

MainWindow::MainWindow(PageLanguage language) : m_language(language) {
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
    Texts const& texts = TextsOf(language);
    Attach(CreateWindowExA(0, className, texts.program, WS_OVERLAPPEDWINDOW, left,
                           (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height, nullptr,
                           MakeMenu(texts), program, nullptr));
    m_label = MakeText(m_hWnd, 0);
    SetWindowTextA(m_label, texts.project);
    m_path = MakeText(m_hWnd, SS_PATHELLIPSIS);
    m_text = MakeText(m_hWnd, 0);
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
    constexpr int line = 18;
    constexpr int label = 56;
    MoveWindow(m_label, margin, margin, label, line, TRUE);
    MoveWindow(m_path, margin + label, margin, inner.right - 2 * margin - label, line, TRUE);
    MoveWindow(m_text, margin, margin + 2 * line, inner.right - 2 * margin, 3 * line, TRUE);
}

void MainWindow::ShowProject() {
    SetWindowTextA(m_path, m_projekt.m_projKat.GetString());
    Texts const& texts = TextsOf(m_language);
    struct {
        char const* name;
        char const* key;
    } const shown[] = {{texts.heightScale, "HSKALA"}, {texts.lengthScale, "LSKALA"}};
    std::string text;
    for (auto const& line : shown) {
        text += line.name +
                std::string(m_inst.ReadKey(CProjPath::KvarnParNamn, line.key).GetString()) + '\n';
    }
    SetWindowTextA(m_text, text.c_str());
}

// The library shows the line that it could not read; this program says where it stands.
void MainWindow::NameBadLine(CVag2 const& road) const {
    char line[256] = "";
    HWND const bar = m_statusBar.GetSafeHwnd();
    GetWindowTextA(bar, line, sizeof line);
    std::string const path = std::string(m_projekt.m_kvarnDbf.GetString()) + '\\' + road.filnamn;
    int const number = *line != '\0' ? LastLineWith(path, line) : 0;
    if (number > 0) {
        char text[1024];
        std::snprintf(text, sizeof text, TextsOf(m_language).badLine, road.filnamn, number, line);
        SetWindowTextA(bar, text);
    }
}

void MainWindow::OpenProject(char const* folder) {
    m_projekt.SetPath(folder);
    SetWindowTextA(m_statusBar.GetSafeHwnd(), "");
    CVag2 road;
    {
        OneBox const once;
        road.ReadOmr(&m_projekt);
    }
    NameBadLine(road);
    OneBox const once;
    ShowProject();
}
