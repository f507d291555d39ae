// Letters beyond ASCII, for files of other programs that are written in ASCII alone.
#pragma once

#include <string>
#include <string_view>

namespace kvarnio {

// What is no UTF-8 becomes U+FFFD.
std::u16string ToUtf16(std::string_view utf8);

// Halves of pairs without the other become U+FFFD.
std::string ToUtf8(std::u16string_view text);

// A text of another program's file: as it is where that is UTF-8, otherwise of code page 1252.
std::string AsUtf8(std::string_view text);

// The four digits by which escapes name a letter: "00E5".
std::string HexOf(char16_t letter);

// On one line, for messages.
std::string OnOneLine(std::string_view utf8);

} // namespace kvarnio
