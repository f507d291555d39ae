// How wide a text of a page is, in horizontal dialog units.
#pragma once

#include <string>
#include <string_view>

namespace pages {

// The room that a text takes in the pages' font, with what fonts differ by. UTF-8.
int TextWidth(std::string_view text);

// Whether the stroke of an access key is seen under its letter. Some systems measure a text wider
// than they draw it, and put the stroke where they have measured the letter. UTF-8.
bool StrokeFits(std::string_view text, std::size_t place);

// The bytes of the first letter of a text that is not empty. UTF-8.
std::string_view FirstLetter(std::string_view text);

} // namespace pages
