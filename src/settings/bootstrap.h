// The first start of a user. CAutoIni::InitXPWay does the same without a report of its steps.
#pragma once

#include <string>
#include <vector>

#include "autoini.h"

namespace kvarn {

// What was examined and what was done, in this order.
struct BootstrapStep {
    enum Kind {
        noInstallation,    // the key names no installation
        otherInstallation, // the key names an installation in another folder
        installation,      // the key names the installation that is used
        usersSettings,     // the user already had a "Markvida.ini"
        olderSettings,     // the user's settings were copied from the folder of the older name
        noSettings,        // the user has no settings, and none are made
        switcher,          // the configuration switcher ran and left settings
        noSwitcher,        // the switcher could not be run, or left no settings
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
