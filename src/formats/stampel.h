// The title block: two words and three numbers a line. A line that begins with a star ends it.
#pragma once

#include <string>
#include <string_view>

#include "kodtexts.h"

namespace kvarn {

struct StampelLine {
    explicit StampelLine(std::string_view line);

    static constexpr int words = 2;
    static constexpr int least = words + 2; // values without which a line is a bad one
    static constexpr int all = words + 3;

    bool IsRead() const { return count >= least; }

    std::string_view ord1;
    std::string_view ord2;
    double number1 = 0;
    double number2 = 0;
    double number3 = 0; // 3 in a line that leaves it out alone
    int count;          // of these values, in their order, so many were read
};

std::string StampelText(std::string_view s1, std::string_view s2, std::string_view s3,
                        std::string_view s4, std::string_view s5);

} // namespace kvarn
