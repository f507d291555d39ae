#include "text.h"

#include <algorithm>
#include <array>

#include "../compat/codepage.h"

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
    LetterTable table = Table({{229, 197},
                               {228, 196},
                               {246, 214}, // å ä ö
                               {134, 143},
                               {132, 142},
                               {148, 153}}); // å ä ö of code page 437
    for (char c = 'a'; c <= 'z'; ++c) {
        table[static_cast<unsigned char>(c)] = static_cast<char>(c - 'a' + 'A');
    }
    return table;
}

constexpr LetterTable upper = UpperTable();

constexpr LetterTable ansi = Table({{134, 229},
                                    {143, 197}, // å Å
                                    {132, 228},
                                    {142, 196}, // ä Ä
                                    {148, 246},
                                    {153, 214}, // ö Ö
                                    {145, 230},
                                    {146, 198}, // æ Æ
                                    {155, 248},
                                    {237, 216}, // ø Ø
                                    {130, 233},
                                    {144, 201}}); // é É

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

void OemToAnsiNordic(CString& text) {
    OemToAnsiNordic(text.GetBuffer());
    text.ReleaseBuffer();
}

int SplitPath(char const* argument, char* folder, char* name) {
    constexpr std::size_t size = 256;
    kvarn::PathParts const parts = kvarn::SplitPathArgument(argument);
    if (folder != nullptr) {
        kvarn::CopyText(folder, size, parts.folder);
    }
    if (name != nullptr) {
        kvarn::CopyText(name, size, parts.name);
    }
    return 0;
}

namespace kvarn {
namespace {

constexpr std::string_view whiteSpace = "\t\n\v\f\r ";

std::string_view TrimmedOf(std::string_view text, std::string_view set) {
    std::size_t const first = text.find_first_not_of(set);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(set) - first + 1);
}

} // namespace

PathParts SplitPathArgument(std::string_view argument) {
    std::string_view path = Trimmed(argument);
    if (path.starts_with('"')) {
        path = TrimmedOf(path, "\"");
    }
    std::string_view const folder = FolderOf(path);
    bool const split = path.find('\\') != std::string_view::npos;
    return {std::string(folder), std::string(split ? path.substr(folder.size() + 1) : path)};
}

std::string_view FolderOf(std::string_view path) {
    std::size_t const last = path.rfind('\\');
    return path.substr(0, last == std::string_view::npos ? 0 : last);
}

std::string PathOf(std::string_view folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    return path.append(folder).append("\\").append(name);
}

std::string TemporaryOf(std::string_view path) {
    constexpr std::string_view temporary = ".tmp";
    std::size_t const stem = std::max(path.size(), temporary.size()) - temporary.size();
    bool const itself = SameText(path.substr(stem), temporary);
    return std::string(path.substr(0, itself ? path.size() : stem)).append(temporary);
}

std::string_view Trimmed(std::string_view text) {
    return TrimmedOf(text, whiteSpace);
}

std::string_view TrimmedRight(std::string_view text) {
    return text.substr(0, text.find_last_not_of(whiteSpace) + 1);
}

bool SameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CompareNoCase1252(a, b) == 0;
}

bool SamePath(std::string_view a, std::string_view b) {
    auto const plain = [](char c) { return c == '/' ? '\\' : Lower1252(c); };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return plain(x) == plain(y); });
}

int CompareUpperNordic(std::string_view a, std::string_view b) {
    auto const capital = [](char c) { return upper[static_cast<unsigned char>(c)]; };
    auto const [atA, atB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                                          [&](char x, char y) { return capital(x) == capital(y); });
    auto const byte = [&](auto at, auto end) {
        return at == end ? 0 : int{static_cast<unsigned char>(capital(*at))};
    };
    return byte(atA, a.end()) - byte(atB, b.end());
}

void CopyText(char* buffer, std::size_t size, std::string_view text) {
    std::size_t const length = std::min(text.size(), size - 1);
    std::char_traits<char>::move(buffer, text.data(), length); // a client may pass its own field
    buffer[length] = '\0';
}

bool FileExists(char const* path) {
    return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES;
}

bool MakeFolder(char const* path) {
    return FileExists(path) || CreateDirectoryA(path, nullptr) != FALSE || FileExists(path);
}

} // namespace kvarn
