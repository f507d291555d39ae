// The Nordic letters, in the two code pages that files have had. Text is in code page 1252.
#pragma once

#include <string_view>

// Capitals for a to z and for å, ä, ö, each of these three both in code page 1252 and in the DOS
// code page 437; in place. Every other byte stays.
void ToUpperNordic(char* text);

// Nordic letters of the DOS code page to code page 1252, in place. 237 becomes Ø, as it always has
// (code page 437 has no Ø of its own). Every other byte stays.
void OemToAnsiNordic(char* text);

namespace kvarn {

// The order of two texts in the capitals of ToUpperNordic, by their bytes: below, at or above 0.
int CompareUpperNordic(std::string_view a, std::string_view b);

} // namespace kvarn
