// Which letter takes the user to a field.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "list.h"

namespace pages {

// The letters of the sheet's own button beside OK and Cancel, which have none: Apply where Windows
// speaks English, Verkställ, Bruk.
constexpr std::string_view SheetLetters(Language language) {
    return language == swedish ? "AV" : "AB";
}

// The texts with "&" before their letters: no letter twice, none of the sheet's, each as wide as
// its stroke. Throws std::runtime_error when there are too few letters.
std::vector<std::string> WithAccelerators(std::vector<std::string_view> const& texts,
                                          Language language);

} // namespace pages
