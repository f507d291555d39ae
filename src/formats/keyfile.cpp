#include "keyfile.h"

#include "../text/text.h"

namespace kvarn {

KeyLine::KeyLine(std::string_view line) {
    std::size_t const equals = line.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        kind = equals == 0 ? Kind::noKey : Kind::noEquals;
    } else if (equals > longestKey) {
        kind = Kind::keyTooLong;
    } else if (line.size() - equals - 1 > longestValue) {
        kind = Kind::valueTooLong;
    } else {
        kind = Kind::stored;
        key = line.substr(0, equals);
        value = line.substr(equals + 1);
    }
}

std::string ValueOf(LineReader& lines, std::string_view key) {
    for (std::string_view text; lines.ReadLine(text);) {
        KeyLine const line(text);
        if (line.kind == KeyLine::Kind::stored && SameText(line.key, key)) {
            return std::string(line.value);
        }
    }
    return {};
}

void AppendKeyLine(std::string& out, std::string_view key, std::string_view value) {
    if (!value.empty()) {
        AppendTextMode(out, key);
        out += '=';
        AppendTextMode(out, value);
        out += "\r\n";
    }
}

} // namespace kvarn
