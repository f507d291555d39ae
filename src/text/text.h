// Text routines that every class shares: comparison without regard to case, trimming, and fields of
// records. Text is in code page 1252.
#pragma once

#include <cstddef>
#include <string_view>

namespace kvarn {

inline constexpr std::string_view whiteSpace = "\t\n\v\f\r ";
// The same, asked of one character.
constexpr bool IsWhiteSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The text without white space, or the characters of the set, at both ends.
std::string_view Trimmed(std::string_view text, std::string_view set = whiteSpace);
// The text without white space at its end.
std::string_view TrimmedRight(std::string_view text);

// Equal when the letters of code page 1252 are folded.
bool SameText(std::string_view a, std::string_view b);

// Copies a text into a buffer of `size` bytes, cut to fit, with a zero at its end.
void CopyText(char* buffer, std::size_t size, std::string_view text);

// The text of a field. Clients fill fields too, and may leave out the zero at the end.
template <std::size_t N> std::string_view FieldText(char const (&field)[N]) {
    std::string_view const all(field, N - 1);
    return all.substr(0, all.find('\0'));
}

} // namespace kvarn
