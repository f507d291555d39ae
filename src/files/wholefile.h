// A file's whole content.
#pragma once

#include <optional>
#include <string>

namespace kvarn {

// Nothing when the file cannot be opened or read to its end; GetLastError tells why it could not be
// opened. The path is a Windows path.
std::optional<std::string> WholeFile(char const* path);

} // namespace kvarn
