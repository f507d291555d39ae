#include "../omradesfil.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

// The lines after the user's own: the road file's name, the stations, the offsets.
std::vector<TextLine> LinesOfArea(std::string_view content) {
    LineReader reader(content);
    OwnLines(reader);
    std::vector<TextLine> lines;
    for (TextLine line; reader.ReadLine(line);) {
        lines.push_back(line);
    }
    return lines;
}

void LookAtRange(LineChecker& checker, TextLine const& line, double from, double to,
                 char const* what) {
    constexpr std::size_t numbers = 2;
    auto const words = Words(line.text);
    for (Word const& word : words) {
        if (Fault const fault = NumberFault(word.text)) {
            checker.Add(line, fault);
            return;
        }
    }
    if (words.size() > numbers) {
        checker.Add(line.number, Rule::extraWords, "words after the two numbers", Loss::line,
                    line.text.substr(words[numbers].column));
    }
    if (from > to) {
        checker.Add(line.number, Rule::outOfRange,
                    std::string(what) + " end before they begin: nothing lies between", Loss::none,
                    line.text);
    }
}

} // namespace

std::vector<Finding> CheckOmradesfil(std::string_view content) {
    enum { roadFile, stations, offsets, all };
    LineChecker checker(content);
    LineReader reader(checker.IsReadable() ? content : std::string_view());
    Omrade area;
    if (!area.Read(reader) || area.filnamn.empty()) {
        checker.Add(checker.LastLine(), Rule::noArea,
                    "no road file's name and two lines of two numbers after the second line that "
                    "begins with a star: programs find no area");
        return checker.Take();
    }
    auto const lines = LinesOfArea(content);
    if (lines.size() >= all) {
        checker.LookAtLetters(lines[roadFile].number, lines[roadFile].text,
                              LineChecker::Letters::kept);
        LookAtRange(checker, lines[stations], area.sekFran, area.sekTill, "the stations");
        LookAtRange(checker, lines[offsets], area.avstMin, area.avstMax, "the offsets");
        checker.AddAfterEnd(lines[offsets].number, "after the offsets");
    }
    return checker.Take();
}

} // namespace kvarn
