// The keys of section "SYSTEM" in "Markvida.ini", as they are read at every start.
#pragma once

#include <string>

#include "autoini.h"

namespace kvarn {

constexpr char const* systemSektion = "SYSTEM";

// What stands in for folders that are gone, and is written to the keys then.
struct Reservkataloger {
    std::string meddelanden; // key "MSG": a file, whose folder is looked at
    std::string script;      // key "SCRIPTPATH"
};

// Reads the keys into the object's members; what is missing leaves its member as it was. Folders
// are looked at only where there is something to stand in for them.
void LasSystemnycklar(CAutoIni& ini, Reservkataloger const* reserv);

// A folder in a key: trimmed, without backslashes at its end.
CString LasKatalognyckel(CAutoIni& ini, char const* nyckel);

// Redirects the application object's settings to a file, where there is an application object.
void StyrOmProfil(std::string const& iniFil);

} // namespace kvarn
