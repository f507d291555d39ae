// The environmental codes: a header up to the first line that begins with a star, then the sections
// 0 (empty), 1 methods, 2 interpretations and 3 contamination classes, each ended by such a line.
// A line is a code and a text; in section 3 the text ends with a maximum and a step for the
// diagram: "FK Text max=6 steg=1".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "../text/lines.h"
#include "kodtexts.h"

namespace kvarn {

inline constexpr int miljkodSections = 4;
inline constexpr int miljkodClasses = 3; // the section with maxima and steps
inline constexpr std::size_t longestMiljkod = 4;

// A number that ends a text, after its name and "=".
struct MiljkodLimit {
    static constexpr std::int32_t most = 100000;

    std::string_view name;  // with the "="
    std::string_view first; // its first letter, in both cases
    std::int32_t least;
    std::int32_t otherwise; // without one, and for one outside its limits
};
inline constexpr MiljkodLimit miljkodMax = {"max=", "mM", 0, 100};
inline constexpr MiljkodLimit miljkodStep = {"steg=", "sS", 1, 20};

struct MiljkodPost {
    std::string kod;
    std::string text; // letters of the DOS code page converted
    std::int32_t max = miljkodMax.otherwise;
    std::int32_t step = miljkodStep.otherwise;
};

// Takes the limit off the end of the text, with the character before its name and all that follows,
// and gives its value. Nothing, and the text stays, where the last letter of the kind that the name
// begins with begins no such name, or begins the text.
std::optional<std::int32_t> TakeLimit(std::string_view& text, MiljkodLimit const& limit);

struct MiljkodLine {
    enum class Kind { blank, codeTooLong, read };

    explicit MiljkodLine(std::string_view line);

    Kind kind;
    std::string_view kod;
    std::string_view text; // with its limits, without blanks around it
};

// Passes the header and the sections before this one; a text with fewer is passed whole.
void SkipToMiljkodSection(LineReader& lines, int section);

// The next record of the section, its limits taken off the text where they are wanted; nothing at
// its end. A line with a code that is too long is skipped and told, unless told is null.
using ToldLine = void (*)(std::string_view line);
std::optional<MiljkodPost> NextMiljkod(LineReader& lines, bool withLimits, ToldLine told);

// An empty header and an empty section 0.
inline constexpr char const* emptyMiljkodBeginning = "*\n*\n";
// Header and section 0 as the text has them; the star lines that it lacks are added.
std::string MiljkodBeginning(LineReader& lines);

std::string MiljkodText(std::string_view kod, std::string_view text);
std::string MiljkodText(std::string_view kod, std::string_view text, std::int32_t max,
                        std::int32_t step);
// The line of a record, so that it does not end its section.
std::string MiljkodText(MiljkodPost const& post, bool withLimits);

// The sections 1 to 3 anew with the codes that programs rely on, which are added where they are
// missing; nothing where none is. Only what is read of the sections remains.
std::optional<std::string> WithObligatoryMiljkod(LineReader& lines, ToldLine told);

} // namespace kvarn
