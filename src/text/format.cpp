#include "format.h"

#include <algorithm>
#include <charconv>

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

void AppendNumber(std::string& out, double value, Conversion const& c) {
    constexpr int standardDecimals = 6;
    int const decimals = c.precision < 0 ? standardDecimals : std::min(c.precision, mostDecimals);
    std::array<char, mostCharacters> buffer{};
    auto const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, decimals)
                         .ptr;
    std::string_view const text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    // printf pads infinities and NaNs with blanks, also when zeros are asked for.
    bool const finite = text.find_first_of("in") == std::string_view::npos; // "inf", "nan"
    Pad(out, text, c, c.zeros && finite);
}

} // namespace

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
