#include "filechecks.h"
#include "linechecker.h"

namespace kvarnio {
namespace {

void LookAtRecord(LineChecker& checker, TextLine const& line) {
    auto const words = Words(line.text);
    if (words.empty()) {
        checker.Add(line.number, "", Loss::blank);
        return;
    }
    if (words.size() == 1) {
        checker.Add(line.number, "one word alone", Loss::line, line.text);
        return;
    }
    if (words.size() > 2) {
        checker.Add(line.number, "words after the text, which is one", Loss::line,
                    line.text.substr(words[2].column));
    }
    char const first = words[0].text.front();
    if (first == '*' || first == ';') {
        checker.Add(line.number, std::string("read as the code \"") + OneLine(words[0].text) + '"',
                    Loss::none, line.text);
    }
    checker.LookAtLength(line.number, "the code", words[0].text);
    checker.LookAtLength(line.number, "the text", words[1].text);
    checker.LookAtLetters(line.number, line.text, LineChecker::Letters::kept);
}

} // namespace

std::vector<Finding> CheckKodfil(std::string_view content) {
    LineChecker checker(content);
    int stars = 0;
    for (TextLine const& line : checker.Lines()) {
        bool const endLine = stars > 0 && line.text == "*";
        if (stars > 0 && !endLine) {
            LookAtRecord(checker, line);
        }
        if (stars > 1 && Words(line.text).size() > 1) {
            checker.Add(line.number, "after the end line \"*\", and read all the same", Loss::none,
                        line.text);
        }
        stars += endLine || (stars == 0 && line.text.starts_with('*')) ? 1 : 0;
    }
    if (stars == 0) {
        checker.Add(checker.LastLine(), "no line \"*\" ends the header: no code is read");
    }
    return checker.Take();
}

} // namespace kvarnio
