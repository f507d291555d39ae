// Where an installation, its users' settings and the settings of all users lie: what the bootstrap
// and the refreshing of files have in common.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "../host/host.h"

namespace kvarn {

constexpr char const* iniName = "Markvida.ini";
constexpr char const* programFolder = "Orsakor\\Vallentra\\Markvida";

// A missing value of the registry is read as this word; its case does not count.
constexpr char const* missingText = "Saknas";
bool IsMissing(std::string_view value);

// A text of the registry, or the default.
std::string ReadRegistry(HKEY root, char const* key, char const* name,
                         char const* standard = missingText);

// The folders of the user's and of all users' application data, from the registry; nothing when it
// does not tell whether it has the user's.
std::optional<std::string> UserData();
std::string SharedData();

// The names of a folder's files, but for those that are being written. The file whose presence
// marks a filled folder comes last, so that a folder whose copying was cut short is filled at the
// next start.
struct Files {
    std::vector<std::string> names;
    bool all; // false when the folder could not be read to its end
};
Files FilesIn(std::string const& folder, char const* last);

} // namespace kvarn
