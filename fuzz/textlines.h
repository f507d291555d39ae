// The lines of a text, for the targets that account for each of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/lines.h"

using Lines = std::vector<std::string>;

inline Lines LinesOf(kvarn::LineReader& reader) {
    Lines lines;
    for (std::string_view line; reader.ReadLine(line);) {
        lines.emplace_back(line);
    }
    return lines;
}

inline Lines LinesOf(std::string_view text) {
    kvarn::LineReader reader(text);
    return LinesOf(reader);
}
