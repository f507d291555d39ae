#include "shown.h"

#include <charconv>

#include "codepage.h"

namespace kvarn {
namespace {

bool IsControl(char c) {
    char32_t const codePoint = CodePoint1252(c);
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

std::string Escaped(char c) {
    constexpr char const* digits = "0123456789ABCDEF";
    auto const byte = static_cast<unsigned char>(c);
    return {'\\', 'x', digits[byte / 16], digits[byte % 16]};
}

} // namespace

std::string OneLine(std::string_view text) {
    constexpr std::size_t longest = 80;
    std::string line;
    for (char const c : text.substr(0, longest)) {
        line += IsControl(c) ? Escaped(c) : ToUtf8({&c, 1});
    }
    return text.size() > longest ? line + "..." : line;
}

std::string Shortest(double number) {
    constexpr std::size_t longest = 32;
    std::string digits(longest, '\0');
    auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    digits.resize(static_cast<std::size_t>(end.ptr - digits.data()));
    return digits;
}

} // namespace kvarn
