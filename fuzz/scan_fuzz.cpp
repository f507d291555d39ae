// The scanner beside the C library's sscanf, under the "C" locale that every program starts in.
//
// The first byte of an input chooses three conversions, the rest is the text. A fourth, always a
// word, shows where the three stopped. Where the byte is large eight bytes choose a number half-way
// between two others, which is put before the text: there rounding is decided.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <variant>

#include "check.h"
#include "text/scan.h"

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

// --- Numbers half-way between two others ---------------------------------------------------------

// Between a positive number and the one below it; exact in the wider type.
template <class T, class Wide, class Bits> long double Halfway(std::uint64_t choice, unsigned how) {
    constexpr Bits normal = std::bit_cast<Bits>(std::numeric_limits<T>::min());
    constexpr Bits infinite = std::bit_cast<Bits>(std::numeric_limits<T>::infinity());
    auto const any = static_cast<Bits>(choice);
    Bits const bits = how == 0   ? any % (2 * normal)          // about the smallest normal number
                      : how == 1 ? infinite - 1 - any % normal // among the largest
                                 : any % infinite;
    auto const number = static_cast<Wide>(std::bit_cast<T>(std::max(bits, Bits{1})));
    auto const below = static_cast<Wide>(std::bit_cast<T>(std::max(bits, Bits{1}) - 1));
    return below + (number - below) / 2;
}

std::string PrintedHalfway(std::uint64_t choice, unsigned how) {
    static constexpr int precisions[] = {5, 8, 9, 15, 16, 17, 18, 19, 20, 40, 110, 770};
    long double const value =
        how % 2 == 0 ? Halfway<float, double, std::uint32_t>(choice, how / 2 % 4)
                     : Halfway<double, long double, std::uint64_t>(choice, how / 2 % 4);
    char text[1024];
    std::snprintf(text, sizeof text, how / 8 % 4 == 0 ? "%.*La" : "%.*Le",
                  precisions[choice % std::size(precisions)], value);
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    constexpr unsigned firstHalfway = 128;
    unsigned const selector = data[0];
    std::string text(reinterpret_cast<char const*>(data) + 1, size - 1);
    std::uint64_t choice = 0;
    if (selector >= firstHalfway && text.size() >= sizeof choice) {
        std::memcpy(&choice, text.data(), sizeof choice);
        text.replace(0, sizeof choice, PrintedHalfway(choice, selector));
    }
    Reading const ours = ReadByScanner(text, selector);
    Reading const theirs = ReadByCLibrary(text, selector);
    Check(ours.count == theirs.count, "as many values as sscanf reads");
    for (std::size_t i = 0; i < ours.values.size(); ++i) {
        Check(Same(ours.values[i], theirs.values[i]), "the values that sscanf reads");
    }
    Check(Same(ours.rest, theirs.rest), "stopping where sscanf stops");
    return 0;
}
