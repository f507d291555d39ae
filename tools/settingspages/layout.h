// Places everything on a page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "list.h"

namespace pages {

constexpr int pageWidth = 252; // of a property page, in dialog units
constexpr int pageHeight = 218;

enum class Part { group, label, unit, edit, combo, check };

struct Item {
    Part part;
    std::string text;   // with the "&" of its accelerator; UTF-8
    Field const* field; // null for what is only read
    int x;
    int y;
    int width;
    int height;
};

// What the page shows in a language, in tab order. Throws std::runtime_error when it has not the
// room.
std::vector<Item> LaidOut(Page const& page, Language language);

} // namespace pages
