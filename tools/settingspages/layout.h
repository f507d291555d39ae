// Places everything on a page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "list.h"

namespace pages {

constexpr int pageWidth = 300; // of a property page, in dialog units
constexpr int pageHeight = 206;

// An entry of a combo box with what it stands for, as programs show it.
std::string Shown(std::string_view entry, Language language);

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
