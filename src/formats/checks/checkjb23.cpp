#include <algorithm>

#include "../../text/text.h"

#include "../jb23.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

void LookAtNumber(LineChecker& checker, TextLine const& line, Word const& word) {
    Fault const fault = NumberFault(word.text);
    if (word.text == "*") {
        checker.Add(line.number, Rule::placeholder, "the placeholder \"*\" is read as a value");
    } else if (fault && !SameText(word.text, "MAX")) {
        checker.Add(line, fault);
    }
}

void LookAtQuantity(LineChecker& checker, TextLine const& line, Loss beyondWords) {
    auto const words = Words(line.text);
    if (words.empty()) {
        checker.Add(line.number, Rule::defaultStep,
                    "blank: the scale and the step have their defaults");
    } else if (words.size() == 1 && words[0].text != "*") {
        checker.Add(line.number, Rule::defaultStep, "one word: the step has its default",
                    Loss::none, line.text);
    } else if (words.size() > 2) {
        checker.Add(line.number, Rule::extraWords, "words after the step", beyondWords,
                    line.text.substr(words[2].column));
    }
    for (std::size_t i = 0; i < words.size() && i < 2; ++i) {
        LookAtNumber(checker, line, words[i]);
    }
}

} // namespace

std::vector<Finding> CheckJb23(std::string_view content, std::span<int const> writtenLines) {
    LineChecker checker(content);
    auto const count = static_cast<int>(checker.Lines().size());
    for (TextLine const& line : checker.Lines()) {
        auto const number = static_cast<int>(line.number);
        if (number <= jb23Lines) {
            bool const isWritten =
                std::find(writtenLines.begin(), writtenLines.end(), number) != writtenLines.end();
            LookAtQuantity(checker, line, isWritten ? Loss::line : Loss::none);
        } else if (!IsBlank(line.text)) {
            checker.Add(line.number, Rule::afterEnd, "not read: the file has eleven lines",
                        Loss::none, line.text);
        }
    }
    if (count < jb23Lines) {
        checker.Add(checker.LastLine(), Rule::endsEarly,
                    "the file ends with this line and has eleven: a program "
                    "that writes one of the others puts it on the next");
    }
    return checker.Take();
}

} // namespace kvarn
