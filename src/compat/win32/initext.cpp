#include "initext.h"

#include "../codepage.h"

namespace kvarn {
namespace {

bool Same(std::string_view a, std::string_view b) {
    return CompareNoCase1252(a, b) == 0;
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    std::size_t const first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view Unquoted(std::string_view value) {
    bool const quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

struct Line {
    std::size_t begin;
    std::size_t end; // past the line end
    std::string_view text;
};

Line LineAt(std::string_view ini, std::size_t begin) {
    std::size_t const feed = ini.find('\n', begin);
    std::size_t const end = feed == std::string_view::npos ? ini.size() : feed + 1;
    return {begin, end, Trimmed(ini.substr(begin, end - begin))};
}

bool IsSection(std::string_view line) {
    return line.starts_with('[');
}

std::string_view SectionName(std::string_view line) {
    return Trimmed(line.substr(1, line.find(']') - 1));
}

bool IsComment(std::string_view line) {
    return line.starts_with(';');
}

std::string_view KeyOf(std::string_view line) {
    return Trimmed(line.substr(0, line.find('=')));
}

// Where a key stands, or where it would be added.
struct Place {
    bool section = false;
    bool key = false;
    Line line{}; // of the key
    std::size_t insert = 0;
};

Place Find(std::string_view ini, std::string_view section, std::string_view key) {
    Place place;
    section = Trimmed(section);
    key = Trimmed(key);
    for (std::size_t at = 0; at < ini.size();) {
        Line const line = LineAt(ini, at);
        at = line.end;
        if (IsSection(line.text)) {
            if (place.section) {
                break; // only the first section of the name counts
            }
            place.section = Same(SectionName(line.text), section);
        } else if (place.section && !line.text.empty() && !IsComment(line.text) &&
                   Same(KeyOf(line.text), key)) {
            place.key = true;
            place.line = line;
            break;
        }
        if (place.section && !line.text.empty()) {
            place.insert = line.end;
        }
    }
    if (!place.section) {
        place.insert = ini.size();
    }
    return place;
}

// The text up to a position, ended by a line end.
std::string WholeLines(std::string_view ini, std::size_t end) {
    std::string text(ini.substr(0, end));
    if (!text.empty() && !text.ends_with('\n')) {
        text += "\r\n";
    }
    return text;
}

} // namespace

std::optional<std::string_view> IniValue(std::string_view ini, std::string_view section,
                                         std::string_view key) {
    Place const place = Find(ini, section, key);
    if (!place.key) {
        return std::nullopt;
    }
    std::size_t const equals = place.line.text.find('=');
    return equals == std::string_view::npos ? std::string_view()
                                            : Unquoted(Trimmed(place.line.text.substr(equals + 1)));
}

std::string WithIniValue(std::string_view ini, std::string_view section, std::string_view key,
                         std::optional<std::string_view> value) {
    Place const place = Find(ini, section, key);
    if (!place.key && !value) {
        return std::string(ini);
    }
    std::string text = WholeLines(ini, place.key ? place.line.begin : place.insert);
    if (!place.section) {
        text.append("[").append(Trimmed(section)).append("]\r\n");
    }
    if (value) {
        // An existing key keeps its own spelling.
        text.append(place.key ? KeyOf(place.line.text) : Trimmed(key)).append("=").append(*value);
        text += "\r\n";
    }
    return text.append(ini.substr(place.key ? place.line.end : place.insert));
}

} // namespace kvarn
