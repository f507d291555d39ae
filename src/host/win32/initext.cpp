#include "initext.h"

#include <algorithm>

#include "../../text/utf16.h"

namespace kvarn {
namespace {

bool Same(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return Capital(x) == Capital(y); });
}

constexpr std::u16string_view blanksOfLines = u" \t\v\f\r\n";
constexpr std::u16string_view blanksOfNames = u" "; // around names that a program asks for

std::u16string_view Trimmed(std::u16string_view text, std::u16string_view blanks = blanksOfLines) {
    std::size_t const first = text.find_first_not_of(blanks);
    if (first == std::u16string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::u16string_view Unquoted(std::u16string_view value) {
    bool const quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

struct Line {
    std::size_t begin;
    std::size_t end; // past the line end
    std::u16string_view text;
};

Line LineAt(std::u16string_view ini, std::size_t begin) {
    std::size_t const feed = ini.find(u'\n', begin);
    std::size_t const end = feed == std::u16string_view::npos ? ini.size() : feed + 1;
    return {begin, end, Trimmed(ini.substr(begin, end - begin))};
}

bool IsSection(std::u16string_view line) {
    return line.starts_with(u'[');
}

std::u16string_view SectionName(std::u16string_view line) {
    return Trimmed(line.substr(1, line.find(u']') - 1));
}

std::u16string_view KeyOf(std::u16string_view line) {
    return Trimmed(line.substr(0, line.find(u'=')));
}

bool IsKey(std::u16string_view line) {
    return !line.empty() && !line.starts_with(u';'); // not a comment
}

// The first section of a name, from its header to the next.
struct Section {
    std::size_t begin;
    std::size_t end;
};

std::optional<Section> FindSection(std::u16string_view ini, std::u16string_view name) {
    std::optional<Section> section;
    name = Trimmed(name, blanksOfNames);
    for (std::size_t at = 0; at < ini.size();) {
        Line const line = LineAt(ini, at);
        at = line.end;
        if (IsSection(line.text) && section) {
            section->end = line.begin;
            break;
        }
        if (IsSection(line.text) && Same(SectionName(line.text), name)) {
            section = {line.begin, ini.size()};
        }
    }
    return section;
}

// The place of a key in the text, or the place where it would be added.
struct Place {
    bool section = false;
    bool key = false;
    Line line{};           // of the key
    std::size_t after = 0; // past that line, or past the one that the key would follow
};

Place Find(std::u16string_view ini, std::u16string_view section, std::u16string_view key) {
    Place place;
    key = Trimmed(key, blanksOfNames);
    std::optional<Section> const found = FindSection(ini, section);
    place.section = found.has_value();
    place.after = found ? LineAt(ini, found->begin).end : ini.size();
    for (std::size_t at = place.after; found && !place.key && at < found->end;) {
        Line const line = LineAt(ini, at);
        at = line.end;
        if (IsKey(line.text)) {
            place.key = Same(KeyOf(line.text), key);
            place.line = line;
            place.after = line.end;
        }
    }
    return place;
}

// The text up to a position. The last line gets a line end if it has none.
std::u16string WholeLines(std::u16string_view ini, std::size_t end) {
    std::u16string text(ini.substr(0, end));
    if (!text.empty() && !text.ends_with(u'\n')) {
        text += u"\r\n";
    }
    return text;
}

} // namespace

IniText::IniText(std::string_view bytes) : utf16(bytes.starts_with(utf16Mark)) {
    if (utf16) {
        text = FromBytes(bytes.substr(utf16Mark.size()));
        whole = bytes.size() % 2 == 0;
    } else if (bytes.starts_with("\xFE\xFF")) {
        whole = false;
    } else {
        text = ToUtf16(bytes);
    }
}

std::string IniText::Bytes() const {
    return utf16 ? std::string(utf16Mark) + ToBytes(text) : FromUtf16(text);
}

std::optional<std::u16string_view> IniValue(std::u16string_view ini, std::u16string_view section,
                                            std::u16string_view key) {
    Place const place = Find(ini, section, key);
    if (!place.key) {
        return std::nullopt;
    }
    std::size_t const equals = place.line.text.find(u'=');
    return equals == std::u16string_view::npos
               ? std::u16string_view()
               : Unquoted(Trimmed(place.line.text.substr(equals + 1)));
}

std::u16string WithIniValue(std::u16string_view ini, std::u16string_view section,
                            std::u16string_view key, std::optional<std::u16string_view> value) {
    Place const place = Find(ini, section, key);
    if (!place.key && !value) {
        return std::u16string(ini);
    }
    std::u16string text = WholeLines(ini, place.key ? place.line.begin : place.after);
    if (!place.section) {
        text.append(u"[").append(Trimmed(section, blanksOfNames)).append(u"]\r\n");
    }
    if (value) {
        // An existing key keeps its own spelling.
        text.append(place.key ? KeyOf(place.line.text) : Trimmed(key, blanksOfNames));
        text.append(u"=").append(*value).append(u"\r\n");
    }
    return text.append(ini.substr(place.after));
}

std::u16string WithoutIniSection(std::u16string_view ini, std::u16string_view section) {
    std::u16string text(ini);
    if (std::optional<Section> const found = FindSection(ini, section)) {
        text.erase(found->begin, found->end - found->begin);
    }
    return text;
}

} // namespace kvarn
