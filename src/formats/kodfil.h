// The code file: a header of free lines, up to the first that begins with a star; then a code and
// one word of text a line. The line "*" at the end is read as any other.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "../text/lines.h"
#include "kodtexts.h"

namespace kvarn {

struct Kodpost {
    std::string_view kod;
    std::string_view text;
};

// Nothing for a line with fewer than two words, which is skipped. What follows them is not read.
std::optional<Kodpost> ReadKodpost(std::string_view line);

// The next record; false at the end. The header is to be passed first.
bool NextKodpost(LineReader& lines, Kodpost& post);

std::string KodpostLine(std::string_view kod, std::string_view text);

inline constexpr int kodfilHeaderStars = 1; // which end it

// Up to the header's star line, with it; all of a text without one.
struct KodfilHeader {
    explicit KodfilHeader(LineReader& lines);

    std::string text;
    bool isEnded = false; // there is the star line
};

} // namespace kvarn
