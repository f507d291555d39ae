// Names of a folder without regard to case, on hosts whose file systems tell cases apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvarn {

// Who asks: while a folder is being filled with folders it changes with each of them.
enum class Purpose { use, makeFolder };

// The first name in a folder, in the order of bytes, that differs from `name` in case alone; empty
// when the folder has no such name, and nothing when it is not there or cannot be read; errno tells
// why.
//
// The folders that were read last are remembered until they change. One that had changed just
// before it was read is read again, since a later change may get the same time; but for a program
// that fills it with folders, and tells of them, only after a tenth of a second.
std::optional<std::string> FindWithoutCase(std::string const& folder, std::string_view name,
                                           Purpose purpose);

// Tells that this program has made a folder, which it had looked for first.
void FolderMade(std::string const& hostPath);

} // namespace kvarn
