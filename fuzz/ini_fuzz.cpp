// The text of an INI file: any bytes come back, and are searched and changed without harm; a value
// that was written reads back, and every other line stays where it was.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "check.h"
#include "host/win32/initext.h"
#include "input.h"
#include "text/utf16.h"

using kvarn::IniText;
using kvarn::IniValue;
using kvarn::ToUtf16;
using kvarn::WithIniValue;
using kvarn::WithoutIniSection;

namespace {

std::u16string Trimmed(std::u16string_view text) {
    constexpr std::u16string_view blanks = u" \t\v\f\r\n";
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

std::u16string KeyOf(std::u16string const& line) {
    return Trimmed(line.substr(0, line.find(u'=')));
}

// The lines of a text with what is asked for in them, by their numbers.
struct Model {
    Model(std::u16string const& ini, std::u16string const& section, std::u16string const& key)
        : lines(LinesOf(ini)) {
        header = after = end = lines.size();
        for (std::size_t i = 0; i < lines.size(); ++i) {
            std::u16string const line = Trimmed(lines[i]);
            if (line.starts_with(u'[')) {
                if (header < i) {
                    end = i;
                    break;
                }
                if (Same(Trimmed(line.substr(1, line.find(u']') - 1)), section)) {
                    header = i;
                    after = i + 1;
                }
            } else if (header < i && !line.empty() && !line.starts_with(u';')) {
                after = i + 1;
                if (!keyLine && Same(KeyOf(line), key)) {
                    keyLine = i;
                }
            }
        }
    }

    std::optional<std::u16string> Value() const {
        if (!keyLine) {
            return std::nullopt;
        }
        std::u16string const& line = lines[*keyLine];
        return Unquoted(Trimmed(line.substr(std::min(line.find(u'='), line.size() - 1) + 1)));
    }
    Lines With(std::u16string const& section, std::u16string const& key,
               std::u16string const& value) const {
        Lines with = lines;
        if (keyLine) {
            with[*keyLine] = KeyOf(Trimmed(lines[*keyLine])) + u'=' + value;
            return with;
        }
        auto const at = with.insert(Iterator(with, after), key + u'=' + value);
        if (header == lines.size()) {
            with.insert(at, u'[' + section + u']');
        }
        return with;
    }
    Lines Without(std::size_t from, std::size_t to) const {
        Lines without = lines;
        without.erase(Iterator(without, from), Iterator(without, to));
        return without;
    }
    Lines WithoutKey() const { return keyLine ? Without(*keyLine, *keyLine + 1) : lines; }

    Lines lines;
    std::size_t header; // as many as there are lines when there is none, like the next two
    std::size_t after;  // the last key
    std::size_t end;    // the next section
    std::optional<std::size_t> keyLine;

  private:
    static Lines::iterator Iterator(Lines& lines, std::size_t number) {
        return lines.begin() + static_cast<std::ptrdiff_t>(number);
    }
};

void CheckChanges(std::u16string const& ini, std::u16string const& section,
                  std::u16string const& key, std::u16string const& value) {
    Model const model(ini, section, key);
    Check(IniValue(ini, section, key) == model.Value(), "the value of the model");
    std::u16string const written = WithIniValue(ini, u' ' + section, key + u' ', value);
    Check(LinesOf(written) == model.With(section, key, value), "the lines of the model");
    Check(IniValue(written, section, key) == value, "a value that was written reads back");
    Check(WithIniValue(written, section, key, value) == written,
          "writing it again changes nothing");
    std::u16string const removed = WithIniValue(ini, section, key, std::nullopt);
    Check(LinesOf(removed) == model.WithoutKey(), "without the key");
    Check(model.keyLine || removed == ini, "what is not there is not removed");
    Check(LinesOf(WithoutIniSection(ini, section)) == model.Without(model.header, model.end),
          "without the section");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr std::size_t longest = 40;
    Input provider(data, size);
    std::u16string const section = ToUtf16(provider.Text(longest));
    std::u16string const key = ToUtf16(provider.Text(longest));
    std::u16string const value = ToUtf16(provider.Text(longest));
    std::string const bytes = provider.Rest();
    IniText const file(bytes);
    Check(!file.whole || file.Bytes() == bytes, "the bytes come back");
    std::u16string const& ini = file.text;

    static_cast<void>(IniValue(ini, section, key));
    static_cast<void>(WithIniValue(ini, section, key, value));
    static_cast<void>(WithoutIniSection(ini, section));
    std::u16string const saneSection = Sane(section, u"\n]");
    std::u16string const saneKey = Sane(key, u"\n=;[");
    if (!saneKey.empty()) {
        CheckChanges(ini, saneSection, saneKey, Sane(value, u"\n\"'"));
    }
    return 0;
}
