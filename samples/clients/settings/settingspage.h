// A settings page of the library's resources in a program without MFC: made, shown and saved.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <kvarnprog.h>
#include <resources/settingspages.h>

// An entry that a page's resources have for a control.
struct InitialEntry {
    int control;
    unsigned message; // of 16-bit Windows: 0x403 adds a text to a combo box
    std::string text; // in code page 1252
};

// The entries in a page's resource of type 240; empty when the page has no such resource. Data that
// ends early gives the entries before its end.
std::vector<InitialEntry> InitialEntries(HINSTANCE library, int page);

// Makes a page as a hidden child of a window; null when the library has no such resource. What its
// controls notify comes to the parent.
HWND CreateSettingsPage(HINSTANCE library, int page, HWND parent);

// Fills the combo boxes, with words beside the codes, in the page's language. False when an entry
// could not be added.
bool FillComboBoxes(HWND dialog, HINSTANCE library, int page);

// The values of all keys of a page: `page` is a place in kvarn::settingsPages. A value other than
// "JA" and "NEJ" shows as a grey check box.
void ShowSettings(HWND dialog, std::size_t page, CKvarnInst& inst);

// A changed text that is no number in a field for numbers. A code of the field's list, no text and
// what the file has are all right.
struct BadNumber {
    int control = 0; // 0: there is none
    std::string field;
    std::string text;
    std::string example; // the default
};

// The first of a page; with a control, only that one is looked at.
BadNumber FindBadNumber(HWND dialog, std::size_t page, CKvarnInst& inst, int control = 0);

// Writes the keys whose values differ from what is shown, by one rewriting of the file; an empty
// text gives a key its default. A grey check box leaves its key alone. False when they could not be
// saved; none of them is written then.
bool SaveSettings(HWND dialog, std::size_t page, CKvarnInst& inst);
