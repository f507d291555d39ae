// Where an installation, its users' settings and the settings of all users lie: what the bootstrap
// and the refreshing of files have in common.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "../host/host.h"

namespace kvarn {

constexpr char const* iniName = "Markvida.ini";
constexpr char const* programFolder = "Orsakor\\Vallentra\\Markvida";

// What a missing value of the registry reads as; in any case.
constexpr char const* missingText = "Saknas";
bool IsMissing(std::string_view value);

// A text of the registry, or the default.
std::string ReadRegistry(HKEY root, char const* key, char const* name,
                         char const* standard = missingText);

// The application data of the user and of all users, as the registry tells.
std::string UserData();
std::string SharedData();

// The names of a folder's files. One of them comes last: the one by which others tell that a folder
// is filled, so that a copying that was cut short is made up for.
std::vector<std::string> FilesIn(std::string const& folder, char const* last);

} // namespace kvarn
