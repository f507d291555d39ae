// Where an installation, its users' settings and the settings of all users lie: what the bootstrap
// and the refreshing of files have in common.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "../host/host.h"

namespace kvarn {

constexpr char const* iniNamn = "Markvida.ini";
constexpr char const* programkatalog = "Orsakor\\Vallentra\\Markvida";

// What a missing value of the registry reads as; in any case.
constexpr char const* saknad = "Saknas";
bool ArSaknad(CString const& varde);

// A text of the registry, or the default.
CString LasRegistret(HKEY rot, char const* nyckel, char const* namn, char const* standard = saknad);

// The application data of the user and of all users, as the registry tells.
CString Anvandardata();
CString Gemensamdata();

// The names of a folder's files. One of them comes last: the one by which others tell that a folder
// is filled, so that a copying that was cut short is made up for.
std::vector<std::string> FilerI(std::string const& katalog, char const* sist);

} // namespace kvarn
