#include "letters.h"

#include <algorithm>
#include <array>

namespace {

using LetterTable = std::array<char, 256>;

struct LetterPair {
    unsigned char from;
    unsigned char to;
};

constexpr LetterTable Table(std::initializer_list<LetterPair> letters) {
    LetterTable table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        table[i] = static_cast<char>(i);
    }
    for (LetterPair const& letter : letters) {
        table[letter.from] = static_cast<char>(letter.to);
    }
    return table;
}

constexpr LetterTable UpperTable() {
    // clang-format off
    LetterTable table = Table({
        {229, 197}, {228, 196}, {246, 214}, // å ä ö
        {134, 143}, {132, 142}, {148, 153}, // å ä ö of code page 437
    });
    // clang-format on
    for (char c = 'a'; c <= 'z'; ++c) {
        table[static_cast<unsigned char>(c)] = static_cast<char>(c - 'a' + 'A');
    }
    return table;
}

constexpr LetterTable upper = UpperTable();

// clang-format off
constexpr LetterTable ansi = Table({
    {134, 229}, {132, 228}, {148, 246}, // å ä ö
    {143, 197}, {142, 196}, {153, 214}, // Å Ä Ö
    {145, 230}, {155, 248}, {130, 233}, // æ ø é
    {146, 198}, {237, 216}, {144, 201}, // Æ Ø É
});
// clang-format on

void Convert(char* text, LetterTable const& table) {
    for (; *text != '\0'; ++text) {
        *text = table[static_cast<unsigned char>(*text)];
    }
}

} // namespace

void ToUpperNordic(char* text) {
    Convert(text, upper);
}

void OemToAnsiNordic(char* text) {
    Convert(text, ansi);
}

namespace kvarn {

int CompareUpperNordic(std::string_view a, std::string_view b) {
    auto const capital = [](char c) { return upper[static_cast<unsigned char>(c)]; };
    auto const [atA, atB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                                          [&](char x, char y) { return capital(x) == capital(y); });
    auto const byte = [&](auto at, auto end) {
        return at == end ? 0 : int{static_cast<unsigned char>(capital(*at))};
    };
    return byte(atA, a.end()) - byte(atB, b.end());
}

} // namespace kvarn
