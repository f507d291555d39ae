// Letters that a program will not see as they were meant: those of the DOS code page and of UTF-8
// in files of code page 1252.
#pragma once

#include <string>
#include <string_view>

namespace kvarn {

// The text as programs see it where the library converts DOS letters.
std::string Converted(std::string_view text);

// Whether the text is UTF-8 with letters of code page 1252.
bool IsUtf8(std::string_view text);

// Whether the text holds letters of the DOS code page 437, judged by the letters beside them: each
// is a quotation mark or another sign in code page 1252.
bool HoldsDosLetters(std::string_view text);

// Whether the conversion changes what was no DOS letter: a quotation mark, for one.
bool ConversionSpoils(std::string_view text);

} // namespace kvarn
