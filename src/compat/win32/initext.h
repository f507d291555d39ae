// The text of an INI file: finding a value in it, and the text with one value changed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvarn {

// The first value of the key in the first section of the name, without the blanks around it and
// without one pair of quotes; nothing when the section or the key is missing.
std::optional<std::string_view> IniValue(std::string_view ini, std::string_view section,
                                         std::string_view key);

// The text with the key's value replaced, added or (without a value) removed. A new key follows the
// last line of its section that is not blank, a new section the end of the text; every other line
// stays as it is.
std::string WithIniValue(std::string_view ini, std::string_view section, std::string_view key,
                         std::optional<std::string_view> value);

} // namespace kvarn
