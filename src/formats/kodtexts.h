// What the code files have in common.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "../text/lines.h"

namespace kvarn {

// Characters of a word or a text that programs read: what their buffers hold, without the zero.
inline constexpr std::size_t longestKodtext = 255;

// Ends a header, a section or a file.
inline constexpr char const* endLine = "*\n";

// A code that begins with a star was read after a blank: without one its line would end the data.
inline std::string AsFirstWord(std::string_view kod) {
    return std::string(IsStarLine(kod) ? " " : "").append(kod);
}

} // namespace kvarn
