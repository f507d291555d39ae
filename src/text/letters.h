// The Nordic letters in the two code pages that files use. Text is in code page 1252.
#pragma once

#include <string_view>

// Capitals for a to z and for å, ä, ö, each of these three both in code page 1252 and in the DOS
// code page 437; in place. Every other byte stays.
void ToUpperNordic(char* text);

// Nordic letters of the DOS code page to code page 1252, in place. Every other byte stays. Known
// quirk, kept on purpose: 237 becomes Ø, since code page 437 has no Ø.
void OemToAnsiNordic(char* text);

namespace kvarn {

// The order of two texts in the capitals of ToUpperNordic, by their bytes: negative, 0 or positive.
int CompareUpperNordic(std::string_view a, std::string_view b);

} // namespace kvarn
