#include "stampel.h"

#include "../text/format.h"
#include "../text/scan.h"

namespace kvarn {

StampelLine::StampelLine(std::string_view line)
    : count(Scan(line, ord1, ord2, number1, number2, number3)) {
    constexpr double usualThird = 3;
    number3 = count == least ? usualThird : number3;
}

std::string StampelText(std::string_view s1, std::string_view s2, std::string_view s3,
                        std::string_view s4, std::string_view s5) {
    return Format("%s %s %s %s %s\n", s1, s2, s3, s4, s5);
}

} // namespace kvarn
