// Line codes: a code, a word, a number, a whole number and, from a column on, a free text a line.
// A line that begins with a star ends the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kodtexts.h"

namespace kvarn {

inline constexpr std::size_t linkodTextColumn = 49; // counted from 0
inline constexpr int linkodLeast = 3;               // values without which a line is a bad one

struct LinkodLine {
    explicit LinkodLine(std::string_view line);

    bool IsRead() const { return count >= linkodLeast; }

    std::string_view kod;
    std::string_view ord;
    double number = 0;
    std::int32_t whole = 0; // when it is left out
    int count;              // of these values, in their order, so many were read
    std::string_view text;  // without blanks at its end
};

// A code "PV" and a number of two digits or more is of a family of its own, by its number.
struct LinkodFamily {
    enum Kind { ordinary = 1, narrow, wide }; // wide from 100 on

    // Of a code in code page 1252.
    explicit LinkodFamily(std::string_view kod);

    Kind kind = ordinary;
    std::string_view kod; // without "PV" for the families
};

// A line that begins with these values; what of them reaches beyond the column is lost.
std::string LinkodText(std::string values, std::string_view text);

} // namespace kvarn
