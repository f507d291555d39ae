// Names of a folder without regard to case, on hosts whose file systems tell cases apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvarn {

// The first name in a folder, in the order of bytes, that differs from `name` in case alone; empty
// when the folder has no such name, and nothing when it cannot be read.
//
// The folders that were read last are remembered until they change. In one that had changed shortly
// before it was read a later change may get the same time: it is read again after a tenth of a
// second.
std::optional<std::string> FindWithoutCase(std::string const& folder, std::string_view name);

// Tells that this program has made a folder, which it had looked for first: the folder around it
// need not be read again. One that is being filled would else be read for every name.
void FolderMade(std::string const& hostPath);

} // namespace kvarn
