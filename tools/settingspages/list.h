// The one list of the settings pages: pages of groups of rows of fields, in Swedish and Norwegian.
#pragma once

#include <string_view>
#include <vector>

namespace pages {

enum Language { swedish, norwegian };

// One text serves both languages where they agree.
struct Text {
    constexpr Text() = default;
    constexpr Text(char const* both) : byLanguage{both, both} {}
    constexpr Text(char const* sv, char const* no) : byLanguage{sv, no} {}

    constexpr std::string_view operator[](Language language) const { return byLanguage[language]; }

    char const* byLanguage[2] = {"", ""};
};

enum class Kind {
    number, // a short edit box
    name,   // a long one
    combo,  // a combo box that takes other values than its entries
    check,  // "JA" and "NEJ"
};

// A key and its control. The number is the control's identifier, which programs are compiled with:
// it stays when the list changes, and that of a key that goes is not used again.
struct Field {
    int number;
    char const* key;
    Kind kind;
    Text label;
    Text unit = {};
    std::vector<std::string_view> entries = {}; // of a combo box, as the file has them
};

using Row = std::vector<Field>; // beside each other: a scale and its step

enum class Side { left, right, whole };

struct Group {
    Side side;
    Text title;
    std::vector<Row> rows;
};

enum class File { kvarnbok, jb23, klippbok };

struct Page {
    int number; // as of a field, the same for both languages
    char const* name;
    File file;
    Text caption;
    std::vector<Group> groups; // in tab order
};

// The pages of the drawing program and of the rock-drilling program.
std::vector<Page> KvarnbokPages();
std::vector<Page> SoundingPages();
std::vector<Page> KlippbokPages();

std::vector<Page> AllPages();

// Text heights, scales of drawings.
inline std::vector<std::string_view> const heights = {"1.8", "2.0", "2.5", "3.0", "3.5", "5.0"};
inline std::vector<std::string_view> const drawingScales = {"20",  "50",  "100", "200",
                                                            "400", "500", "1000"};
inline std::vector<std::string_view> const factors = {"0.5", "0.8", "1.0", "1.5", "2.0"};
inline std::vector<std::string_view> const decimals = {"0", "1", "2", "3"};

} // namespace pages
