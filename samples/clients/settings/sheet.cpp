#include "sheet.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "onebox.h"
#include "settingspage.h"
#include "texts.h"

namespace {

constexpr std::size_t pageCount = sizeof kvarn::settingsPages / sizeof *kvarn::settingsPages;
constexpr UINT fieldLeft = WM_APP; // wParam: the control

// In dialog units of the pages' font.
constexpr int margin = 5;
constexpr int listWidth = 113;
constexpr int buttonWidth = 54;
constexpr int buttonHeight = 15;

class Sheet {
  public:
    Sheet(CKvarnInst& inst, PageLanguage language)
        : m_inst(inst), m_language(language), m_texts(TextsOf(language)) {}

    void Run(HWND owner) {
        // Without controls: menu, class and title are empty.
        struct {
            DLGTEMPLATE head;
            WORD empty[3];
        } const dialog = {{WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, 0, 0, 0, 0, 0, 0},
                          {}};
        DialogBoxIndirectParamA(GetModuleHandleA(nullptr), &dialog.head, owner, Procedure,
                                reinterpret_cast<LPARAM>(this));
    }

  private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrA(window, GWLP_USERDATA, lParam);
            return reinterpret_cast<Sheet*>(lParam)->OnInit(window);
        }
        auto* const self = reinterpret_cast<Sheet*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        if (self != nullptr && message == WM_COMMAND) {
            self->OnCommand(LOWORD(wParam), HIWORD(wParam));
            return TRUE;
        }
        if (self != nullptr && message == fieldLeft) {
            self->OnFieldLeft(static_cast<int>(wParam));
            return TRUE;
        }
        return FALSE;
    }

    BOOL OnInit(HWND window) {
        m_window = window;
        SetWindowTextA(window, m_texts.settings);
        MakePages();
        MakeControls();
        Place();
        ShowPage(0);
        SetFocus(GetDlgItem(window, sheetPages));
        return FALSE; // the focus is set
    }
    void MakePages() {
        OneBox const once;
        for (std::size_t i = 0; i < pageCount; ++i) {
            kvarn::SettingsPage const& page = kvarn::settingsPages[i];
            int const resource =
                m_language == PageLanguage::swedish ? page.swedish : page.norwegian;
            m_pages[i] = CreateSettingsPage(LibraryModule(), resource, m_window);
            FillComboBoxes(m_pages[i], LibraryModule(), resource);
            ShowSettings(m_pages[i], i, m_inst);
        }
    }
    LONG Across(int units) const {
        RECT area = {0, 0, units, 0};
        MapDialogRect(m_pages[0], &area);
        return area.right;
    }
    LONG Down(int units) const {
        RECT area = {0, 0, 0, units};
        MapDialogRect(m_pages[0], &area);
        return area.bottom;
    }
    SIZE PageSize() const {
        RECT page;
        GetWindowRect(m_pages[0], &page);
        return {page.right - page.left, page.bottom - page.top};
    }
    void MakeControls() {
        SIZE const page = PageSize();
        HWND const list =
            Make("LISTBOX", "", WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                 sheetPages, {Across(margin), Down(margin), Across(listWidth), page.cy});
        for (HWND const shown : m_pages) {
            char caption[64] = "";
            GetWindowTextA(shown, caption, sizeof caption);
            SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(caption));
            SetWindowPos(shown, nullptr, Across(listWidth + 2 * margin), Down(margin), 0, 0,
                         SWP_NOSIZE | SWP_NOZORDER);
        }
        struct {
            char const* text;
            int id;
            DWORD style;
        } const buttons[] = {{"OK", IDOK, BS_DEFPUSHBUTTON},
                             {m_texts.cancel, IDCANCEL, 0},
                             {m_texts.apply, sheetApply, WS_DISABLED}};
        LONG left = Across(listWidth) + page.cx - Across(3 * buttonWidth);
        for (auto const& button : buttons) {
            Make("BUTTON", button.text, button.style, button.id,
                 {left, page.cy + Down(2 * margin), Across(buttonWidth), Down(buttonHeight)});
            left += Across(buttonWidth + margin);
        }
    }
    // A child; right and bottom are its width and height.
    HWND Make(char const* kind, char const* text, DWORD style, int id, RECT const& area) {
        HWND const made = CreateWindowExA(0, kind, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style,
                                          area.left, area.top, area.right, area.bottom, m_window,
                                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                          GetModuleHandleA(nullptr), nullptr);
        SendMessageA(made, WM_SETFONT,
                     static_cast<WPARAM>(SendMessageA(m_pages[0], WM_GETFONT, 0, 0)), FALSE);
        // The list is before the pages in tab order, the buttons are after them.
        SetWindowPos(made, id == sheetPages ? HWND_TOP : HWND_BOTTOM, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        return made;
    }
    // To the right of the owner or to its left, where the screen has the room.
    void Place() {
        RECT frame = {0, 0, PageSize().cx + Across(listWidth + 3 * margin),
                      PageSize().cy + Down(3 * margin + buttonHeight)};
        AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongA(m_window, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongA(m_window, GWL_EXSTYLE)));
        LONG const width = frame.right - frame.left;
        LONG const height = frame.bottom - frame.top;
        RECT owner;
        GetWindowRect(GetWindow(m_window, GW_OWNER), &owner);
        RECT screen;
        SystemParametersInfoA(SPI_GETWORKAREA, 0, &screen, 0);
        LONG const left = owner.right + width <= screen.right ? owner.right
                          : owner.left - width >= screen.left ? owner.left - width
                                                              : screen.right - width;
        LONG const top = std::max(screen.top, std::min(owner.top, screen.bottom - height));
        SetWindowPos(m_window, nullptr, left, top, width, height, SWP_NOZORDER);
    }

    void OnCommand(int id, int notification) {
        switch (id) {
        case IDOK:
            if (Save()) {
                EndDialog(m_window, IDOK);
            }
            break;
        case IDCANCEL:
            EndDialog(m_window, IDCANCEL);
            break;
        case sheetApply:
            if (Save()) {
                SetFocus(GetDlgItem(m_window, sheetPages));
                EnableWindow(GetDlgItem(m_window, sheetApply), FALSE);
            }
            break;
        case sheetPages:
            if (notification == LBN_SELCHANGE) {
                ShowPage(static_cast<std::size_t>(
                    SendDlgItemMessageA(m_window, sheetPages, LB_GETCURSEL, 0, 0)));
            }
            break;
        default:
            OnField(id, notification);
        }
    }
    // The focus moves only after the notification: a box is shown later.
    void OnField(int id, int notification) {
        switch (notification) {
        case EN_KILLFOCUS:
        case CBN_KILLFOCUS:
            PostMessageA(m_window, fieldLeft, static_cast<WPARAM>(id), 0);
            break;
        case EN_CHANGE:
        case CBN_EDITCHANGE:
        case CBN_SELCHANGE:
        case BN_CLICKED:
            // The program fills in values only while the sheet is hidden.
            if (IsWindowVisible(m_window) != FALSE) {
                EnableWindow(GetDlgItem(m_window, sheetApply), TRUE);
            }
            break;
        default:
            break;
        }
    }
    // Not when the user leaves for another program, or gives up.
    void OnFieldLeft(int control) {
        HWND const focus = GetFocus();
        if (IsChild(m_window, focus) == FALSE || focus == GetDlgItem(m_window, IDCANCEL)) {
            return;
        }
        for (std::size_t i = 0; i < pageCount; ++i) {
            if (GetDlgItem(m_pages[i], control) != nullptr) {
                IsRight(i, control);
            }
        }
    }

    void ShowPage(std::size_t shown) {
        for (std::size_t i = 0; i < pageCount; ++i) {
            ShowWindow(m_pages[i], i == shown ? SW_SHOW : SW_HIDE);
        }
        SendDlgItemMessageA(m_window, sheetPages, LB_SETCURSEL, shown, 0);
    }
    // A number that is none is told, and its field keeps the focus and the text.
    bool IsRight(std::size_t page, int control) {
        OneBox const once;
        BadNumber const bad = FindBadNumber(m_pages[page], page, m_inst, control);
        if (bad.control == 0) {
            return true;
        }
        ShowPage(page);
        Tell(bad);
        HWND const field = GetDlgItem(m_pages[page], bad.control);
        SendMessageA(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(field), TRUE);
        return false;
    }
    void Tell(BadNumber const& bad) const {
        char text[1024];
        std::snprintf(text, sizeof text, m_texts.notANumber, bad.field.c_str(), bad.text.c_str(),
                      bad.example.c_str());
        MessageBoxA(m_window, text, m_texts.settings, MB_ICONEXCLAMATION);
    }
    bool Save() {
        for (std::size_t i = 0; i < pageCount; ++i) {
            if (!IsRight(i, 0)) {
                return false;
            }
        }
        OneBox const once;
        bool saved = true;
        for (std::size_t i = 0; i < pageCount; ++i) {
            saved = SaveSettings(m_pages[i], i, m_inst) && saved;
        }
        if (!saved) {
            MessageBoxA(m_window, m_texts.notSaved, m_texts.settings, MB_ICONEXCLAMATION);
        }
        return saved;
    }

    CKvarnInst& m_inst;
    PageLanguage m_language;
    Texts const& m_texts;
    HWND m_window = nullptr;
    std::array<HWND, pageCount> m_pages{};
};

} // namespace

void ShowSettingsSheet(HWND owner, CKvarnInst& inst, PageLanguage language) {
    Sheet(inst, language).Run(owner);
}

HWND FindSheetControl(HWND sheet, int control) {
    HWND found = nullptr;
    for (HWND page = GetWindow(sheet, GW_CHILD); page != nullptr && found == nullptr;
         page = GetWindow(page, GW_HWNDNEXT)) {
        found = GetDlgItem(page, control);
    }
    return found;
}
