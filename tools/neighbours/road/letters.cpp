#include "letters.h"

#include <text/codepage.h>

namespace kvarnio {
namespace {

constexpr char16_t unknown = 0xFFFD;
constexpr char32_t beyondOne = 0x10000; // from there on a code point is a pair
constexpr char32_t high = 0xD800;
constexpr char32_t low = 0xDC00;
constexpr char32_t afterLow = 0xE000;

void Append(std::string& utf8, char32_t c) {
    auto const byte = [&](char32_t bits) { utf8 += static_cast<char>(bits); };
    auto const rest = [&](unsigned shift) { byte(0x80U | (c >> shift & 0x3FU)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0U | c >> 6U);
        rest(0);
    } else if (c < beyondOne) {
        byte(0xE0U | c >> 12U);
        rest(6);
        rest(0);
    } else {
        byte(0xF0U | c >> 18U);
        rest(12);
        rest(6);
        rest(0);
    }
}

} // namespace

std::u16string ToUtf16(std::string_view utf8) {
    std::u16string text;
    while (!utf8.empty()) {
        auto const c = kvarn::TakeCodePoint(utf8);
        if (!c) {
            utf8.remove_prefix(1);
            text += unknown;
        } else if (*c < beyondOne) {
            text += static_cast<char16_t>(*c);
        } else {
            text += static_cast<char16_t>(high + ((*c - beyondOne) >> 10U));
            text += static_cast<char16_t>(low + (*c & 0x3FFU));
        }
    }
    return text;
}

std::string ToUtf8(std::u16string_view text) {
    std::string utf8;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t const c = text[i];
        bool const isPair = c >= high && c < low && i + 1 < text.size() && text[i + 1] >= low &&
                            text[i + 1] < afterLow;
        if (isPair) {
            ++i;
            Append(utf8, beyondOne + ((c - high) << 10U) + (text[i] - low));
        } else {
            Append(utf8, c >= high && c < afterLow ? unknown : c);
        }
    }
    return utf8;
}

std::string AsUtf8(std::string_view text) {
    std::string_view rest = text;
    while (!rest.empty()) {
        if (!kvarn::TakeCodePoint(rest)) {
            return kvarn::ToUtf8(text);
        }
    }
    return std::string(text);
}

std::string HexOf(char16_t letter) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (unsigned const shift : {12U, 8U, 4U, 0U}) {
        text += digits[unsigned{letter} >> shift & 0xFU];
    }
    return text;
}

std::string OnOneLine(std::string_view utf8) {
    constexpr std::size_t most = 80;
    constexpr char16_t firstShown = 0x20;
    constexpr char16_t firstHigh = 0x7F; // the control characters of the upper half begin
    constexpr char16_t lastHigh = 0x9F;
    std::u16string text = ToUtf16(utf8);
    bool const isLong = text.size() > most;
    text.resize(std::min(text.size(), most));
    for (char16_t& c : text) {
        bool const isControl = c < firstShown || (c >= firstHigh && c <= lastHigh);
        c = isControl ? u'?' : c;
    }
    return ToUtf8(text) + (isLong ? "..." : "");
}

} // namespace kvarnio
