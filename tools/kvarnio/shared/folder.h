// What a folder holds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvarnio {

// The names in a folder that the library can open, in their order; none of a folder that is
// missing. Throws IoFailure for one that cannot be listed.
std::vector<std::string> NamesIn(std::string const& folder);

// Whether a name has the extension, in any case, and something before it.
bool HasExtension(std::string_view name, std::string_view extension);

} // namespace kvarnio
