// The keys of section "SYSTEM" in "Markvida.ini", as they are read at every start.
#pragma once

#include <string>

#include "autoini.h"

namespace kvarn {

constexpr char const* systemSection = "SYSTEM";

// What stands in for folders that are gone, and is written to the keys then.
struct FallbackFolders {
    std::string messages; // key "MSG": a file, whose folder is looked at
    std::string script;   // key "SCRIPTPATH"
};

// Reads the keys into the object's members; what is missing leaves its member as it was. Folders
// are looked at only where there is something to stand in for them.
void ReadSystemKeys(CAutoIni& ini, FallbackFolders const* fallback);

// A folder in a key: trimmed, without backslashes at its end.
CString ReadFolderKey(CAutoIni& ini, char const* key);

// Redirects the application object's settings to a file, where there is an application object.
void RedirectProfile(std::string const& iniFile);

} // namespace kvarn
