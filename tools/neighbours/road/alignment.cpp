#include "alignment.h"

#include <algorithm>

#include <text/format.h>

namespace kvarnio {
namespace {

std::size_t LineOf(std::string_view content, std::size_t position) {
    return 1 + static_cast<std::size_t>(std::count(
                   content.begin(), content.begin() + static_cast<std::ptrdiff_t>(position), '\n'));
}

} // namespace

void RequirePlainText(std::string_view content) {
    if (content.starts_with("\xff\xfe") || content.starts_with("\xfe\xff")) {
        throw NotTaken("the file is UTF-16: save it as UTF-8");
    }
    if (std::size_t const nul = content.find('\0'); nul != std::string_view::npos) {
        throw NotTaken("byte " + std::to_string(nul + 1) + ", on line " +
                       std::to_string(LineOf(content, nul)) +
                       ", is zero: the file is no text, or is UTF-16");
    }
}

std::string Metres(double value) {
    constexpr std::size_t fewest = 4;
    std::string text = kvarn::Format("%.8lf", value);
    std::size_t const shortest = text.find('.') + 1 + fewest;
    while (text.size() > shortest && text.back() == '0') {
        text.pop_back();
    }
    return text;
}

} // namespace kvarnio
