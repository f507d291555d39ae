// Which letter takes the user to a field.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pages {

// The texts with "&" before their letters: no letter twice. A text that stands more than once on
// the page has none. Throws std::runtime_error when there are too few letters.
std::vector<std::string> WithAccelerators(std::vector<std::string_view> const& texts);

} // namespace pages
