// Which lines of a key file the library loses when it rewrites the file: the format keeps no
// comments.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <kvarnprog.h>

namespace kvarnio {

// What a line that is kept may hold. The library would write one character more into a value, and
// lose the line at the next reading.
inline constexpr std::size_t longestKey = sizeof(partype::nyckel) - 1;
inline constexpr std::size_t longestValue = 258;

struct DroppedLine {
    std::size_t number; // counted from 1
    char const* why;
    std::string text; // in code page 1252
};

struct DroppedLines {
    std::vector<DroppedLine> lines;
    std::size_t blank = 0; // blank lines, which are dropped too and not worth a name

    bool None() const { return lines.empty() && blank == 0; }
};

// Of a file with this content, when the key is written. The key's own line is not dropped: it takes
// the new value, or is removed as asked.
DroppedLines LinesDroppedBy(std::string_view key, std::string_view content);

} // namespace kvarnio
