// The area file of a project: lines of the user's own, up to the second that begins with a star;
// then the name of a road file, the stations and the offsets of the area. What follows is free.
#pragma once

#include <string>

#include "../text/lines.h"

namespace kvarn {

// In characters; a longer line is read as several. What is kept of the user's own is whole.
inline constexpr std::size_t longestOmradesrad = 255;

struct Omrade {
    // Takes over what the file holds. A line of one number instead of two gives none, and ends the
    // reading. False for an incomplete file; what it held until then is taken over.
    bool Read(LineReader& lines);
    // The lines of the road file and the area.
    std::string Text() const;

    std::string filnamn;
    double sekFran = 0;
    double sekTill = 0;
    double avstMin = 0;
    double avstMax = 0;
};

// The user's own lines, with the second star line: all of a text that has fewer.
std::string OwnLines(LineReader& lines);
// Of a new file.
inline constexpr char const* noOwnLines = "*\r\n*\r\n";

} // namespace kvarn
