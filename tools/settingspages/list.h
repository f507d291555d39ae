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

// A quantity that the files keep in different units has one for users: the file's value is that
// many powers of ten smaller.
struct Common {
    std::string_view unit = {};
    int power = 0;
};

// A key and its control. The number is the control's identifier, which programs are compiled with:
// it stays when the list changes, and that of a key that goes is not used again.
struct Field {
    int number;
    char const* key;
    Kind kind;
    Text label;
    Text unit = {};                             // of the file's value
    std::vector<std::string_view> entries = {}; // of a combo box, as the file has them
    Common common = {};
};

// What a code among the entries stands for: one thing, on whatever page it is.
struct Meaning {
    std::string_view code;
    Text words;
};

inline constexpr Meaning meanings[] = {
    {"MAX", {"öppen", "åpen"}},
    {"-1", {"öppen", "åpen"}},
    {"NEJ", {"ingen", "ingen"}},
    {"FÄRG", {"efter färg", "etter farge"}},
    {"SGF", {"SGF:s koder", "SGFs koder"}},
    {"STANDARD", {"standardkoder", "standardkoder"}},
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

// In tab order.
template <class Do> void ForEachField(Page const& page, Do const& act) {
    for (Group const& group : page.groups) {
        for (Row const& row : group.rows) {
            for (Field const& field : row) {
                act(field);
            }
        }
    }
}

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

// The fields of a numbered row, from 1. The number is their access key where there is one for it.
inline constexpr Text steps[] = {
    {"1. Steg:", "1. Trinn:"},   {"2. Steg:", "2. Trinn:"},  {"3. Steg:", "3. Trinn:"},
    {"4. Steg:", "4. Trinn:"},   {"5. Steg:", "5. Trinn:"},  {"6. Steg:", "6. Trinn:"},
    {"7. Steg:", "7. Trinn:"},   {"8. Steg:", "8. Trinn:"},  {"9. Steg:", "9. Trinn:"},
    {"10. Steg:", "10. Trinn:"}, {"11. Steg:", "11. Trinn:"}};

} // namespace pages
