// The keys of section "SYSTEM" in "Markvida.ini", as they are read at every start.
#pragma once

#include <string>

#include "autoini.h"

namespace kvarn {

constexpr char const* systemSection = "SYSTEM";

// Replace folders that no longer exist; the keys are then set to them.
struct FallbackFolders {
    std::string messages; // key "MSG": a file, whose folder must exist
    std::string script;   // key "SCRIPTPATH"
};

// Reads the keys into the object's members; a missing key leaves its member as it was. Without
// fallback folders nothing is looked up on the disk.
void ReadSystemKeys(CAutoIni& ini, FallbackFolders const* fallback);

// A folder in a key: trimmed, without backslashes at its end.
CString ReadFolderKey(CAutoIni& ini, char const* key);

// Redirects the settings of the client's application object to a file; does nothing without one.
void RedirectProfile(std::string const& iniFile);

} // namespace kvarn
