// The text of an INI file: any bytes come back, and are searched and changed without harm; a value
// that was written reads back, and every other line stays where it was.
#include <algorithm>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>
#include <optional>
#include <string>
#include <vector>

#include "check.h"
#include "compat/win32/initext.h"
#include "compat/win32/utf16.h"

using kvarn::IniText;
using kvarn::IniValue;
using kvarn::ToUtf16;
using kvarn::WithIniValue;

namespace {

std::u16string Trimmed(std::u16string_view text) {
    constexpr std::u16string_view blanks = u" \t\r\n";
    std::size_t const first = std::min(text.find_first_not_of(blanks), text.size());
    text.remove_prefix(first);
    return std::u16string(text.substr(0, text.find_last_not_of(blanks) + 1));
}

// A text that a program may use as a name or a value: on one line, without blanks at its ends, and
// without the characters that would make it something else.
std::u16string Sane(std::u16string text, std::u16string_view excluded) {
    std::erase_if(text, [&](char16_t c) { return excluded.find(c) != std::u16string_view::npos; });
    return Trimmed(text);
}

bool Same(std::u16string const& a, std::u16string const& b) {
    return kvarn::Capitals(a) == kvarn::Capitals(b);
}

std::u16string Unquoted(std::u16string const& text) {
    bool const quoted = text.size() > 1 && (text[0] == u'"' || text[0] == u'\'') &&
                        text.find_last_of(text[0]) == text.size() - 1;
    return quoted ? text.substr(1, text.size() - 2) : text;
}

using Lines = std::vector<std::u16string>;

// Without their ends: a last line may get one when another line follows.
Lines LinesOf(std::u16string_view text) {
    Lines lines;
    while (!text.empty()) {
        std::size_t const end = std::min(text.find(u'\n'), text.size() - 1) + 1;
        std::u16string_view const line = text.substr(0, end);
        lines.emplace_back(line.substr(0, line.find_last_not_of(u"\r\n") + 1));
        text.remove_prefix(end);
    }
    return lines;
}

// The value, looked for line by line.
std::optional<std::u16string> ModelValue(std::u16string const& ini, std::u16string const& section,
                                         std::u16string const& key) {
    bool inside = false;
    for (std::u16string const& text : LinesOf(ini)) {
        std::u16string const line = Trimmed(text);
        if (line.starts_with(u'[')) {
            if (inside) {
                break;
            }
            inside = Same(Trimmed(line.substr(1, line.find(u']') - 1)), section);
        } else if (inside && !line.starts_with(u';')) {
            std::size_t const equals = std::min(line.find(u'='), line.size());
            if (Same(Trimmed(line.substr(0, equals)), key)) {
                return Unquoted(Trimmed(line.substr(std::min(equals + 1, line.size()))));
            }
        }
    }
    return std::nullopt;
}

// How many lines stand in either text between those that both begin and end with.
struct Change {
    std::size_t removed;
    std::size_t added;
};

Change Compare(Lines const& before, Lines const& after) {
    auto const [from, to] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    auto const [fromEnd, toEnd] = std::mismatch(before.rbegin(), std::make_reverse_iterator(from),
                                                after.rbegin(), std::make_reverse_iterator(to));
    return {static_cast<std::size_t>(fromEnd.base() - from),
            static_cast<std::size_t>(toEnd.base() - to)};
}

void CheckWriting(std::u16string const& ini, std::u16string const& section,
                  std::u16string const& key, std::u16string const& value) {
    auto const found = IniValue(ini, section, key);
    bool const present = found.has_value();
    Check(found == ModelValue(ini, section, key), "the value of the model");
    std::u16string const written = WithIniValue(ini, section, key, value);
    Check(IniValue(written, section, key) == value, "a value that was written reads back");
    Check(WithIniValue(written, section, key, value) == written,
          "writing it again changes nothing");
    Change const change = Compare(LinesOf(ini), LinesOf(written));
    if (present) {
        Check(change.removed == change.added && change.added <= 1, "one line changes");
    } else {
        constexpr std::size_t sectionAndKey = 2;
        Check(change.removed == 0 && change.added >= 1 && change.added <= sectionAndKey,
              "the key is added, after its section if need be");
    }
}

void CheckRemoval(std::u16string const& ini, std::u16string const& section,
                  std::u16string const& key) {
    std::u16string const removed = WithIniValue(ini, section, key, std::nullopt);
    if (!IniValue(ini, section, key)) {
        Check(removed == ini, "removing what is not there changes nothing");
        return;
    }
    Change const change = Compare(LinesOf(ini), LinesOf(removed));
    Check(change.removed == 1 && change.added == 0, "removing takes one line");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr std::size_t longest = 40;
    FuzzedDataProvider provider(data, size);
    std::u16string const section = ToUtf16(provider.ConsumeRandomLengthString(longest));
    std::u16string const key = ToUtf16(provider.ConsumeRandomLengthString(longest));
    std::u16string const value = ToUtf16(provider.ConsumeRandomLengthString(longest));
    std::string const bytes = provider.ConsumeRemainingBytesAsString();
    IniText const file(bytes);
    Check(!file.whole || file.Bytes() == bytes, "the bytes come back");
    std::u16string const& ini = file.text;

    static_cast<void>(IniValue(ini, section, key));
    static_cast<void>(WithIniValue(ini, section, key, value));
    std::u16string const saneSection = Sane(section, u"\n]");
    std::u16string const saneKey = Sane(key, u"\n=;[");
    if (!saneKey.empty()) {
        CheckWriting(ini, saneSection, saneKey, Sane(value, u"\n\"'"));
        CheckRemoval(ini, saneSection, saneKey);
    }
    return 0;
}
