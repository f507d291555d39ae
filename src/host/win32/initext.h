// Finds a value in the text of an INI file, changes a value, and removes a section.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvarn {

// A file's bytes as a text: UTF-16 when they begin with its mark, else code page 1252. Characters
// that do not change are written as the bytes that were read.
struct IniText {
    explicit IniText(std::string_view bytes);
    std::string Bytes() const;

    std::u16string text;
    bool utf16 = false;
    // False when the text lacks a part of the file, which must not be written then: half a
    // character at its end, or anything after the mark of the other byte order.
    bool whole = true;
};

// Blanks around the names that are asked for do not count. In the lines of the text, tabs, vertical
// tabs and form feeds are blanks too. So Windows' own functions do.

// The first value of the key in the first section of the name, without the blanks around it and
// without one pair of quotes; nothing when the section or the key is missing.
std::optional<std::u16string_view> IniValue(std::u16string_view ini, std::u16string_view section,
                                            std::u16string_view key);

// The text with the key's value replaced, added or (without a value) removed. A new key follows the
// last key of its section, before the comments and blank lines at the section's end. A new section
// follows the end of the text. Every other line stays as it is.
std::u16string WithIniValue(std::u16string_view ini, std::u16string_view section,
                            std::u16string_view key, std::optional<std::u16string_view> value);

// The text without the first section of the name: its header and the lines up to the next one.
std::u16string WithoutIniSection(std::u16string_view ini, std::u16string_view section);

} // namespace kvarn
