#include "textwidth.h"

#include <algorithm>
#include <iterator>

namespace pages {

namespace {

// Letters by their width in pixels, in Tahoma as the pages show it; the others are wide as "a".
struct Width {
    int pixels;
    std::string_view letters;
};

constexpr Width widths[] = {
    {3, " ',.:ijl"}, {4, "()-/;Ifrt"}, {5, "Jsvxyz"}, {6, "0123456789EFLPSXbckopzöø³"},
    {8, "HNOQwÖØ"},  {9, "+Mm"},       {10, "WÆæ"},   {12, "%"},
};
constexpr int others = 7;

constexpr int unitsOfBase = 4; // a dialog unit is a quarter of the font's base width
constexpr int base = 6;
constexpr int roomInPercent = 115; // other fonts are wider

int Pixels(std::string_view letter) {
    auto const* const found = std::ranges::find_if(widths, [letter](Width const& width) {
        return width.letters.find(letter) != std::string_view::npos;
    });
    return found != std::end(widths) ? found->pixels : others;
}

} // namespace

std::string_view FirstLetter(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
        ++length;
    }
    return text.substr(0, length);
}

int TextWidth(std::string_view text) {
    int pixels = 0;
    while (!text.empty()) {
        std::string_view const letter = FirstLetter(text);
        pixels += Pixels(letter);
        text.remove_prefix(letter.size());
    }
    return (pixels * unitsOfBase * roomInPercent + base * 100 - 1) / (base * 100);
}

} // namespace pages
