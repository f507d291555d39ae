// Key files: lines of key=value, in code page 1252. Nothing is trimmed, and there are no comments.
#pragma once

#include <string>
#include <string_view>

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

// The value of the first line with the key, in any case; empty without one. Makes no records.
std::string ValueOf(LineReader& lines, std::string_view key);

// Appends the line of a record, as it is in the file; a record without a value has none.
void AppendKeyLine(std::string& out, std::string_view key, std::string_view value);

} // namespace kvarn
