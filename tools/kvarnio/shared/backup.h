// The copy that is kept of a file before lines of it are dropped.
#pragma once

#include <string>

namespace kvarnio {

inline constexpr char const* backupSuffix = ".bak";

// The content of a file; paths are the library's, here and below. Throws Failure for a file that
// cannot be read.
std::string ReadWhole(std::string const& path);
// The same; empty for an empty path and a file that is not there.
std::string ReadIfThere(std::string const& path);

// Copies the file beside itself under the same name and the suffix, whole or not at all, with its
// rights. A copy of that name is replaced. False when that failed.
bool KeepCopy(std::string const& path);

// What to tell of a file that could not be written.
std::string NotWritten(std::string const& path);

} // namespace kvarnio
