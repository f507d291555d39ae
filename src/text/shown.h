// Texts of files, and numbers, as messages show them.
#pragma once

#include <string>
#include <string_view>

namespace kvarn {

// A text of code page 1252 on one line, in UTF-8: control characters as \x0D, and "..." for what
// goes beyond 80 characters.
std::string OneLine(std::string_view text);

// A number in as few digits as give it again.
std::string Shortest(double number);

} // namespace kvarn
