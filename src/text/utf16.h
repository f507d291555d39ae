// UTF-16, as Windows keeps the registry's texts and some files.
#pragma once

#include <string>
#include <string_view>

namespace kvarn {

// The first two bytes of files in UTF-16 with the lower byte first.
inline constexpr std::string_view utf16Mark = "\xFF\xFE";

// Between code page 1252 and UTF-16; letters that the code page lacks become question marks.
std::u16string ToUtf16(std::string_view text);
std::string FromUtf16(std::u16string_view text);

// UTF-16 as the bytes that are stored, and back; an odd last byte is dropped.
std::string ToBytes(std::u16string_view text);
std::u16string FromBytes(std::string_view bytes);

// Names are compared in these capitals, so that the case of letters of code page 1252 does not
// count.
char16_t Capital(char16_t c);
std::u16string Capitals(std::u16string_view text);

} // namespace kvarn
