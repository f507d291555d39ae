// The settings as a property sheet, made from the library's resources.
#pragma once

#include <kvarnprog.h>

// Returns when the user has closed it. language 0: Swedish, 1: Norwegian.
void ShowSettingsSheet(HWND owner, CKvarnInst& inst, int language);

// While this object lives, only the first message of the library is shown, over the program's main
// window: a file that cannot be opened fails again for each key that is read from it.
class OneBox {
  public:
    OneBox();
    ~OneBox();
    OneBox(OneBox const&) = delete;
    OneBox& operator=(OneBox const&) = delete;
};
