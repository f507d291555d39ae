#include "../../text/shown.h"
#include "../kodfil.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

void LookAtRecord(LineChecker& checker, TextLine const& line) {
    auto const words = Words(line.text);
    if (words.empty()) {
        checker.AddBlank(line);
        return;
    }
    auto const post = ReadKodpost(line.text);
    if (!post) {
        checker.Add(line.number, Rule::tooFewWords, "one word alone", Loss::line, line.text);
        return;
    }
    if (words.size() > 2) {
        checker.Add(line.number, Rule::extraWords, "words after the text, which is one", Loss::line,
                    line.text.substr(words[2].column));
    }
    char const first = post->kod.front();
    if (first == '*' || first == ';') {
        checker.Add(line.number, Rule::oddCode,
                    std::string("read as the code \"") + OneLine(post->kod) + '"', Loss::none,
                    line.text);
    }
    checker.LookAtLength(line.number, "the code", post->kod);
    checker.LookAtLength(line.number, "the text", post->text);
    checker.LookAtLetters(line.number, line.text, LineChecker::Letters::kept);
}

} // namespace

std::vector<Finding> CheckKodfil(std::string_view content) {
    LineChecker checker(content);
    int stars = 0;
    for (TextLine const& line : checker.Lines()) {
        bool const isEnd = stars > 0 && line.text == "*";
        if (stars > 0 && !isEnd) {
            LookAtRecord(checker, line);
        }
        if (stars > 1 && ReadKodpost(line.text)) {
            checker.Add(line.number, Rule::afterEnd,
                        "after the end line \"*\", and read all the same", Loss::none, line.text);
        }
        stars += isEnd || (stars == 0 && IsStarLine(line.text)) ? 1 : 0;
    }
    if (stars == 0) {
        checker.Add(checker.LastLine(), Rule::endsEarly,
                    "no line \"*\" ends the header: no code is read");
    }
    return checker.Take();
}

} // namespace kvarn
