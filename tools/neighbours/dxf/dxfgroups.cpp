#include "dxfgroups.h"

#include <charconv>
#include <cmath>

#include "../road/alignment.h"
#include "../road/letters.h"
#include "../road/station.h"

namespace kvarnio::dxf {
namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    std::size_t const first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

template <class T> bool ReadWhole(std::string_view text, T& number, int base = 10) {
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    char const* const end = text.data() + text.size();
    auto const parsed = std::from_chars(text.data(), end, number, base);
    return parsed.ec == std::errc() && parsed.ptr == end;
}

[[noreturn]] void ThrowUnfit(std::size_t line, char const* wanted, std::string_view got) {
    throw NotTaken(LineText(line) + ": wanted " + wanted + ", got \"" + OnOneLine(AsUtf8(got)) +
                   '"');
}

} // namespace

std::string LineText(std::size_t line) {
    return "line " + std::to_string(line);
}

double NumberIn(Group const& group) {
    auto const number = ReadNumber(group.value);
    if (!number) {
        ThrowUnfit(group.line, "a number", group.value);
    }
    return *number;
}

double CoordinateIn(Group const& group) {
    double const number = NumberIn(group);
    if (std::fabs(number) > farthest) {
        ThrowUnfit(group.line, "a coordinate or a length on the earth", group.value);
    }
    return number;
}

std::int64_t IntegerIn(Group const& group) {
    std::int64_t number = 0;
    if (!ReadWhole(group.value, number)) {
        ThrowUnfit(group.line, "a whole number", group.value);
    }
    return number;
}

std::uint64_t HandleIn(Group const& group) {
    constexpr int hexadecimal = 16;
    std::uint64_t handle = 0;
    return ReadWhole(group.value, handle, hexadecimal) ? handle : 0;
}

std::string TextIn(Group const& group) {
    constexpr std::string_view escape = "\\U+";
    constexpr std::size_t digits = 4;
    constexpr int hexadecimal = 16;
    std::u16string text;
    std::string const value = AsUtf8(group.value);
    std::string_view rest = value;
    while (!rest.empty()) {
        std::size_t const plain = std::min(rest.find(escape), rest.size());
        text += ToUtf16(rest.substr(0, plain));
        rest.remove_prefix(plain);
        std::string_view const code = rest.substr(std::min(escape.size(), rest.size()), digits);
        std::uint16_t letter = 0;
        if (code.size() == digits && code.front() != '+' && ReadWhole(code, letter, hexadecimal)) {
            text += static_cast<char16_t>(letter);
            rest.remove_prefix(escape.size() + digits);
        } else if (!rest.empty()) {
            text += u'\\';
            rest.remove_prefix(1);
        }
    }
    return ToUtf8(text);
}

Groups::Groups(std::string_view text) : m_rest(text) {
    constexpr std::size_t beginning = 22; // where a binary one says that it is
    if (text.substr(0, beginning).find("Binary DXF") != std::string_view::npos) {
        throw NotTaken("the drawing is a binary DXF: save it as a text");
    }
    RequirePlainText(text);
    constexpr std::string_view utf8Mark = "\xef\xbb\xbf";
    m_rest.remove_prefix(text.starts_with(utf8Mark) ? utf8Mark.size() : 0);
}

std::string_view Groups::TakeLine() {
    if (m_rest.empty()) {
        throw NotTaken(m_line == 0
                           ? "the drawing is empty"
                           : LineText(m_line) + ": the drawing ends in the middle, before its EOF");
    }
    ++m_line;
    std::size_t const end = std::min(m_rest.find('\n'), m_rest.size());
    std::string_view const line = m_rest.substr(0, end);
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    return Trimmed(line);
}

Group Groups::Next() {
    constexpr int comment = 999;
    Group group;
    do {
        std::string_view const code = TakeLine();
        if (!ReadWhole(code, group.code)) {
            ThrowUnfit(m_line,
                       m_line == 1 ? "a DXF drawing, which begins with a group code"
                                   : "a group code",
                       code);
        }
        group.value = TakeLine();
        group.line = m_line;
    } while (group.code == comment);
    return group;
}

} // namespace kvarnio::dxf
