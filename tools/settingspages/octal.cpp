#include "octal.h"

#include <stdexcept>

#include "../../src/text/codepage.h"

namespace pages {

std::string CodePage1252(std::string_view utf8) {
    auto const bytes = kvarn::FromUtf8(utf8);
    if (!bytes) {
        throw std::runtime_error("code page 1252 lacks a letter of \"" + std::string(utf8) + '"');
    }
    return *bytes;
}

std::string Octal(std::string_view utf8) {
    std::string text;
    for (char const c : CodePage1252(utf8)) {
        auto const byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte < 0x7F && c != '"' && c != '\\') {
            text += c;
            continue;
        }
        text += '\\';
        for (unsigned const shift : {6U, 3U, 0U}) {
            text += static_cast<char>('0' + (byte >> shift & 7U));
        }
    }
    return text;
}

} // namespace pages
