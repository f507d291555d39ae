#include "sheet.h"

#include <array>

#include <prsht.h>

#include "settingspage.h"

namespace {

constexpr std::size_t pageCount = sizeof kvarn::settingsPages / sizeof *kvarn::settingsPages;

struct SheetPage {
    CKvarnInst* inst;
    std::size_t page;
    int resource;
};

bool boxShown = false;

int ShowFirst(MessageBoxRequest const& request) {
    if (boxShown) {
        return IDOK;
    }
    boxShown = true;
    CWnd const* const owner = AfxGetMainWnd();
    return MessageBoxA(owner != nullptr ? owner->GetSafeHwnd() : nullptr, request.text,
                       request.caption, request.style);
}

void SetResult(HWND dialog, LONG_PTR result) {
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, result);
}

void OnInit(HWND dialog, LPARAM sheetPage) {
    auto* const shown =
        reinterpret_cast<SheetPage*>(reinterpret_cast<PROPSHEETPAGEA const*>(sheetPage)->lParam);
    SetWindowLongPtrA(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(shown));
    OneBox const once;
    FillComboBoxes(dialog, LibraryModule(), shown->resource);
    ShowSettings(dialog, shown->page, *shown->inst);
}

void OnApply(HWND dialog) {
    auto const* const shown =
        reinterpret_cast<SheetPage*>(GetWindowLongPtrA(dialog, GWLP_USERDATA));
    OneBox const once;
    bool const saved = SaveSettings(dialog, shown->page, *shown->inst);
    if (!saved) {
        MessageBoxA(GetParent(dialog), "Alla v\xE4rden kunde inte sparas.", "Inst\xE4llningar",
                    MB_ICONEXCLAMATION);
    }
    SetResult(dialog, saved ? PSNRET_NOERROR : PSNRET_INVALID);
}

// Whether the user has edited, chosen or clicked something. The program fills in values only while
// the page is hidden.
bool IsChange(WPARAM command, HWND dialog) {
    switch (HIWORD(command)) {
    case EN_CHANGE:
    case CBN_EDITCHANGE:
    case CBN_SELCHANGE:
    case BN_CLICKED:
        return IsWindowVisible(dialog) != FALSE;
    default:
        return false;
    }
}

INT_PTR CALLBACK PageProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        OnInit(dialog, lParam);
        return TRUE;
    case WM_COMMAND:
        if (IsChange(wParam, dialog)) {
            SendMessageA(GetParent(dialog), PSM_CHANGED, reinterpret_cast<WPARAM>(dialog), 0);
        }
        return TRUE;
    case WM_NOTIFY:
        if (reinterpret_cast<NMHDR const*>(lParam)->code == static_cast<UINT>(PSN_APPLY)) {
            OnApply(dialog);
            return TRUE;
        }
        return FALSE;
    default:
        return FALSE;
    }
}

} // namespace

OneBox::OneBox() {
    boxShown = false;
    SetMessageBoxHandler(ShowFirst);
}

OneBox::~OneBox() {
    SetMessageBoxHandler(nullptr);
}

void ShowSettingsSheet(HWND owner, CKvarnInst& inst, int language) {
    std::array<SheetPage, pageCount> shown;
    std::array<PROPSHEETPAGEA, pageCount> pages{};
    for (std::size_t i = 0; i < pageCount; ++i) {
        kvarn::SettingsPage const& page = kvarn::settingsPages[i];
        shown[i] = {&inst, i, language == 0 ? page.swedish : page.norwegian};
        pages[i].dwSize = sizeof(PROPSHEETPAGEA);
        pages[i].hInstance = LibraryModule();
        pages[i].pszTemplate = MAKEINTRESOURCEA(shown[i].resource);
        pages[i].pfnDlgProc = PageProcedure;
        pages[i].lParam = reinterpret_cast<LPARAM>(&shown[i]);
    }
    PROPSHEETHEADERA sheet = {};
    sheet.dwSize = sizeof sheet;
    sheet.dwFlags = PSH_PROPSHEETPAGE;
    sheet.hwndParent = owner;
    sheet.pszCaption = language == 0 ? "Inst\xE4llningar" : "Innstillinger";
    sheet.nPages = pageCount;
    sheet.ppsp = pages.data();
    PropertySheetA(&sheet);
}
