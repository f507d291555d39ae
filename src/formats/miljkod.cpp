#include "miljkod.h"

#include <climits>

#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "../text/scan.h"
#include "../text/text.h"

namespace kvarn {
namespace {

constexpr int firstSection = 1; // with records; section 0 is empty

struct Section {
    bool withLimits;
    MiljkodPost obligatory;
};

// Appends the section's lines, with its obligatory code at the end where that was missing. True
// when it was there.
bool AppendSection(std::string& text, LineReader& lines, Section const& section, ToldLine told) {
    bool found = false;
    while (auto const post = NextMiljkod(lines, section.withLimits, told)) {
        found = found || post->kod == section.obligatory.kod;
        text += MiljkodText(*post, section.withLimits);
    }
    text += found ? "" : MiljkodText(section.obligatory, section.withLimits);
    text += endLine;
    return found;
}

} // namespace

std::optional<std::int32_t> TakeLimit(std::string_view& text, MiljkodLimit const& limit) {
    std::size_t const at = text.find_last_of(limit.first);
    if (at == std::string_view::npos || at == 0 ||
        !SameText(text.substr(at, limit.name.size()), limit.name)) {
        return std::nullopt;
    }
    std::int32_t value = limit.otherwise;
    Scan(text.substr(at + limit.name.size()), value);
    text = TrimmedRight(text.substr(0, at - 1));
    return value >= limit.least && value <= MiljkodLimit::most ? value : limit.otherwise;
}

MiljkodLine::MiljkodLine(std::string_view line) {
    if (Scan(line, kod) != 1) {
        kind = Kind::blank;
        return;
    }
    kind = kod.size() <= longestMiljkod ? Kind::read : Kind::codeTooLong;
    text = Trimmed(line.substr(line.find(kod) + kod.size()));
}

void SkipToMiljkodSection(LineReader& lines, int section) {
    constexpr int never = INT_MAX;
    bool const exists = section >= 0 && section < never;
    SkipStarLines(lines, exists ? section + 1 : never);
}

std::optional<MiljkodPost> NextMiljkod(LineReader& lines, bool withLimits, ToldLine told) {
    for (std::string_view text; lines.ReadLine(text) && !IsStarLine(text);) {
        MiljkodLine line(text);
        if (line.kind == MiljkodLine::Kind::read) {
            MiljkodPost post;
            if (withLimits) { // the step is last
                post.step = TakeLimit(line.text, miljkodStep).value_or(post.step);
                post.max = TakeLimit(line.text, miljkodMax).value_or(post.max);
            }
            post.kod = line.kod;
            post.text = line.text;
            OemToAnsiNordic(post.text.data());
            return post;
        }
        if (line.kind == MiljkodLine::Kind::codeTooLong && told != nullptr) {
            told(text);
        }
    }
    return std::nullopt;
}

std::string MiljkodBeginning(LineReader& lines) {
    constexpr int stars = 2;
    std::string text;
    int found = 0;
    for (std::string_view line; found < stars && lines.ReadLine(line);) {
        found += IsStarLine(line) ? 1 : 0;
        (text += line) += '\n';
    }
    for (; found < stars; ++found) {
        text += endLine;
    }
    return text;
}

std::string MiljkodText(std::string_view kod, std::string_view text) {
    return Format("%s %s\n", kod, text);
}

std::string MiljkodText(std::string_view kod, std::string_view text, std::int32_t max,
                        std::int32_t step) {
    return Format("%s %s max=%d steg=%d\n", kod, text, max, step);
}

std::string MiljkodText(MiljkodPost const& post, bool withLimits) {
    std::string const kod = AsFirstWord(post.kod);
    return withLimits ? MiljkodText(kod, post.text, post.max, post.step)
                      : MiljkodText(kod, post.text);
}

std::optional<std::string> WithObligatoryMiljkod(LineReader& lines, ToldLine told) {
    Section const sections[] = {{false, {"X", "okänd metod, sammanställning"_1252}},
                                {false, {"TOLK", "Tolkad klassificering"}},
                                {true, {"FK", "Föroreningsklass"_1252, 6, 1}}};
    std::string text;
    SkipToMiljkodSection(lines, firstSection);
    bool all = true;
    for (Section const& section : sections) {
        all = AppendSection(text, lines, section, told) && all;
    }
    return all ? std::nullopt : std::optional(text);
}

} // namespace kvarn
