#include "format.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>

namespace kvarn {
namespace {

// A double has at most 1,074 decimals: more only add zeros, and callers may ask for any number.
constexpr int mostDecimals = 1100;
// 309 digits before the point, the point, and a sign.
constexpr std::size_t mostCharacters = mostDecimals + 311;

void Pad(std::string& out, std::string_view text, Conversion const& c, bool zeros) {
    std::size_t const width = c.width > 0 ? static_cast<std::size_t>(c.width) : 0;
    std::size_t const missing = width > text.size() ? width - text.size() : 0;
    if (c.left) {
        out.append(text).append(missing, ' ');
    } else if (zeros) {
        std::size_t const sign = text.starts_with('-') ? 1U : 0U;
        out.append(text.substr(0, sign)).append(missing, '0').append(text.substr(sign));
    } else {
        out.append(missing, ' ').append(text);
    }
}

void AppendText(std::string& out, std::string_view text, Conversion const& c) {
    std::size_t const most =
        c.precision >= 0 ? static_cast<std::size_t>(c.precision) : std::string_view::npos;
    Pad(out, text.substr(0, most), c, false);
}

void AppendInteger(std::string& out, std::int32_t value, Conversion const& c) {
    std::array<char, 12> buffer{};
    auto const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    std::string digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    std::size_t const sign = value < 0 ? 1U : 0U;
    if (c.precision == 0 && value == 0) {
        digits.clear();
    }
    std::size_t const least = c.precision > 0 ? static_cast<std::size_t>(c.precision) : 0;
    if (digits.size() - sign < least) {
        digits.insert(sign, least - (digits.size() - sign), '0');
    }
    Pad(out, digits, c, c.zeros && c.precision < 0);
}

// Five to the decimals, as many as most numbers are printed with.
constexpr std::array<std::uint64_t, 5> fives = {1, 5, 25, 125, 625};

// The value times ten to the decimals, rounded to a whole number, exact halves to even. Nothing for
// a number that is too large, infinite or none.
//
// The value is m * 2^e, the product m * 5^d * 2^(e + d). m is below 2^53 and 5^d at most 625, so
// that m * 5^d is exact in 64 bits, and what a shift drops of it decides the rounding.
std::optional<std::uint64_t> Scaled(double value, std::size_t decimals) {
    constexpr int mantissaBits = 52;
    constexpr std::uint64_t one = 1;
    auto const bits = std::bit_cast<std::uint64_t>(value);
    auto const exponent = static_cast<int>(bits >> mantissaBits & 0x7FF);
    int const shift = 1075 - exponent - static_cast<int>(decimals);
    if (shift > 63) {
        return 0; // m * 5^d is below 2^63, the product below a half
    }
    if (shift < 1) {
        return std::nullopt;
    }
    std::uint64_t const m = (bits & ((one << mantissaBits) - 1)) | one << mantissaBits;
    std::uint64_t const product = m * fives[decimals];
    std::uint64_t const whole = product >> shift;
    std::uint64_t const dropped = product & ((one << shift) - 1);
    std::uint64_t const half = one << (shift - 1);
    std::uint64_t const odd = whole & 1;
    return whole + (dropped + odd > half ? 1 : 0);
}

constexpr std::array<std::array<char, 2>, 100> DigitPairs() {
    std::array<std::array<char, 2>, 100> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        pairs[i] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
    }
    return pairs;
}
constexpr auto digitPairs = DigitPairs();

// Takes so many of a number's last digits, or all of them, and puts them before the end. Returns
// the first.
char* PutDigits(char* end, std::uint64_t& number, std::size_t count) {
    for (; count >= 2; count -= 2, number /= 100) {
        end -= 2;
        std::memcpy(end, digitPairs[number % 100].data(), 2);
    }
    if (count > 0) {
        *--end = static_cast<char>('0' + number % 10);
        number /= 10;
    }
    return end;
}
char* PutAllDigits(char* end, std::uint64_t number) {
    while (number >= 100) {
        end = PutDigits(end, number, 2);
    }
    return PutDigits(end, number, number >= 10 ? 2 : 1);
}

using NumberBuffer = std::array<char, mostCharacters>;

// As "%.*lf"; the text lies in the buffer.
std::string_view Fixed(NumberBuffer& buffer, double value, int decimals) {
    char* begin = buffer.data();
    char* end = begin + buffer.size();
    auto const count = static_cast<std::size_t>(decimals);
    if (auto scaled = count < fives.size() ? Scaled(value, count) : std::nullopt) {
        begin = PutDigits(end, *scaled, count);
        if (count > 0) {
            *--begin = '.';
        }
        begin = PutAllDigits(begin, *scaled);
        if (std::signbit(value)) {
            *--begin = '-';
        }
    } else {
        end = std::to_chars(begin, end, value, std::chars_format::fixed, decimals).ptr;
    }
    return {begin, static_cast<std::size_t>(end - begin)};
}

void AppendNumber(std::string& out, double value, Conversion const& c) {
    constexpr int standardDecimals = 6;
    int const decimals = c.precision < 0 ? standardDecimals : std::min(c.precision, mostDecimals);
    NumberBuffer buffer; // not cleared: it is large, and most numbers are short
    // printf pads infinities and NaNs with blanks, also when zeros are asked for.
    Pad(out, Fixed(buffer, value, decimals), c, c.zeros && std::isfinite(value));
}

} // namespace

void AppendFixed(std::string& out, double value, int decimals) {
    NumberBuffer buffer;
    out += Fixed(buffer, value, decimals);
}

void TheFormatDoesNotFitItsArguments() {}

std::string FormatText(std::string_view format, std::span<FormatArgument const> arguments) {
    std::string out;
    auto const* next = arguments.data();
    while (true) {
        std::size_t const percent = NextPercent(format);
        out.append(format.substr(0, percent));
        if (percent == format.size()) {
            return out;
        }
        format.remove_prefix(percent + 1);
        Conversion c = TakeConversion(format);
        if (c.widthGiven) {
            std::int32_t const width = (next++)->integer;
            c.left |= width < 0;
            c.width = width < 0 ? -width : width;
        }
        if (c.precisionGiven) {
            c.precision = (next++)->integer;
        }
        switch (c.letter) {
        case 's':
            AppendText(out, (next++)->text, c);
            break;
        case 'd':
            AppendInteger(out, (next++)->integer, c);
            break;
        case 'f':
            AppendNumber(out, (next++)->number, c);
            break;
        default:
            out += '%';
            break;
        }
    }
}

} // namespace kvarn
