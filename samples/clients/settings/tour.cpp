#include "tour.h"

#include <utility>

#include <prsht.h>

#include "picture.h"
#include "settingspage.h"

namespace {

constexpr UINT pace = 300;   // milliseconds between the steps: windows paint themselves
constexpr int patience = 60; // steps to wait for a window
constexpr int planPage = 1;

Tour* running = nullptr;

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

void Tour::Take(char const* name) {
    RedrawWindow(m_window.m_hWnd, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
    m_failed = !SavePicture(m_window.m_hWnd, (m_pictures + "\\" + name).c_str()) || m_failed;
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
        Take("client-main.png");
        ++m_step;
        PostMessageA(m_window.m_hWnd, WM_COMMAND, MainWindow::settings, 0);
        break;
    case sheetOpens:
        if (open) {
            ++m_step;
            SendMessageA(popup, PSM_SETCURSEL, planPage, 0);
        }
        break;
    case sheetShown:
        ShowSheet(popup);
        break;
    case sheetCloses:
        if (!open) {
            m_step = roadBox;
            Take("client-saved.png");
            m_window.OpenProject(m_secondProject.c_str());
        }
        break;
    case roadBox:
        if (open) {
            TakeBox(popup, "client-box.png");
        }
        break;
    case settingsBox:
        if (open) {
            TakeBox(popup, "client-settings-box.png");
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

void Tour::ShowSheet(HWND sheet) {
    auto* const page = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
    HWND const scale = GetDlgItem(page, IDC_KVARNBOK_HSKALA);
    char text[8] = "";
    GetWindowTextA(scale, text, sizeof text);
    if (std::string(text) != "400") { // as if the user typed it; the next step sees it painted
        SetWindowTextA(scale, "400");
        SendMessageA(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(page), 0);
        return;
    }
    Take("client-settings.png");
    ++m_step;
    SendMessageA(sheet, PSM_PRESSBUTTON, PSBTN_OK, 0);
}
