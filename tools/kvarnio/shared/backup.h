// The copy that is kept of a file before lines of it are dropped.
#pragma once

#include <string>
#include <string_view>

namespace kvarnio {

inline constexpr char const* backupSuffix = ".bak";

// Of a file that could not be read: Failure for one that is missing, IoFailure otherwise. Paths are
// the library's, here and below.
[[noreturn]] void ThrowNotRead(std::string const& path);

// The content of a file; throws as above.
std::string ReadWhole(std::string const& path);
// The same; empty for an empty path and a file that is not there.
std::string ReadIfThere(std::string const& path);

// Throws Failure for the content of a file that is about to be rewritten and is no text, of which
// next to nothing would be left.
void RequireText(std::string const& path, std::string_view content);

// Copies the file beside itself under the same name and the suffix, whole or not at all, with its
// rights. A copy of that name is replaced. False when that failed.
bool KeepCopy(std::string const& path);

// What to tell of a file that could not be written.
std::string NotWritten(std::string const& path);

} // namespace kvarnio
