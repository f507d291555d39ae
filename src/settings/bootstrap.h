// The first start of a user, told step by step: CAutoIni::InitXPWay without the telling.
#pragma once

#include <string>
#include <vector>

#include "autoini.h"

namespace kvarn {

// What was looked at and what was done, in that order.
struct BootstrapStep {
    enum Kind {
        noInstallation,    // the key names none
        otherInstallation, // the key names one in another folder
        installation,      // the one that is taken
        usersSettings,     // "Markvida.ini" of the user's was there
        olderSettings,     // the user's settings were copied from the folder of the older name
        noSettings,        // the user has none, and none are made
        switcher,          // the configuration switcher was run, and left settings
        noSwitcher,        // it could not be run, or left none
        sharedSettings     // the settings were copied from those of all users
    };
    Kind kind;
    std::string place; // a key under HKEY_LOCAL_MACHINE, a file or a folder
    std::string value; // of the key
};

// See CAutoIni::InitXPWay. Appends the steps.
int Bootstrap(CAutoIni& ini, int ver, char const* sub, char const* dir,
              std::vector<BootstrapStep>& steps);

} // namespace kvarn
