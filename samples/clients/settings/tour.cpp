#include "tour.h"

#include <utility>

#include <commctrl.h>
#include <resources/settingspages.h>

#include "picture.h"
#include "sheet.h"

namespace {

constexpr UINT pace = 300;   // milliseconds between the steps: windows paint themselves
constexpr int patience = 60; // steps to wait for a window
constexpr int planPage = 1;
constexpr int norwegianPage = 5;

Tour* running = nullptr;

std::string TextOf(HWND window) {
    char text[64] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

// As a user types it, up to where the field is left.
void Type(HWND box, char const* text) {
    SetFocus(box);
    SetWindowTextA(box, text);
    SendMessageA(GetParent(box), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(box), CBN_EDITCHANGE),
                 reinterpret_cast<LPARAM>(box));
}

// As a user chooses it in the list.
void ChoosePage(HWND sheet, int page) {
    SendDlgItemMessageA(sheet, sheetPages, LB_SETCURSEL, static_cast<WPARAM>(page), 0);
    SendMessageA(sheet, WM_COMMAND, MAKEWPARAM(sheetPages, LBN_SELCHANGE), 0);
}

// The status bar tells file and line of what the library could not read there.
bool NamesTheBadLine(HWND main) {
    std::string const text = TextOf(FindWindowExA(main, nullptr, STATUSCLASSNAMEA, nullptr));
    return text.find("VAG.VL, ") == 0 && text.find(" 3: h\xE4r st\xE5r") != std::string::npos;
}

// The main window, and what lies over it or beside.
std::vector<HWND> Windows(HWND main) {
    std::vector<HWND> windows = {main};
    for (HWND popup = GetLastActivePopup(main); popup != nullptr && popup != main;
         popup = GetWindow(popup, GW_OWNER)) {
        windows.insert(windows.begin() + 1, popup);
    }
    return windows;
}

} // namespace

Tour::Tour(MainWindow& window, std::string pictures, std::string secondProject)
    : m_window(window), m_pictures(std::move(pictures)), m_secondProject(std::move(secondProject)),
      m_timer(SetTimer(nullptr, 0, pace, OnTimer)) {
    running = this;
}

Tour::~Tour() {
    KillTimer(nullptr, m_timer);
    running = nullptr;
}

void CALLBACK Tour::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (running != nullptr) {
        running->Next();
    }
}

void Tour::Expect(bool right) {
    m_failed = !right || m_failed;
}

void Tour::Take(char const* name) {
    std::vector<HWND> const windows = Windows(m_window.m_hWnd);
    for (HWND const window : windows) {
        RedrawWindow(window, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
    Expect(SavePicture(windows, (m_pictures + name).c_str()));
}

void Tour::TakeBox(HWND box, char const* name) {
    ++m_step;
    Take(name);
    PostMessageA(box, WM_COMMAND, IDOK, 0);
}

void Tour::GiveUp() {
    m_failed = true;
    HWND const over = GetLastActivePopup(m_window.m_hWnd);
    PostMessageA(over, over == m_window.m_hWnd ? WM_DESTROY : WM_CLOSE, 0, 0);
}

// A window may stay open until the tour closes it, so a step is counted before its window is
// opened. The window runs its own message loop, in which the timer comes too.
void Tour::Next() {
    HWND const popup = GetLastActivePopup(m_window.m_hWnd);
    bool const open = popup != m_window.m_hWnd && IsWindowVisible(popup) != FALSE;
    if (++m_waited > patience) {
        GiveUp();
        return;
    }
    switch (m_step) {
    case start:
        Take("main.png");
        Expect(NamesTheBadLine(m_window.m_hWnd));
        ++m_step;
        PostMessageA(m_window.m_hWnd, WM_COMMAND, MainWindow::settings, 0);
        break;
    case sheetOpens:
        if (open) {
            m_sheet = popup;
            OpenList(popup);
        }
        break;
    case wordsShown:
    case numberTyped:
    case numberRefused:
    case keyPressed:
    case sheetShown:
        NextOfSheet(popup);
        break;
    case sheetCloses:
        if (!open) {
            m_step = roadBox;
            Take("saved.png");
            m_window.OpenProject(m_secondProject.c_str());
        }
        break;
    case roadBox:
        if (open) {
            TakeBox(popup, "box.png");
        }
        break;
    case settingsBox:
        if (open) {
            TakeBox(popup, "settings-box.png");
        }
        break;
    case boxCloses:
        if (!open) {
            m_step = last;
            PostMessageA(m_window.m_hWnd, WM_COMMAND, MainWindow::closeProgram, 0);
        }
        break;
    default:
        break;
    }
}

void Tour::NextOfSheet(HWND popup) {
    switch (m_step) {
    case wordsShown:
        Take("words.png");
        TypeWrongNumber(m_sheet);
        break;
    case numberTyped:
        if (popup != m_sheet) {
            RefuseWrongNumber(popup);
        }
        break;
    case numberRefused:
        if (popup == m_sheet) {
            TypeScale(m_sheet);
        }
        break;
    case keyPressed:
        PressKey(m_sheet);
        break;
    default:
        SaveScale(m_sheet);
    }
}

// The next step sees it painted.
void Tour::OpenList(HWND sheet) {
    ++m_step;
    RECT main;
    RECT beside;
    RECT both;
    GetWindowRect(m_window.m_hWnd, &main);
    GetWindowRect(sheet, &beside);
    Expect(IntersectRect(&both, &main, &beside) == FALSE);
    ChoosePage(sheet, norwegianPage);
    HWND const scale = FindSheetControl(sheet, IDC_KVARNBOK_FJELLSKALA);
    SetFocus(scale);
    SendMessageA(scale, CB_SHOWDROPDOWN, TRUE, 0);
}

void Tour::TypeWrongNumber(HWND sheet) {
    SendMessageA(FindSheetControl(sheet, IDC_KVARNBOK_FJELLSKALA), CB_SHOWDROPDOWN, FALSE, 0);
    ++m_step;
    ChoosePage(sheet, planPage);
    Type(FindSheetControl(sheet, IDC_KVARNBOK_HSKALA), "1,5");
    SetFocus(FindSheetControl(sheet, IDC_KVARNBOK_LSKALA));
}

void Tour::RefuseWrongNumber(HWND box) {
    Take("number.png");
    ++m_step;
    PostMessageA(box, WM_COMMAND, IDOK, 0);
}

// After the field has kept the focus and the text.
void Tour::TypeScale(HWND sheet) {
    ++m_step;
    HWND const scale = FindSheetControl(sheet, IDC_KVARNBOK_HSKALA);
    Expect(TextOf(scale) == "1,5" && IsChild(scale, GetFocus()) != FALSE);
    Type(scale, "400");
    SetFocus(GetDlgItem(sheet, sheetPages));
}

// Alt and the letter of a field, as the keyboard sends it.
void Tour::PressKey(HWND sheet) {
    ++m_step;
    std::string const label =
        TextOf(GetWindow(FindSheetControl(sheet, IDC_KVARNBOK_LSKALA), GW_HWNDPREV));
    constexpr LPARAM altIsDown = 1 << 29;
    PostMessageA(GetFocus(), WM_SYSCHAR, static_cast<WPARAM>(label[label.find('&') + 1]),
                 altIsDown | 1);
}

void Tour::SaveScale(HWND sheet) {
    ++m_step;
    HWND const focus = GetFocus();
    HWND const scale = FindSheetControl(sheet, IDC_KVARNBOK_LSKALA);
    Expect(focus == scale || IsChild(scale, focus) != FALSE);
    Take("settings.png");
    PostMessageA(sheet, WM_COMMAND, IDOK, 0);
}
