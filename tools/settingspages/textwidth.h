// How wide a text of a page is, in horizontal dialog units.
#pragma once

#include <string>
#include <string_view>

namespace pages {

// The room that a text takes in the pages' font, with what fonts differ by. UTF-8.
int TextWidth(std::string_view text);

// The bytes of the first letter of a text that is not empty. UTF-8.
std::string_view FirstLetter(std::string_view text);

} // namespace pages
