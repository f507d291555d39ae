#include "kodfil.h"

#include "../text/format.h"
#include "../text/scan.h"

namespace kvarn {

std::optional<Kodpost> ReadKodpost(std::string_view line) {
    Kodpost post;
    return Scan(line, post.kod, post.text) == 2 ? std::optional(post) : std::nullopt;
}

bool NextKodpost(LineReader& lines, Kodpost& post) {
    for (std::string_view line; lines.ReadLine(line);) {
        if (auto const read = ReadKodpost(line)) {
            post = *read;
            return true;
        }
    }
    return false;
}

std::string KodpostLine(std::string_view kod, std::string_view text) {
    return Format("%s %s\n", kod, text);
}

KodfilHeader::KodfilHeader(LineReader& lines) {
    for (std::string_view line; !isEnded && lines.ReadLine(line);) {
        (text += line) += '\n';
        isEnded = IsStarLine(line);
    }
}

} // namespace kvarn
