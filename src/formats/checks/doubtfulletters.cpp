#include "doubtfulletters.h"

#include <algorithm>

#include "../../text/codepage.h"
#include "../../text/letters.h"

namespace kvarn {
namespace {

unsigned char Byte(char c) {
    return static_cast<unsigned char>(c);
}

char At(std::string_view text, std::size_t i) {
    return i < text.size() ? text[i] : ' '; // before the first, too: the index wraps
}

bool IsUpper(char c) {
    return Lower1252(c) != c;
}
bool IsLower(char c) {
    return Upper1252(c) != c;
}
bool IsLetter(char c) {
    return IsUpper(c) || IsLower(c) || Converted({&c, 1})[0] != c;
}

bool LooksLikeDos(std::string_view text, std::size_t i) {
    bool const before = IsLetter(At(text, i - 1));
    bool const after = IsLetter(At(text, i + 1));
    switch (Byte(text[i])) {
    case 0x81: // these three are no characters of code page 1252
    case 0x8F:
    case 0x90:
        return true;
    case 0x86: // a dagger and a trade mark follow a word
    case 0x99:
        return after;
    case 0x82: // quotation marks, and letters that no name here holds
    case 0x84:
    case 0x8E:
    case 0x94:
    case 0x9B:
        return before && after;
    default:
        return false;
    }
}

// A capital does not follow a small letter, nor a small letter come before a capital.
bool FitsAsLetter(std::string_view text, std::size_t i, char converted) {
    char const before = At(text, i - 1);
    char const after = At(text, i + 1);
    return (IsLetter(before) || IsLetter(after)) &&
           !(IsUpper(converted) ? IsLower(before) : IsUpper(after));
}

bool IsNordic1252(char c) {
    constexpr std::string_view letters = "\xE5\xE4\xF6\xC5\xC4\xD6\xE6\xC6\xF8\xD8\xE9\xC9";
    return letters.find(c) != std::string_view::npos;
}

} // namespace

std::string Converted(std::string_view text) {
    std::string converted(text);
    OemToAnsiNordic(converted.data());
    return converted;
}

bool IsUtf8(std::string_view text) {
    bool found = false;
    while (!text.empty()) {
        auto const codePoint = TakeCodePoint(text);
        if (!codePoint) {
            return false;
        }
        found = found || (*codePoint >= 0x80 && Byte1252(*codePoint));
    }
    return found;
}

bool HoldsDosLetters(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (LooksLikeDos(text, i)) {
            return true;
        }
    }
    return false;
}

bool ConversionSpoils(std::string_view text) {
    std::string const converted = Converted(text);
    bool const is1252 = std::any_of(text.begin(), text.end(), IsNordic1252);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (converted[i] != text[i] && (is1252 || !FitsAsLetter(text, i, converted[i]))) {
            return true;
        }
    }
    return false;
}

} // namespace kvarn
