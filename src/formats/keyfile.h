// Key files: lines of key=value, in code page 1252. Nothing is trimmed, and there are no comments.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "../text/codepage.h"
#include "../text/lines.h"

namespace kvarn {

// In characters. A value can be written that is one longer than those that are read: the next
// reading drops it.
inline constexpr std::size_t longestKey = 39;
inline constexpr std::size_t longestValue = 258;
inline constexpr std::size_t longestWrittenValue = 259;

// A key with its built-in default.
struct KeyDefault {
    char const* nyckel;
    char const* varde;
};

struct KeyLine {
    enum class Kind { noEquals, noKey, keyTooLong, valueTooLong, stored };

    explicit KeyLine(std::string_view line);

    // A line that is too long makes a record all the same: an empty one.
    bool MakesRecord() const { return kind != Kind::noEquals && kind != Kind::noKey; }

    Kind kind;
    std::string_view key; // left of the first "="; both empty for a line that is not stored
    std::string_view value;
};

// Tells most keys from one that is sought by their length and last letter: many begin alike.
class SoughtKey {
  public:
    explicit SoughtKey(std::string_view key)
        : m_length(key.size()), m_last(key.empty() ? '\0' : Lower1252(key.back())) {}

    // Of a text with `end` after the key that has at least the letters of this one.
    bool MayBe(char const* text, char end) const {
        return text[m_length] == end && (m_length == 0 || Lower1252(text[m_length - 1]) == m_last);
    }

  private:
    std::size_t m_length;
    char m_last;
};

// The value of the first line with the key, in any case; empty without one. Makes no records.
std::string ValueOf(LineReader& lines, std::string_view key);

// Appends the line of a record, as it is in the file; a record without a value has none.
void AppendKeyLine(std::string& out, std::string_view key, std::string_view value);

// A key and the value that it is to have.
struct KeyChange {
    std::string_view key;
    std::string_view value;

    bool Fits() const { return key.size() <= longestKey && value.size() <= longestWrittenValue; }
};

bool AllFit(std::span<KeyChange const> changes);

// The text with the new values, as a list of its records is written that has taken one after the
// other: the first record of a key has its value, and new keys come last. Makes no list.
std::string WithKeys(LineReader& lines, std::span<KeyChange const> changes);

} // namespace kvarn
