#include "regstore.h"

#include <algorithm>
#include <array>
#include <optional>

#include "../../text/codepage.h"
#include "../../text/utf16.h"
#include "registrytypes.h"

namespace kvarn {
namespace {

constexpr std::u16string_view header = u"Windows Registry Editor Version 5.00";
constexpr std::u16string_view lineEnd = u"\r\n";
constexpr std::u16string_view blanks = u" \t";
constexpr std::size_t lineWidth = 80; // the registry editor breaks longer lines of bytes

constexpr std::array<std::u16string_view, 5> roots = {u"HKEY_CLASSES_ROOT", u"HKEY_CURRENT_USER",
                                                      u"HKEY_LOCAL_MACHINE", u"HKEY_USERS",
                                                      u"HKEY_CURRENT_CONFIG"};

std::u16string_view Trimmed16(std::u16string_view text) {
    std::size_t const first = text.find_first_not_of(blanks);
    if (first == std::u16string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Letters beyond U+FFFF become two units (RFC 2781).
void Append(std::u16string& text, char32_t codePoint) {
    if (codePoint < 0x10000) {
        text += static_cast<char16_t>(codePoint);
    } else {
        text += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10U));
        text += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FFU));
    }
}

std::u16string Decoded(std::string_view bytes) {
    if (bytes.starts_with(utf16Mark)) {
        return FromBytes(bytes.substr(utf16Mark.size()));
    }
    std::string_view utf8 = bytes.substr(bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    std::u16string text;
    while (!utf8.empty()) {
        std::optional<char32_t> const codePoint = TakeCodePoint(utf8);
        if (!codePoint) {
            return ToUtf16(bytes);
        }
        Append(text, *codePoint);
    }
    return text;
}

// Takes a text in quotes off the front of a line.
std::optional<std::u16string> TakeQuoted(std::u16string_view& line) {
    std::u16string text;
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (line[i] == u'"') {
            line.remove_prefix(i + 1);
            return text;
        }
        if (line[i] == u'\\' && (++i == line.size() || (line[i] != u'\\' && line[i] != u'"'))) {
            return std::nullopt;
        }
        text += line[i];
    }
    return std::nullopt;
}

std::optional<unsigned> TakeHex(std::u16string_view& text, std::size_t most) {
    constexpr std::u16string_view digits = u"0123456789ABCDEF";
    unsigned value = 0;
    std::size_t count = 0;
    for (; count < text.size() && count < most; ++count) {
        std::size_t const digit = digits.find(Capital(text[count]));
        if (digit == std::u16string_view::npos) {
            break;
        }
        value = value * 16 + static_cast<unsigned>(digit);
    }
    text.remove_prefix(count);
    return count > 0 ? std::optional(value) : std::nullopt;
}

// Bytes in pairs of digits, separated by commas.
std::optional<std::string> HexBytes(std::u16string_view text) {
    std::string bytes;
    while (!text.empty()) {
        std::optional<unsigned> const byte = TakeHex(text, 2);
        if (!byte || (!text.empty() && text.front() != u',')) {
            return std::nullopt;
        }
        bytes += static_cast<char>(*byte);
        text.remove_prefix(text.empty() ? 0 : 1);
    }
    return bytes;
}

std::string DwordBytes(unsigned value) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>(value >> shift & 0xFFU);
    }
    return bytes;
}

// Reads the data after the equals sign; false when they are not understood.
bool ReadData(std::u16string_view text, RegValue& value) {
    constexpr std::u16string_view dword = u"dword:";
    constexpr std::u16string_view hex = u"hex";
    if (text.starts_with(u'"')) {
        std::optional<std::u16string> const quoted = TakeQuoted(text);
        value.type = REG_SZ;
        value.data = quoted ? ToBytes(*quoted + u'\0') : std::string();
        return quoted && text.empty();
    }
    if (text.starts_with(dword)) {
        constexpr std::size_t most = 8;
        text.remove_prefix(dword.size());
        std::optional<unsigned> const number = TakeHex(text, most);
        value.type = REG_DWORD;
        value.data = DwordBytes(number.value_or(0));
        return number && text.empty();
    }
    if (!text.starts_with(hex)) {
        return false;
    }
    text.remove_prefix(hex.size());
    value.type = REG_BINARY;
    if (text.starts_with(u'(')) {
        constexpr std::size_t most = 8;
        text.remove_prefix(1);
        std::optional<unsigned> const type = TakeHex(text, most);
        if (!type || !text.starts_with(u')')) {
            return false;
        }
        value.type = *type;
        text.remove_prefix(1);
    }
    if (!text.starts_with(u':')) {
        return false;
    }
    std::optional<std::string> const bytes = HexBytes(text.substr(1));
    value.data = bytes.value_or("");
    return bytes.has_value();
}

std::u16string Quoted(std::u16string_view text) {
    std::u16string quoted = u"\"";
    for (char16_t const c : text) {
        quoted += c == u'"' || c == u'\\' ? u"\\" : u"";
        quoted += c;
    }
    return quoted + u'"';
}

// Whether a value can be written as a text in quotes: on one line, ended by its only zero.
bool IsPlainText(RegValue const& value) {
    std::u16string const text = FromBytes(value.data);
    auto const control = std::find_if(text.begin(), text.end(), [](char16_t c) { return c < 32; });
    return value.type == REG_SZ && value.data.size() % 2 == 0 && !text.empty() &&
           control == text.end() - 1 && *control == u'\0';
}

std::u16string HexNumber(unsigned value, int width) {
    constexpr std::u16string_view digits = u"0123456789abcdef";
    std::u16string text;
    for (; width > 0 || value > 0; --width, value /= 16) {
        text.insert(text.begin(), digits[value % 16]);
    }
    return text;
}

void AppendHex(std::u16string& line, std::string_view bytes) {
    constexpr std::u16string_view indent = u"  ";
    constexpr std::size_t pair = 4; // with the comma and a backslash
    std::size_t width = line.size();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        line += HexNumber(static_cast<unsigned char>(bytes[i]), 2);
        line += i + 1 < bytes.size() ? u"," : u"";
        width += 3;
        if (width + pair > lineWidth && i + 1 < bytes.size()) {
            line += u"\\";
            line += lineEnd;
            line += indent;
            width = indent.size();
        }
    }
}

std::u16string ValueLine(RegValue const& value) {
    std::u16string line = value.name.empty() ? u"@" : Quoted(value.name);
    line += u'=';
    if (IsPlainText(value)) {
        std::u16string text = FromBytes(value.data);
        text.pop_back();
        return line + Quoted(text);
    }
    if (value.type == REG_DWORD && value.data.size() == sizeof(DWORD)) {
        unsigned number = 0;
        for (std::size_t i = sizeof(DWORD); i-- > 0;) {
            number = number << 8U | static_cast<unsigned char>(value.data[i]);
        }
        return line + u"dword:" + HexNumber(number, 8);
    }
    line += value.type == REG_BINARY ? u"hex:" : u"hex(" + HexNumber(value.type, 1) + u"):";
    AppendHex(line, value.data);
    return line;
}

} // namespace

RegValue const* RegKey::Find(std::u16string_view name) const {
    auto const number = m_numbers.find(Capitals(name));
    return number != m_numbers.end() ? &m_values.at(number->second) : nullptr;
}

RegValue& RegKey::Make(std::u16string_view name) {
    std::size_t const next = m_values.empty() ? 0 : m_values.rbegin()->first + 1;
    auto const [number, isNew] = m_numbers.try_emplace(Capitals(name), next);
    RegValue& value = m_values[number->second];
    if (isNew) {
        value.name = name;
    }
    return value;
}

void RegKey::Delete(std::u16string_view name) {
    auto const number = m_numbers.find(Capitals(name));
    if (number != m_numbers.end()) {
        m_values.erase(number->second);
        m_numbers.erase(number);
    }
}

RegStore::RegStore(std::string_view bytes) {
    Read(Decoded(bytes));
    m_current = nullptr;
}

void RegStore::Read(std::u16string_view text) {
    bool headerSeen = false;
    std::size_t number = 0;
    std::u16string joined; // the lines of a value that goes on after a backslash
    while (!text.empty()) {
        ++number;
        std::size_t const feed = text.find(u'\n');
        std::u16string_view line = text.substr(0, feed);
        text.remove_prefix(feed == std::u16string_view::npos ? text.size() : feed + 1);
        line.remove_suffix(line.ends_with(u'\r') ? 1 : 0);
        line = Trimmed16(line);
        if (line.ends_with(u",\\") && !line.starts_with(u';') && !text.empty()) {
            joined += line.substr(0, line.size() - 1);
            continue;
        }
        joined += line;
        line = joined;
        if (line.empty()) {
        } else if (line.front() == u';') {
            m_comment.append(line).append(lineEnd);
        } else if (line == header && !headerSeen) {
            headerSeen = true;
        } else if (!(line.front() == u'[' ? ReadKeyLine(line) : ReadValueLine(line)) ||
                   !headerSeen) {
            m_badLines.push_back(number);
        }
        joined.clear();
    }
}

bool RegStore::ReadKeyLine(std::u16string_view line) {
    m_current = nullptr;
    if (!line.ends_with(u']')) {
        return false;
    }
    std::u16string_view path = line.substr(1, line.size() - 2);
    bool const deleted = path.starts_with(u'-');
    path.remove_prefix(deleted ? 1 : 0);
    constexpr std::size_t longest = 2048;
    std::u16string const root = Capitals(path.substr(0, path.find(u'\\')));
    bool const emptyPart = path.ends_with(u'\\') || path.find(u"\\\\") != std::u16string_view::npos;
    if (emptyPart || path.size() > longest ||
        std::find(roots.begin(), roots.end(), root) == roots.end()) {
        return false;
    }
    if (deleted) {
        Delete(path);
        return true;
    }
    m_current = &Make(path);
    m_current->comment += m_comment;
    m_comment.clear();
    return true;
}

bool RegStore::ReadValueLine(std::u16string_view line) {
    RegValue value;
    if (line.front() == u'"') {
        std::optional<std::u16string> const name = TakeQuoted(line);
        if (!name || name->empty()) {
            return false;
        }
        value.name = *name;
    } else if (line.front() == u'@') {
        line.remove_prefix(1);
    } else {
        return false;
    }
    line = Trimmed16(line);
    if (m_current == nullptr || !line.starts_with(u'=')) {
        return false;
    }
    line = Trimmed16(line.substr(1));
    if (line == u"-") {
        if (RegValue const* const there = m_current->Find(value.name)) {
            m_comment.insert(0, there->comment);
            m_current->Delete(value.name);
        }
        return true;
    }
    if (!ReadData(line, value)) {
        return false;
    }
    RegValue& there = m_current->Make(value.name);
    value.comment = there.comment + m_comment;
    m_comment.clear();
    there = std::move(value);
    return true;
}

std::string RegStore::Bytes() const {
    std::u16string text(header);
    text += lineEnd;
    for (auto const& [capitals, key] : m_keys) {
        text.append(lineEnd).append(key.comment).append(u"[").append(key.path).append(u"]\r\n");
        for (auto const& [number, value] : key.Values()) {
            text.append(value.comment).append(ValueLine(value)).append(lineEnd);
        }
    }
    text.append(m_comment.empty() ? u"" : lineEnd).append(m_comment);
    return std::string(utf16Mark) + ToBytes(text);
}

RegKey const* RegStore::Find(std::u16string_view path) const {
    auto const found = m_keys.find(Capitals(path));
    return found != m_keys.end() ? &found->second : nullptr;
}

RegKey& RegStore::Make(std::u16string_view path) {
    for (std::size_t end = path.find(u'\\');; end = path.find(u'\\', end + 1)) {
        RegKey& key = m_keys[Capitals(path.substr(0, end))];
        if (key.path.empty()) {
            key.path = path.substr(0, end);
        }
        if (end == std::u16string_view::npos) {
            return key;
        }
    }
}

void RegStore::Delete(std::u16string_view path) {
    std::u16string const capitals = Capitals(path);
    std::erase_if(m_keys, [&](auto const& key) {
        return key.first == capitals || key.first.starts_with(capitals + u'\\');
    });
}

std::size_t RegStore::CountKeysBelow(std::u16string_view path) const {
    std::u16string const below = Capitals(path) + u'\\';
    return static_cast<std::size_t>(
        std::count_if(m_keys.begin(), m_keys.end(), [&](auto const& key) {
            return key.first.starts_with(below) &&
                   key.first.find(u'\\', below.size()) == std::u16string::npos;
        }));
}

} // namespace kvarn
