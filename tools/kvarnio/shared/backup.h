// The copy that is kept of a file before lines of it are dropped.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kvarnio {

inline constexpr char const* backupSuffix = ".bak";

// Empty for a file that cannot be read.
std::string ContentOf(std::filesystem::path const& path);

// Of a path of the library. Throws Failure for a file that cannot be read.
std::string ReadWhole(std::string const& path);

// Writes the file's content beside it under the same name and the suffix, whole or not at all, with
// the file's rights. A copy of that name is replaced. False when that failed.
bool KeepCopy(std::filesystem::path const& path, std::string_view content);

// What to tell of a file that could not be written; a path of the library.
std::string NotWritten(std::string const& path);

} // namespace kvarnio
