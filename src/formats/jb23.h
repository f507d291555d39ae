// The Jb2/Jb3 scales: a line for each quantity, with its scale and its step as two words.
#pragma once

#include <string>
#include <string_view>

#include "../text/lines.h"

namespace kvarn {

inline constexpr int jb23Lines = 11; // one for each quantity

// Where the word of a key is. A key that is unknown has its word on the first line.
struct ScalePlace {
    explicit ScalePlace(std::string_view key);

    int line = 1; // counted from 1
    bool isStep;  // the second word
};

// A line's words; a missing one is empty.
struct ScaleLine {
    explicit ScaleLine(std::string_view line);
    ScaleLine(std::string_view theScale, std::string_view theStep)
        : scale(theScale), step(theStep) {}

    std::string_view& At(ScalePlace const& place) { return place.isStep ? step : scale; }
    std::string Text() const;

    std::string_view scale;
    std::string_view step;
};

// The word at the place; empty without one.
std::string ScaleAt(LineReader& lines, ScalePlace const& place);

// All of the text with the word at its place. A text with fewer lines gets one more, whichever the
// place's own is, with a 0 for the other word.
std::string WithScale(LineReader& lines, ScalePlace const& place, std::string_view word);

// A new text, which is complete only for the first line's scale and otherwise empty.
std::string NewScales(ScalePlace const& place, std::string_view word);

} // namespace kvarn
