#include "utf16.h"

#include <algorithm>
#include <optional>

#include "codepage.h"

namespace kvarn {

std::u16string ToUtf16(std::string_view text) {
    std::u16string utf16;
    for (char const c : text) {
        utf16 += static_cast<char16_t>(CodePoint1252(c));
    }
    return utf16;
}

std::string FromUtf16(std::u16string_view text) {
    std::string bytes;
    for (char16_t const c : text) {
        bytes += Byte1252(c).value_or('?');
    }
    return bytes;
}

std::string ToBytes(std::u16string_view text) {
    std::string bytes;
    for (char16_t const c : text) {
        bytes += static_cast<char>(c & 0xFFU);
        bytes += static_cast<char>(c >> 8U);
    }
    return bytes;
}

std::u16string FromBytes(std::string_view bytes) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                      static_cast<unsigned char>(bytes[i + 1]) << 8U);
    }
    return text;
}

char16_t Capital(char16_t c) {
    std::optional<char> const byte = Byte1252(c);
    return byte ? static_cast<char16_t>(CodePoint1252(Upper1252(*byte))) : c;
}

std::u16string Capitals(std::u16string_view text) {
    std::u16string capitals(text);
    std::transform(capitals.begin(), capitals.end(), capitals.begin(), Capital);
    return capitals;
}

} // namespace kvarn
