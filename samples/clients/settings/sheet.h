// The settings as a window with a list of the pages, made from the library's resources.
#pragma once

#include <kvarnprog.h>

#include "shownvalue.h"

// Opens beside the owner, where there is room; returns when the user has closed it.
void ShowSettingsSheet(HWND owner, CKvarnInst& inst, PageLanguage language);

// What the sheet has beside the buttons OK and Cancel.
enum SheetControl { sheetPages = 10, sheetApply };

// The control of a settings page in a sheet.
HWND FindSheetControl(HWND sheet, int control);
