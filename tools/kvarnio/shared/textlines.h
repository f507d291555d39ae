// The lines of a text file with their numbers, as the library reads them.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace kvarnio {

struct TextLine {
    std::size_t number; // counted from 1
    std::string_view text;
    std::optional<std::string_view> afterZero; // a zero byte cuts its line
};

struct TextLines {
    std::vector<TextLine> lines;
    // The first words after the character 0x1A, which ends the file.
    std::optional<TextLine> beyondEnd;
};

// Of a file with this content, which the caller keeps.
TextLines SplitLines(std::string_view content);

} // namespace kvarnio
