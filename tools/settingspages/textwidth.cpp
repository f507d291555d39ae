#include "textwidth.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace pages {

namespace {

// Letters by their width in pixels, in Tahoma as the pages show it; the others are wide as "a".
struct Width {
    int pixels;
    std::string_view letters;
};

constexpr Width widths[] = {
    {3, " ',.:ijl"}, {4, "()-/;Ifrt"}, {5, "Jsvxyz"}, {6, "0123456789EFLPSXbckopzöø³–"},
    {8, "HNOQwÖØ"},  {9, "+Mm"},       {10, "WÆæ½"},  {12, "%"},
};
constexpr int others = 7;

constexpr int unitsOfBase = 4; // a dialog unit is a quarter of the font's base width
constexpr int base = 6;
constexpr int roomInPercent = 115; // other fonts are wider

// Letters that are drawn a pixel narrower or wider than that.
constexpr std::string_view drawnNarrower = "acdeghiklmnquzåäBHKLMNTVYZ%+";
constexpr std::string_view drawnWider = ",.:vxy";

int Pixels(std::string_view letter) {
    auto const* const found = std::ranges::find_if(widths, [letter](Width const& width) {
        return width.letters.find(letter) != std::string_view::npos;
    });
    return found != std::end(widths) ? found->pixels : others;
}

bool Holds(std::string_view letters, std::string_view letter) {
    return letters.find(letter) != std::string_view::npos;
}

// How far before the place the letters are drawn from where they are measured.
int Drift(std::string_view before) {
    int drift = 0;
    while (!before.empty()) {
        std::string_view const letter = FirstLetter(before);
        drift += Holds(drawnNarrower, letter) ? 1 : 0;
        drift -= Holds(drawnWider, letter) ? 1 : 0;
        before.remove_prefix(letter.size());
    }
    return drift;
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

// A stroke may be off by a third of its letter, but hardly to where no letter is.
bool StrokeFits(std::string_view text, std::size_t place) {
    constexpr std::string_view noLetters = " .:,()-";
    std::string_view const letter = FirstLetter(text.substr(place));
    int const drift = Drift(text.substr(0, place));
    std::string_view const beside = drift > 0   ? text.substr(place + letter.size(), 1)
                                    : place > 0 ? text.substr(place - 1, 1)
                                                : "";
    int const part = beside.empty() || Holds(noLetters, beside) ? 6 : 3;
    return part * std::abs(drift) <= Pixels(letter);
}

} // namespace pages
