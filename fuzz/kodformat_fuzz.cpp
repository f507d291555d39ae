// The formats of the code files, over any bytes: every line is a record or is skipped for a reason,
// records keep their limits, what a format writes reads back as the same records, and has no
// findings where its values are sound.
//
// The last bytes of an input choose the format and give numbers, the rest is the text.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "check.h"
#include "formats/checks/checks.h"
#include "formats/jb23.h"
#include "formats/kodfil.h"
#include "formats/linkod.h"
#include "formats/miljkod.h"
#include "formats/stampel.h"
#include "input.h"
#include "text/letters.h"
#include "text/text.h"
#include "textlines.h"

namespace {

using kvarn::LineReader;

bool IsWord(std::string_view text) {
    return !text.empty() && text.find_first_of(kvarn::whiteSpace) == std::string_view::npos;
}

std::string Printed(double number) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", number);
    return std::isnan(number) ? "nan" : text;
}

// With a star line, from values that no check takes exception to: short ones without odd letters.
bool IsSound(std::string const& text) {
    constexpr char const* sound = "abcdefghijklmnopqrstuvwxyzFKTOLX0123456789 .=+-";
    Lines const lines = LinesOf(text);
    bool const hasStar = text.find('*') != std::string::npos;
    return hasStar && std::all_of(lines.begin(), lines.end(), [&](std::string const& line) {
               return line == "*" || (line.size() <= kvarn::longestKodtext &&
                                      line.find_first_not_of(sound) == std::string::npos);
           });
}

using Findings = std::vector<kvarn::Finding>;
// What was written is written again from what is read of it.
void CheckRewriting(std::string const& text, std::string (*rewrite)(std::string const&),
                    Findings (*check)(std::string_view)) {
    std::size_t const lines = LinesOf(text).size();
    for (kvarn::Finding const& finding : check(text)) {
        Check(finding.line >= 1 && finding.line <= lines + 1, "a finding is of a line");
    }
    std::string const written = rewrite(text);
    Check(rewrite(written) == written, "what was written reads back");
    Check(!IsSound(written) || check(written).empty(), "and has no findings");
}

// --- The code file -------------------------------------------------------------------------------

std::string RewriteKodfil(std::string const& text) {
    LineReader lines(text);
    kvarn::KodfilHeader const header(lines);
    std::string out = header.text;
    for (kvarn::Kodpost post; kvarn::NextKodpost(lines, post);) {
        Check(IsWord(post.kod) && IsWord(post.text), "two words");
        out += kvarn::KodpostLine(post.kod, post.text);
    }
    return kvarn::InTextMode(out + (header.isEnded ? kvarn::endLine : ""));
}

void Kodfil(std::string const& text, Input&) {
    bool inHeader = true;
    std::string expected;
    for (std::string const& line : LinesOf(text)) {
        auto const post = inHeader ? std::nullopt : kvarn::ReadKodpost(line);
        expected += inHeader ? line + '\n' : post ? kvarn::KodpostLine(post->kod, post->text) : "";
        inHeader = inHeader && !kvarn::IsStarLine(line);
    }
    expected += inHeader ? "" : kvarn::endLine;
    Check(RewriteKodfil(text) == kvarn::InTextMode(expected), "the header, then all of two words");
    CheckRewriting(text, RewriteKodfil, kvarn::CheckKodfil);
}

// --- The environmental codes ---------------------------------------------------------------------

int told; // lines that are too long for their code
void Tell(std::string_view) {
    ++told;
}

// The sections with records, written anew, and whether all classes have a text: where one has none,
// its maximum is read as one.
struct Sections {
    explicit Sections(std::string const& content) {
        for (int section = 1; section < kvarn::miljkodSections; ++section) {
            LineReader lines(content);
            kvarn::SkipToMiljkodSection(lines, section);
            bool const isClasses = section == kvarn::miljkodClasses;
            while (auto const post = kvarn::NextMiljkod(lines, isClasses, Tell)) {
                CheckPost(*post);
                ++records;
                allHaveText = allHaveText && !(isClasses && post->text.empty());
                text.at(static_cast<std::size_t>(section) - 1) +=
                    kvarn::MiljkodText(*post, isClasses);
            }
        }
    }
    static void CheckPost(kvarn::MiljkodPost const& post) {
        constexpr int most = kvarn::MiljkodLimit::most;
        Check(IsWord(post.kod) && post.kod.size() <= kvarn::longestMiljkod, "a short code");
        Check(post.max >= kvarn::miljkodMax.least && post.max <= most, "a maximum");
        Check(post.step >= kvarn::miljkodStep.least && post.step <= most, "a step");
        std::string text = post.text;
        OemToAnsiNordic(text.data());
        Check(kvarn::TrimmedRight(text) == post.text, "no DOS letters and no blanks at the end");
    }

    std::array<std::string, kvarn::miljkodSections - 1> text;
    int records = 0;
    bool allHaveText = true;
};

std::string RewriteMiljkod(std::string const& text) {
    LineReader lines(text);
    std::string out = kvarn::MiljkodBeginning(lines);
    for (std::string const& section : Sections(text).text) {
        out += section + kvarn::endLine;
    }
    return kvarn::InTextMode(out);
}

void CheckEveryLine(std::string const& text) {
    int section = -1; // the header
    int read = 0;
    int tooLong = 0;
    for (std::string const& line : LinesOf(text)) {
        section += kvarn::IsStarLine(line) ? 1 : 0;
        if (section > 0 && section < kvarn::miljkodSections && !kvarn::IsStarLine(line)) {
            using Kind = kvarn::MiljkodLine::Kind;
            Kind const kind = kvarn::MiljkodLine(line).kind;
            Check((kind == Kind::blank) == kvarn::Trimmed(line).empty(), "a blank line");
            read += kind == Kind::read ? 1 : 0;
            tooLong += kind == Kind::codeTooLong ? 1 : 0;
        }
    }
    told = 0;
    Check(Sections(text).records == read && told == tooLong, "each line is read, told or blank");
}

void CheckLimit(kvarn::MiljkodLimit const& limit, std::string_view line, int number,
                bool capitals) {
    std::string name(limit.name);
    std::transform(name.begin(), name.end(), name.begin(),
                   [&](int c) { return static_cast<char>(capitals ? std::toupper(c) : c); });
    std::string const with = std::string(line) + ' ' + name + std::to_string(number);
    std::string_view rest = with;
    auto const value = kvarn::TakeLimit(rest, limit);
    bool const isWithin = number >= limit.least && number <= kvarn::MiljkodLimit::most;
    Check(value == (isWithin ? number : limit.otherwise), "a limit is its number or the usual one");
    Check(rest == kvarn::TrimmedRight(line), "the limit is taken off the text");
}

// The records stay, and each section has its obligatory code.
void CheckObligatory(std::string const& text) {
    LineReader lines(text);
    auto const added = kvarn::WithObligatoryMiljkod(lines, Tell);
    Sections const before(text);
    Sections const after(added ? kvarn::emptyMiljkodBeginning + *added : text);
    Check(!added == (before.text == after.text), "what is missing is added, or nothing is");
    std::size_t i = 0;
    for (std::string const code : {"\nX ", "\nTOLK ", "\nFK "}) {
        bool const had = ('\n' + before.text[i]).find(code) != std::string::npos;
        Check(after.text[i].starts_with(before.text[i]), "the records are kept");
        Check(had ? after.text[i] == before.text[i]
                  : ('\n' + after.text[i]).find(code) != std::string::npos,
              "the obligatory code is there");
        ++i;
    }
}

void Miljkod(std::string const& text, Input& in) {
    int const number = in.Number<int>() >> in.Number(0, 31);
    bool const capitals = in.Bool();
    std::string const line = LinesOf('x' + text)[0]; // never empty
    CheckLimit(kvarn::miljkodMax, line, number, capitals);
    CheckLimit(kvarn::miljkodStep, line, number, capitals);
    CheckEveryLine(text);
    if (Sections(text).allHaveText) {
        CheckObligatory(text);
        CheckRewriting(text, RewriteMiljkod, [](std::string_view content) {
            bool const isPlain = content.starts_with("*\r\n*\r\n");
            Findings found = kvarn::CheckMiljkod(content);
            return isPlain || found.empty() ? found : Findings();
        });
    }
}

// --- The line codes and the title block ----------------------------------------------------------

Lines BeforeStar(std::string const& text) {
    Lines lines = LinesOf(text);
    lines.erase(std::find_if(lines.begin(), lines.end(), kvarn::IsStarLine), lines.end());
    return lines;
}

std::string RewriteLinkod(std::string const& text) {
    std::string out;
    for (std::string const& line : BeforeStar(text)) {
        kvarn::LinkodLine const read(line);
        std::size_t const column = std::min(line.size(), kvarn::linkodTextColumn);
        Check(read.text == kvarn::TrimmedRight(line.substr(column)), "the text from its column on");
        Check(read.count > kvarn::linkodLeast || read.whole == 0, "a number left out is 0");
        std::string const values =
            kvarn::AsFirstWord(read.kod) + ' ' + std::string(read.ord) + ' ' + Printed(read.number);
        bool const isShort = read.text.empty() && read.whole == 0;
        std::string const all = values + (isShort ? "" : ' ' + std::to_string(read.whole));
        if (read.IsRead() && all.size() < kvarn::linkodTextColumn) {
            Check(IsWord(read.kod) && IsWord(read.ord), "two words");
            out += kvarn::LinkodText(all, read.text);
        }
    }
    return kvarn::InTextMode(out + kvarn::endLine);
}

void Linkod(std::string const& text, Input& in) {
    CheckRewriting(text, RewriteLinkod, kvarn::CheckLinkod);
    int const number = in.Number(-10, 200);
    std::string const digits = std::to_string(number);
    std::string const pv = "PV" + digits;
    kvarn::LinkodFamily const family(pv);
    bool const isOne = digits.size() == 1;
    int const kind = isOne ? 1 : number < 100 ? 2 : 3;
    Check(family.kind == kind && family.kod == (isOne ? pv : digits), "the family by its number");
    kvarn::LinkodFamily const any(text);
    bool const isPlain = any.kind == kvarn::LinkodFamily::ordinary;
    Check((isPlain ? "" : "PV") + std::string(any.kod) == text, "no part of a code is lost");
}

std::string RewriteStampel(std::string const& text) {
    std::string out;
    for (std::string const& line : BeforeStar(text)) {
        kvarn::StampelLine const read(line);
        if (read.IsRead()) {
            Check(IsWord(read.ord1) && IsWord(read.ord2), "two words");
            out += kvarn::StampelText(kvarn::AsFirstWord(read.ord1), read.ord2,
                                      Printed(read.number1), Printed(read.number2),
                                      read.number3 == 3 ? "" : Printed(read.number3));
        }
    }
    return kvarn::InTextMode(out + kvarn::endLine);
}

void Stampel(std::string const& text, Input&) {
    CheckRewriting(text, RewriteStampel, kvarn::CheckStamp);
}

// --- The Jb2/Jb3 scales --------------------------------------------------------------------------

void CheckPlaces() {
    int number = 0;
    for (std::string const quantity :
         {"SJUNK", "HAST", "KRAFT", "RPM", "SPOL", "FLODE", "HAMMAR", "TRYCK", "QT", "FT", "U"}) {
        kvarn::ScalePlace const scale(quantity + "SKALA");
        kvarn::ScalePlace const step(quantity + "STEG");
        Check(scale.line == ++number && !scale.isStep && step.line == number && step.isStep,
              "the place of a key");
    }
}

void Jb23(std::string const& text, Input& in) {
    CheckPlaces();
    kvarn::ScalePlace place(text);
    Check(place.line >= 1 && place.line <= kvarn::jb23Lines, "a line of the file");
    place.line = in.Number(1, kvarn::jb23Lines);
    place.isStep = in.Bool();
    kvarn::CheckJb23(text, {&place.line, 1});

    std::string const word = std::to_string(in.Number<std::uint8_t>());
    LineReader lines(text);
    std::string const written = kvarn::WithScale(lines, place, word);
    Lines before = LinesOf(text);
    Lines const now = LinesOf(written);
    std::size_t const at = std::min(static_cast<std::size_t>(place.line - 1), before.size());
    before.resize(std::max(before.size(), at + 1), "0 0");
    Check(now.size() == before.size(), "one line at most is added");
    kvarn::ScaleLine was(before[at]);
    kvarn::ScaleLine is(now[at]);
    was.At(place) = word;
    Check(was.scale.empty() ? is.scale == word : is.scale == was.scale && is.step == was.step,
          "one word of the line changes");
    place.line = static_cast<int>(at) + 1;
    LineReader again{std::string_view(written)};
    Check(kvarn::ScaleAt(again, place) == is.At(place), "the word is found at its place");
    before[at] = now[at];
    Check(now == before, "no other line changes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr void (*formats[])(std::string const&, Input&) = {Kodfil, Miljkod, Linkod, Stampel,
                                                               Jb23};
    Input provider(data, size);
    auto const format = provider.Number<std::size_t>(0, std::size(formats) - 1);
    constexpr std::size_t numbers = 10;
    auto const most = provider.Remaining() - std::min(provider.Remaining(), numbers);
    std::string const text = provider.Bytes(most);
    formats[format](text, provider);
    return 0;
}
