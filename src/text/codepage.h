// Code page 1252, the one run-time text encoding: its table, case folding, conversion to and from
// UTF-8, and literals that are converted from the UTF-8 sources when they are compiled.
// Source of the table: Unicode's CP1252.TXT, with Windows' own mapping of its five unassigned bytes
// to the control characters of the same number.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kvarn {

inline constexpr std::array<char16_t, 32> high1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t CodePoint1252(char c) {
    auto const byte = static_cast<unsigned char>(c);
    return byte >= 0x80 && byte < 0xA0 ? high1252[byte - 0x80U] : byte;
}

constexpr std::optional<char> Byte1252(char32_t codePoint) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
        return static_cast<char>(codePoint);
    }
    auto const* const found = std::find(high1252.begin(), high1252.end(), codePoint);
    if (found == high1252.end()) {
        return std::nullopt;
    }
    return static_cast<char>(0x80 + (found - high1252.begin()));
}

// The letters of the code page fold to the other case; every other byte stays.
constexpr char LowerByRule1252(char c) {
    auto const byte = static_cast<unsigned char>(c);
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7)) {
        return static_cast<char>(byte + 0x20);
    }
    switch (byte) {
    case 0x8A: // Š
    case 0x8C: // Œ
    case 0x8E: // Ž
        return static_cast<char>(byte + 0x10);
    case 0x9F: // Ÿ
        return static_cast<char>(0xFF);
    default:
        return c;
    }
}

// The same by a table, for the many letters of keys and names that are compared.
constexpr std::array<char, 256> SmallLetters() {
    std::array<char, 256> letters{};
    for (unsigned i = 0; i < letters.size(); ++i) {
        letters[i] = LowerByRule1252(static_cast<char>(i));
    }
    return letters;
}
inline constexpr std::array<char, 256> smallLetters = SmallLetters();
constexpr char Lower1252(char c) {
    return smallLetters[static_cast<unsigned char>(c)];
}

constexpr char Upper1252(char c) {
    auto const byte = static_cast<unsigned char>(c);
    if ((byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7)) {
        return static_cast<char>(byte - 0x20);
    }
    switch (byte) {
    case 0x9A:
    case 0x9C:
    case 0x9E:
        return static_cast<char>(byte - 0x10);
    case 0xFF:
        return static_cast<char>(0x9F);
    default:
        return c;
    }
}

// Negative, 0 or positive as a comes before b, equals it or comes after it, case ignored.
constexpr int CompareNoCase1252(std::string_view a, std::string_view b) {
    std::size_t const common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        auto const x = static_cast<unsigned char>(Lower1252(a[i]));
        auto const y = static_cast<unsigned char>(Lower1252(b[i]));
        if (x != y) {
            return x < y ? -1 : 1;
        }
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

// Takes the next code point off the front of a UTF-8 text. When the text does not begin with a
// well-formed code point the result is nothing, and the text stays as it was.
constexpr std::optional<char32_t> TakeCodePoint(std::string_view& utf8) {
    auto const lead = static_cast<unsigned char>(utf8.front());
    std::size_t const length = lead < 0x80                    ? 1
                               : lead >= 0xC2 && lead <= 0xDF ? 2
                               : lead >= 0xE0 && lead <= 0xEF ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    if (length == 0 || utf8.size() < length) {
        return std::nullopt;
    }
    char32_t codePoint = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        auto const next = static_cast<unsigned char>(utf8[i]);
        if ((next & 0xC0U) != 0x80) {
            return std::nullopt;
        }
        codePoint = codePoint << 6U | (next & 0x3FU);
    }
    // Each has one form, the shortest; halves of pairs of UTF-16 have none.
    constexpr char32_t shortest[] = {0, 0, 0x80, 0x800, 0x10000};
    bool const isHalf = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < shortest[length] || isHalf || codePoint > 0x10FFFF) {
        return std::nullopt;
    }
    utf8.remove_prefix(length);
    return codePoint;
}

// Nothing when the text is not UTF-8 or holds a letter that the code page lacks.
inline std::optional<std::string> FromUtf8(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        auto const codePoint = TakeCodePoint(utf8);
        auto const byte = codePoint ? Byte1252(*codePoint) : std::nullopt;
        if (!byte) {
            return std::nullopt;
        }
        text += *byte;
    }
    return text;
}

inline std::string ToUtf8(std::string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (char const c : text) {
        char32_t const codePoint = CodePoint1252(c);
        if (codePoint < 0x80) {
            utf8 += c;
        } else if (codePoint < 0x800) {
            utf8 += static_cast<char>(0xC0U | codePoint >> 6U);
            utf8 += static_cast<char>(0x80U | (codePoint & 0x3FU));
        } else {
            utf8 += static_cast<char>(0xE0U | codePoint >> 12U);
            utf8 += static_cast<char>(0x80U | (codePoint >> 6U & 0x3FU));
            utf8 += static_cast<char>(0x80U | (codePoint & 0x3FU));
        }
    }
    return utf8;
}

// A UTF-8 literal as a template argument, and as zero-ended text in code page 1252. A literal with
// a letter outside the code page does not compile: value() of nothing is no constant expression.
template <std::size_t N> struct Literal1252 {
    consteval Literal1252(char const (&utf8)[N]) {
        std::string_view rest(utf8, N - 1);
        for (std::size_t i = 0; !rest.empty(); ++i) {
            text[i] = Byte1252(TakeCodePoint(rest).value()).value();
        }
    }
    char text[N]{};
};

template <Literal1252 literal> consteval char const* operator""_1252() {
    return literal.text;
}

} // namespace kvarn

using kvarn::operator""_1252;
