// Texts with values. A format that does not fit its arguments does not compile.
//
// Conversions: %s (text), %d and %ld (32 bits), %f and %lf (double), %%; with the flags - and 0,
// width and precision, each of which may be * (32 bits, before its value). The results are printf's
// under a "." locale, whatever locale the process has: all digits exact, exact halves to even.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace kvarn {

struct FormatArgument {
    enum class Kind { none, text, integer, number };

    FormatArgument(std::string_view value) : kind(Kind::text), text(value) {}
    FormatArgument(std::int32_t value) : kind(Kind::integer), integer(value) {}
    FormatArgument(double value) : kind(Kind::number), number(value) {}

    Kind kind;
    union {
        std::string_view text;
        std::int32_t integer;
        double number;
    };
};

struct Conversion {
    bool left = false;
    bool zeros = false;
    bool widthGiven = false; // by an argument
    bool precisionGiven = false;
    int width = 0;
    int precision = -1;
    char letter = '\0'; // s, d, f or %; zero for any other conversion
};

// The conversion that follows a '%'; takes it off the format.
constexpr Conversion TakeConversion(std::string_view& format) {
    Conversion conversion;
    auto const at = [&](char c) {
        bool const found = format.starts_with(c);
        format.remove_prefix(found ? 1 : 0);
        return found;
    };
    auto const digits = [&] {
        int value = 0;
        while (!format.empty() && format.front() >= '0' && format.front() <= '9') {
            value = 10 * value + (format.front() - '0');
            format.remove_prefix(1);
        }
        return value;
    };
    while (format.starts_with('-') || format.starts_with('0')) {
        conversion.left |= format.front() == '-';
        conversion.zeros |= format.front() == '0';
        format.remove_prefix(1);
    }
    conversion.widthGiven = at('*');
    conversion.width = conversion.widthGiven ? 0 : digits();
    if (at('.')) {
        conversion.precisionGiven = at('*');
        conversion.precision = conversion.precisionGiven ? 0 : digits();
    }
    bool const wide = at('l');
    for (char const letter : {'s', 'd', 'f', '%'}) {
        bool const offered = !wide || letter == 'd' || letter == 'f';
        if (offered && format.starts_with(letter)) {
            conversion.letter = letter;
            format.remove_prefix(1);
            break;
        }
    }
    return conversion;
}

// The index of the next conversion, or the format's length. (A loop and not find: under the
// undefined-behaviour sanitizer GCC does not accept find's null test as constant.)
constexpr std::size_t NextPercent(std::string_view format) {
    std::size_t i = 0;
    while (i < format.size() && format[i] != '%') {
        ++i;
    }
    return i;
}

constexpr FormatArgument::Kind KindOf(char letter) {
    return letter == 's'   ? FormatArgument::Kind::text
           : letter == 'd' ? FormatArgument::Kind::integer
                           : FormatArgument::Kind::number;
}

template <class T> constexpr FormatArgument::Kind KindOfType() {
    if constexpr (std::convertible_to<T const&, std::string_view> ||
                  std::convertible_to<T const&, char const*>) {
        return FormatArgument::Kind::text;
    } else if constexpr (std::floating_point<T> && sizeof(T) <= sizeof(double)) {
        return FormatArgument::Kind::number;
    } else if constexpr (std::signed_integral<T> && sizeof(T) <= sizeof(std::int32_t) &&
                         !std::same_as<T, char>) {
        return FormatArgument::Kind::integer;
    } else {
        return FormatArgument::Kind::none;
    }
}

// Not constant: reaching it while a format is checked makes the format fail to compile.
void TheFormatDoesNotFitItsArguments();

template <class... T> class FormatString {
  public:
    // NOLINTNEXTLINE(google-explicit-constructor): callers pass a plain literal.
    consteval FormatString(char const* text) : m_text(text) {
        std::array<FormatArgument::Kind, sizeof...(T) + 1> const kinds = {
            KindOfType<T>()..., FormatArgument::Kind::none};
        std::size_t next = 0;
        auto const take = [&](FormatArgument::Kind kind) {
            if (next == sizeof...(T) || kinds[next++] != kind) {
                TheFormatDoesNotFitItsArguments();
            }
        };
        std::string_view rest = m_text;
        while (true) {
            rest.remove_prefix(NextPercent(rest));
            if (rest.empty()) {
                break;
            }
            rest.remove_prefix(1);
            Conversion const conversion = TakeConversion(rest);
            if (conversion.letter == '\0') {
                TheFormatDoesNotFitItsArguments();
            }
            if (conversion.widthGiven) {
                take(FormatArgument::Kind::integer);
            }
            if (conversion.precisionGiven) {
                take(FormatArgument::Kind::integer);
            }
            if (conversion.letter != '%') {
                take(KindOf(conversion.letter));
            }
        }
        if (next != sizeof...(T)) {
            TheFormatDoesNotFitItsArguments();
        }
    }

    std::string_view Text() const { return m_text; }

  private:
    std::string_view m_text;
};

template <class T> FormatArgument ToFormatArgument(T const& value) {
    if constexpr (KindOfType<T>() == FormatArgument::Kind::text) {
        if constexpr (std::convertible_to<T const&, std::string_view>) {
            return std::string_view(value);
        } else {
            return std::string_view(static_cast<char const*>(value));
        }
    } else if constexpr (KindOfType<T>() == FormatArgument::Kind::number) {
        return static_cast<double>(value);
    } else {
        return static_cast<std::int32_t>(value);
    }
}

// Appends a number as "%.*lf" prints it.
void AppendFixed(std::string& out, double value, int decimals);

std::string FormatText(std::string_view format, std::span<FormatArgument const> arguments);

template <class... T>
std::string Format(FormatString<std::type_identity_t<T>...> format, T const&... arguments) {
    std::array<FormatArgument, sizeof...(T)> const list = {ToFormatArgument(arguments)...};
    return FormatText(format.Text(), list);
}

} // namespace kvarn
