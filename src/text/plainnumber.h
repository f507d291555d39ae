// Numbers as nearly all of them stand in files, read without the steps that every other form needs.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "text.h"

namespace kvarn {

// Whether four characters are digits, and the number that they stand for.
inline bool AreDigits(char const* text, std::uint32_t& number) {
    static_assert(std::endian::native == std::endian::little); // the first one is the lowest byte
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, text, sizeof bytes);
    bytes ^= 0x30303030; // a digit's byte becomes 0 to 9, any other more
    if (((bytes | (bytes + 0x76767676)) & 0x80808080) != 0) {
        return false; // a byte above 9
    }
    bytes = 10 * bytes + (bytes >> 8); // two digits in the first byte, two in the third
    number = 100 * (bytes & 0xFF) + (bytes >> 16 & 0xFF);
    return true;
}

// Takes the digits at `next` and puts them behind those of the number; returns how many they were.
inline std::ptrdiff_t TakeDigits(char const*& next, char const* end, std::uint64_t& number) {
    char const* const first = next;
    for (std::uint32_t four = 0; end - next >= 4 && AreDigits(next, four); next += 4) {
        number = 10'000 * number + four;
    }
    for (; next != end && *next >= '0' && *next <= '9'; ++next) {
        number = 10 * number + static_cast<std::uint64_t>(*next - '0');
    }
    return next - first;
}

inline constexpr std::array<double, 16> exactTens = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Takes a number of the form "-12.345" (the sign and the decimals may be missing) that has at most
// 15 digits and ends at white space or with the text. False for any other; nothing is then taken.
//
// With 15 digits the number without its point is below 2^53, so that it and the power of ten are
// exact doubles. Their quotient is rounded once, to the double nearest to what stands in the text.
inline bool TakePlainNumber(char const*& text, char const* end, double& value) {
    bool const negative = text != end && *text == '-';
    char const* next = text + (negative ? 1 : 0);
    std::uint64_t number = 0;
    std::ptrdiff_t const digits = TakeDigits(next, end, number);
    std::ptrdiff_t decimals = 0;
    if (next != end && *next == '.') {
        ++next;
        decimals = TakeDigits(next, end, number);
    }
    auto const count = static_cast<std::size_t>(digits + decimals);
    if (digits == 0 || count >= exactTens.size() || (next != end && !IsWhiteSpace(*next))) {
        return false;
    }
    double const magnitude = static_cast<double>(static_cast<std::int64_t>(number)) /
                             exactTens[static_cast<std::size_t>(decimals)];
    value = negative ? -magnitude : magnitude;
    text = next;
    return true;
}

} // namespace kvarn
