#include "scan.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "plainnumber.h"
#include "text.h"

namespace kvarn {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool IsHexDigit(char c) {
    return IsDigit(c) || (Lower(c) >= 'a' && Lower(c) <= 'f');
}

// Takes a word off the front of the text, whatever its case; false when the text has another. The
// word is given in lower case.
bool Take(std::string_view& text, std::string_view word) {
    bool const found =
        text.size() >= word.size() && std::equal(word.begin(), word.end(), text.begin(),
                                                 [](char w, char t) { return w == Lower(t); });
    text.remove_prefix(found ? word.size() : 0);
    return found;
}

// The characters of a decimal or hexadecimal floating-point number: digits with one point, then an
// exponent, whose digits may be missing.
std::size_t NumberLength(std::string_view text, bool hex) {
    bool digit = false;
    bool point = false;
    bool exponent = false;
    std::size_t i = 0;
    for (; i < text.size(); ++i) {
        char const c = text[i];
        if (IsDigit(c) || (hex && !exponent && IsHexDigit(c))) {
            digit = true;
        } else if ((c == '-' || c == '+') && exponent && Lower(text[i - 1]) == (hex ? 'p' : 'e')) {
            continue;
        } else if (Lower(c) == (hex ? 'p' : 'e') && digit && !exponent) {
            exponent = true;
        } else if (c == '.' && !point && !exponent) {
            point = true;
        } else {
            break;
        }
    }
    return i;
}

// Whether a number beyond the range of its type is too large rather than too small.
bool IsHuge(std::string_view number, bool hex) {
    // Beyond any length of a text, so that a sum with one cannot overflow.
    constexpr std::int64_t most = 1'000'000'000'000;
    std::size_t const mark = number.find_first_of(hex ? "pP" : "eE");
    std::string_view const mantissa = number.substr(0, mark);
    std::int64_t exponent = 0;
    if (mark != std::string_view::npos) {
        std::string_view digits = number.substr(mark + 1);
        bool const negative = digits.starts_with('-');
        digits.remove_prefix(negative || digits.starts_with('+') ? 1 : 0);
        for (char const c : digits) {
            exponent = std::min(most, 10 * exponent + (c - '0'));
        }
        exponent = negative ? -exponent : exponent;
    }
    auto const point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    auto const leading = static_cast<std::int64_t>(mantissa.find_first_not_of("0."));
    return exponent + (point - leading) * (hex ? 4 : 1) > 0;
}

// The value of what NumberLength measured; false when it holds no digit.
template <class T> bool ToNumber(std::string_view number, bool hex, T& value) {
    auto const format = hex ? std::chars_format::hex : std::chars_format::general;
    T parsed{};
    auto const result =
        std::from_chars(number.data(), number.data() + number.size(), parsed, format);
    if (result.ec == std::errc::invalid_argument) {
        return false;
    }
    if (result.ec == std::errc::result_out_of_range) {
        parsed = IsHuge(number, hex) ? std::numeric_limits<T>::infinity() : T{};
    }
    value = parsed;
    return true;
}

template <class T> T Saturated(std::int64_t value) {
    return static_cast<T>(std::clamp<std::int64_t>(value, std::numeric_limits<T>::min(),
                                                   std::numeric_limits<T>::max()));
}

} // namespace

bool Scanner::SkipBlanks() {
    std::size_t blanks = 0;
    while (blanks < m_rest.size() && IsWhiteSpace(m_rest[blanks])) {
        ++blanks;
    }
    m_rest.remove_prefix(blanks);
    return !m_rest.empty();
}

Scanner::Result Scanner::ReadInteger(std::int64_t& value) {
    constexpr std::int64_t beyond = std::int64_t{1} << 40; // any number outside 32 bits
    if (!SkipBlanks()) {
        return Result::end;
    }
    bool const negative = m_rest.front() == '-';
    m_rest.remove_prefix(negative || m_rest.front() == '+' ? 1 : 0);
    std::int64_t sum = 0;
    std::size_t digits = 0;
    for (; digits < m_rest.size() && IsDigit(m_rest[digits]); ++digits) {
        sum = std::min(beyond, 10 * sum + (m_rest[digits] - '0'));
    }
    m_rest.remove_prefix(digits);
    if (digits == 0) {
        return Result::mismatch;
    }
    value = negative ? -sum : sum;
    return Result::read;
}

Scanner::Result Scanner::Read(std::int16_t& value) {
    std::int64_t wide = 0;
    Result const result = ReadInteger(wide);
    value = result == Result::read ? Saturated<std::int16_t>(wide) : value;
    return result;
}

Scanner::Result Scanner::Read(std::int32_t& value) {
    std::int64_t wide = 0;
    Result const result = ReadInteger(wide);
    value = result == Result::read ? Saturated<std::int32_t>(wide) : value;
    return result;
}

template <class T> Scanner::Result Scanner::ReadNumber(T& value) {
    if (!SkipBlanks()) {
        return Result::end;
    }
    bool const negative = m_rest.front() == '-';
    m_rest.remove_prefix(negative || m_rest.front() == '+' ? 1 : 0);
    T magnitude{};
    if (Take(m_rest, "nan")) {
        magnitude = std::numeric_limits<T>::quiet_NaN();
    } else if (Take(m_rest, "inf")) {
        // "inf" and "infinity" are numbers, anything between them is not.
        if (!m_rest.empty() && Lower(m_rest.front()) == 'i' && !Take(m_rest, "inity")) {
            return Result::mismatch;
        }
        magnitude = std::numeric_limits<T>::infinity();
    } else {
        bool const hex = Take(m_rest, "0x");
        std::size_t const length = NumberLength(m_rest, hex);
        // Of "0x." the "0" is a number; of "0x" alone nothing is.
        if (!ToNumber(m_rest.substr(0, length), hex, magnitude) && !(hex && length > 0)) {
            return Result::mismatch;
        }
        m_rest.remove_prefix(length);
    }
    value = negative ? -magnitude : magnitude;
    return Result::read;
}

Scanner::Result Scanner::Read(float& value) {
    return ReadNumber(value);
}
Scanner::Result Scanner::Read(double& value) {
    if (!SkipBlanks()) {
        return Result::end;
    }
    char const* next = m_rest.data();
    if (TakePlainNumber(next, next + m_rest.size(), value)) {
        m_rest.remove_prefix(static_cast<std::size_t>(next - m_rest.data()));
        return Result::read;
    }
    return ReadNumber(value);
}

Scanner::Result Scanner::Read(std::string_view& word) {
    if (!SkipBlanks()) {
        return Result::end;
    }
    std::size_t length = 1; // it begins with no blank
    while (length < m_rest.size() && !IsWhiteSpace(m_rest[length])) {
        ++length;
    }
    word = m_rest.substr(0, length);
    m_rest.remove_prefix(word.size());
    return Result::read;
}

Scanner::Result Scanner::ReadWord(char* word, std::size_t size) {
    std::string_view const before = m_rest;
    std::string_view whole;
    Result const result = Read(whole);
    if (result == Result::read) {
        std::size_t const length = std::min(whole.size(), size - 1);
        std::memcpy(word, whole.data(), length);
        word[length] = '\0';
        m_rest = before.substr(static_cast<std::size_t>(whole.data() - before.data()) + length);
    }
    return result;
}

} // namespace kvarn
