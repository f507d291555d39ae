#include "keyfile.h"

#include <algorithm>
#include <vector>

#include "../text/text.h"

namespace kvarn {
namespace {

constexpr std::string_view lineEnd = "\r\n";

} // namespace

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
    SoughtKey const sought(key);
    for (std::string_view text; lines.ReadLine(text);) {
        if (text.size() > key.size() && sought.MayBe(text.data(), '=')) {
            KeyLine const line(text);
            if (line.kind == KeyLine::Kind::stored && SameText(line.key, key)) {
                return std::string(line.value);
            }
        }
    }
    return {};
}

void AppendKeyLine(std::string& out, std::string_view key, std::string_view value) {
    if (!value.empty()) {
        AppendTextMode(out, key);
        out += '=';
        AppendTextMode(out, value);
        out += lineEnd;
    }
}

bool AllFit(std::span<KeyChange const> changes) {
    return std::all_of(changes.begin(), changes.end(),
                       [](KeyChange const& change) { return change.Fits(); });
}

std::string WithKeys(LineReader& lines, std::span<KeyChange const> changes) {
    std::vector<KeyChange> pending;
    auto const changeOf = [&](std::string_view key) {
        return std::find_if(pending.begin(), pending.end(),
                            [&](KeyChange const& change) { return SameText(change.key, key); });
    };
    for (KeyChange const& change : changes) {
        auto const earlier = changeOf(change.key);
        if (earlier != pending.end()) {
            earlier->value = change.value;
        } else {
            pending.push_back(change);
        }
    }
    std::string out;
    for (std::string_view text; lines.ReadLine(text);) {
        KeyLine const line(text);
        if (!line.MakesRecord()) {
            continue;
        }
        auto const change = changeOf(line.key);
        if (change != pending.end()) {
            AppendKeyLine(out, line.key, change->value);
            pending.erase(change);
        } else if (!line.value.empty()) { // as it stands
            out.append(text).append(lineEnd);
        }
    }
    for (KeyChange const& change : pending) {
        AppendKeyLine(out, change.key, change.value);
    }
    return out;
}

} // namespace kvarn
