// Texts of code page 1252 in sources that are ASCII.
#pragma once

#include <string>
#include <string_view>

namespace pages {

// Throws std::runtime_error for a letter that the code page lacks.
std::string CodePage1252(std::string_view utf8);

// Its bytes as every compiler reads them between quotes, whatever the source's own code page.
std::string Octal(std::string_view utf8);

} // namespace pages
