#include "textlines.h"

#include <algorithm>

namespace kvarnio {
namespace {

constexpr char endOfFile = 0x1A;

// Takes the next line off the front of the content, without its end.
std::string_view TakeLine(std::string_view& content) {
    std::size_t const feed = content.find('\n');
    std::string_view line = content.substr(0, feed);
    if (feed == std::string_view::npos) {
        content = {};
        return line;
    }
    content.remove_prefix(feed + 1);
    line.remove_suffix(line.ends_with('\r') ? 1 : 0);
    return line;
}

TextLine CutAtZero(std::size_t number, std::string_view line) {
    std::size_t const zero = line.find('\0');
    return {number, line.substr(0, zero),
            zero == std::string_view::npos ? std::nullopt : std::optional(line.substr(zero + 1))};
}

} // namespace

TextLines SplitLines(std::string_view content) {
    TextLines split;
    std::size_t const end = content.find(endOfFile);
    std::string_view const text = content.substr(0, end);
    for (std::string_view rest = text; !rest.empty();) {
        split.lines.push_back(CutAtZero(split.lines.size() + 1, TakeLine(rest)));
    }
    if (end != std::string_view::npos) {
        std::string_view beyond = content.substr(end + 1);
        std::size_t const first = beyond.find_first_not_of("\r\n \t\x1A");
        if (first != std::string_view::npos) {
            beyond.remove_prefix(first);
            auto const linesBefore = std::count(text.begin(), text.end(), '\n');
            split.beyondEnd =
                TextLine{static_cast<std::size_t>(linesBefore) + 1, TakeLine(beyond), std::nullopt};
        }
    }
    return split;
}

} // namespace kvarnio
