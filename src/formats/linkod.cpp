#include "linkod.h"

#include <algorithm>

#include "../text/scan.h"
#include "../text/text.h"

namespace kvarn {

LinkodLine::LinkodLine(std::string_view line) : count(Scan(line, kod, ord, number, whole)) {
    std::string_view const trimmed = TrimmedRight(line);
    text = trimmed.substr(std::min(trimmed.size(), linkodTextColumn));
}

LinkodFamily::LinkodFamily(std::string_view theKod) : kod(theKod) {
    constexpr std::string_view prefix = "PV";
    constexpr std::size_t shortest = 4;
    constexpr int mostNarrow = 99;
    std::int32_t number = 0;
    if (kod.size() >= shortest && kod.starts_with(prefix) &&
        Scan(kod.substr(prefix.size()), number) == 1) {
        kind = number <= mostNarrow ? narrow : wide;
        kod.remove_prefix(prefix.size());
    }
}

std::string LinkodText(std::string values, std::string_view text) {
    values.resize(linkodTextColumn, ' ');
    return values.append(text) + '\n';
}

} // namespace kvarn
