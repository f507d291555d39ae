// The scanner beside the C library's sscanf, under the "C" locale that every program starts in.
//
// The first byte of an input chooses three conversions, the rest is the text. A fourth, always a
// word, shows where the three stopped.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <variant>

#include "check.h"
#include "text/scan.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

struct Word {
    char text[16] = "";
};

using Value = std::variant<std::int16_t, std::int32_t, float, double, Word>;
constexpr char const* formats[] = {"%hd", "%d", "%f", "%lf", "%15s"};

using Values = std::array<Value, 3>;

Value NewValue(unsigned kind) {
    switch (kind % std::variant_size_v<Value>) {
    case 0:
        return std::int16_t{};
    case 1:
        return std::int32_t{};
    case 2:
        return float{};
    case 3:
        return double{};
    default:
        return Word{};
    }
}

Values NewValues(unsigned selector) {
    constexpr unsigned kinds = std::variant_size_v<Value>;
    return {NewValue(selector), NewValue(selector / kinds), NewValue(selector / kinds / kinds)};
}

bool IsInteger(Value const& value) {
    return std::visit([](auto const& v) { return std::is_integral_v<std::decay_t<decltype(v)>>; },
                      value);
}

// What both read.
struct Reading {
    int count;
    Values values;
    Word rest;
};

template <class T> T& Target(T& value) {
    return value;
}
auto Target(Word& word) -> char (&)[sizeof word.text] {
    return word.text;
}

Reading ReadByScanner(std::string const& text, unsigned selector) {
    Reading reading{0, NewValues(selector), {}};
    std::visit(
        [&](auto&... values) {
            reading.count = kvarn::Scan(text, Target(values)..., reading.rest.text);
        },
        reading.values[0], reading.values[1], reading.values[2]);
    return reading;
}

void* Address(Value& value) {
    return std::visit([](auto& v) { return static_cast<void*>(&v); }, value);
}

// The same text read into wider types; 0 for what is no number.
struct Wide {
    long long integer = 0;
    long double number = 0;
};

std::array<Wide, 3> ReadWide(std::string const& text, unsigned selector) {
    std::array<Wide, 3> wide;
    std::array<Word, 3> words;
    std::array<void*, 3> targets{};
    std::string format;
    for (std::size_t i = 0; Value const& value : NewValues(selector)) {
        bool const word = std::holds_alternative<Word>(value);
        format += word ? formats[value.index()] : IsInteger(value) ? "%lld" : "%Lf";
        targets[i] = word               ? static_cast<void*>(&words[i])
                     : IsInteger(value) ? static_cast<void*>(&wide[i].integer)
                                        : static_cast<void*>(&wide[i].number);
        ++i;
    }
    std::sscanf(text.c_str(), format.c_str(), targets[0], targets[1], targets[2]);
    return wide;
}

// Where the C library cuts an integer to its low bits, ours saturates.
template <std::integral T> void Correct(T& value, Wide const& wide) {
    long long const least = std::numeric_limits<T>::min();
    long long const most = std::numeric_limits<T>::max();
    if (wide.integer < least || wide.integer > most) {
        value = static_cast<T>(std::clamp(wide.integer, least, most));
    }
}

// glibc before 2.41 forgets the last bit of a subnormal number that has exactly one bit more than
// the type (its bug 30220), and may round it the wrong way.
template <std::floating_point T> void Correct(T& value, Wide const& wide) {
    int exponent = 0;
    long double const bits = std::ldexp(std::frexp(std::fabs(wide.number), &exponent),
                                        std::numeric_limits<T>::digits + 1);
    bool const oneBitMore = std::fmod(bits, 2.0L) == 1;
    if (oneBitMore && std::fabs(wide.number) < std::numeric_limits<T>::min()) {
        value = static_cast<T>(wide.number);
    }
}

void Correct(Word&, Wide const&) {}

Reading ReadByCLibrary(std::string const& text, unsigned selector) {
    Reading reading{0, NewValues(selector), {}};
    Values& values = reading.values;
    std::string format;
    for (Value const& value : values) {
        format += formats[value.index()];
    }
    format += "%15s";
    reading.count = std::sscanf(text.c_str(), format.c_str(), Address(values[0]),
                                Address(values[1]), Address(values[2]), reading.rest.text);
    auto const wide = ReadWide(text, selector);
    for (std::size_t i = 0; i < values.size(); ++i) {
        std::visit([&](auto& v) { Correct(v, wide[i]); }, values[i]);
    }
    return reading;
}

bool Same(std::int16_t a, std::int16_t b) {
    return a == b;
}
bool Same(std::int32_t a, std::int32_t b) {
    return a == b;
}
bool Same(Word const& a, Word const& b) {
    return std::strcmp(a.text, b.text) == 0;
}
template <std::floating_point T> bool Same(T a, T b) {
    bool const equal = a == b || (std::isnan(a) && std::isnan(b));
    return equal && std::signbit(a) == std::signbit(b);
}
bool Same(Value const& a, Value const& b) {
    return std::visit(
        [&](auto const& v) { return Same(v, std::get<std::decay_t<decltype(v)>>(b)); }, a);
}

// --- Texts that are nearly numbers ---------------------------------------------------------------

using Random = std::mt19937_64;

std::size_t Below(Random& random, std::size_t bound) {
    return static_cast<std::size_t>(random() % bound);
}

std::string Fragment(Random& random) {
    // clang-format off
    static constexpr char const* fragments[] = {
        " ", "\t\r\n\v\f", "-", "+", ".", "0.", ".0", "0", "1", "9", "1.5", "000000000000",
        "e", "E-", "e+", "1e", "0x", "-0X", "0x.", "p", "P-", "p+", "0x1p",
        "inf", "INFINITY", "infinit", "nan", "-NaN", "nan(1)",
        // about the limits of 16, 32 and 64 bits
        "32767", "-32768", "32768", "-32769", "65535", "65536",
        "2147483647", "-2147483648", "2147483648", "-2147483649", "4294967296",
        "9223372036854775807", "-9223372036854775809", "18446744073709551616",
        // about the limits of floating-point numbers
        "1e308", "1.8e308", "1e-323", "2e-324", "3.4e38", "3.5e38", "1e-45", "7e-46",
        "1.797693134862315807937e308", "3.40282356779733661637539e38",
        "e-400", "e400", "e99999999999", "e-99999999999",
        "p-1074", "p-1075", "p1023", "p1024", "p-149", "p-150", "p127", "p128",
        "9007199254740993", "16777217"};
    // clang-format on
    return fragments[Below(random, std::size(fragments))];
}

std::string Digits(Random& random, std::string_view digits) {
    std::string text(1 + Below(random, 40), '0');
    for (char& c : text) {
        c = digits[Below(random, digits.size())];
    }
    return text;
}

// Half-way between a positive number and the one below it; exact in the wider type.
template <class T, class Wide, class Bits> Wide Halfway(Random& random) {
    constexpr Bits normal = std::bit_cast<Bits>(std::numeric_limits<T>::min());
    constexpr Bits infinite = std::bit_cast<Bits>(std::numeric_limits<T>::infinity());
    Bits bits = 1 + static_cast<Bits>(random()) % (infinite - 1);
    switch (Below(random, 4)) {
    case 0:
        bits %= 2 * normal; // about the smallest normal number
        break;
    case 1:
        bits = infinite - 1 - bits % normal; // among the largest
        break;
    default:
        break;
    }
    auto const number = static_cast<Wide>(std::bit_cast<T>(std::max(bits, Bits{1})));
    auto const below = static_cast<Wide>(std::bit_cast<T>(std::max(bits, Bits{1}) - 1));
    return below + (number - below) / 2;
}

std::string Printed(Random& random, long double value) {
    static constexpr int precisions[] = {5, 8, 9, 15, 16, 17, 18, 19, 20, 40, 110, 770};
    int const precision = precisions[Below(random, std::size(precisions))];
    char const* const format = Below(random, 3) == 0 ? "%.*La" : "%.*Le";
    char text[1024];
    std::snprintf(text, sizeof text, format, precision, value);
    return text;
}

std::string Piece(Random& random) {
    switch (Below(random, 6)) {
    case 0:
        return Digits(random, "0123456789");
    case 1:
        return Digits(random, "0123456789abcdefABCDEF");
    case 2:
        return Printed(random, Halfway<float, double, std::uint32_t>(random));
    case 3:
        return Printed(random, Halfway<double, long double, std::uint64_t>(random));
    default:
        return Fragment(random);
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
    Random random(seed);
    if (size == 0 || Below(random, 4) == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    std::string text(reinterpret_cast<char const*>(data), size);
    text[0] = static_cast<char>(random()); // the conversions
    if (Below(random, 4) == 0) {
        text.resize(1);
        for (std::size_t i = Below(random, 4); i > 0; --i) {
            text += Piece(random) + ' ';
        }
    }
    std::size_t const at = 1 + Below(random, text.size());
    text.replace(at, Below(random, 2) * Below(random, 8), Piece(random));
    text.resize(std::min(text.size(), maxSize));
    std::memcpy(data, text.data(), text.size());
    return text.size();
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    unsigned const selector = data[0];
    std::string const text(reinterpret_cast<char const*>(data) + 1, size - 1);
    Reading const ours = ReadByScanner(text, selector);
    Reading const theirs = ReadByCLibrary(text, selector);
    Check(ours.count == theirs.count, "as many values as sscanf reads");
    for (std::size_t i = 0; i < ours.values.size(); ++i) {
        Check(Same(ours.values[i], theirs.values[i]), "the values that sscanf reads");
    }
    Check(Same(ours.rest, theirs.rest), "stopping where sscanf stops");
    return 0;
}
