#include "text.h"

#include <algorithm>
#include <string>

#include "codepage.h"

namespace kvarn {

std::string_view Trimmed(std::string_view text, std::string_view set) {
    std::size_t const first = text.find_first_not_of(set);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(set) - first + 1);
}

std::string_view TrimmedRight(std::string_view text) {
    return text.substr(0, text.find_last_not_of(whiteSpace) + 1);
}

bool SameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CompareNoCase1252(a, b) == 0;
}

void CopyText(char* buffer, std::size_t size, std::string_view text) {
    std::size_t const length = std::min(text.size(), size - 1);
    std::char_traits<char>::move(buffer, text.data(), length); // the text may lie in the buffer
    buffer[length] = '\0';
}

} // namespace kvarn
