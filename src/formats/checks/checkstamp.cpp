#include "../stampel.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

void LookAtRecord(LineChecker& checker, TextLine const& line, std::vector<Word> const& words) {
    constexpr std::size_t firstNumber = StampelLine::words;
    constexpr std::size_t all = StampelLine::all;
    StampelLine const read(line.text);
    Fault fault{};
    for (std::size_t i = firstNumber; i < words.size() && i < all && !fault; ++i) {
        fault = NumberFault(words[i].text);
    }
    if (!read.IsRead()) {
        checker.Add(line.number, Rule::tooFewWords,
                    "fewer than two words and two numbers" + (fault ? ", " + fault.what : ""),
                    Loss::line, line.text);
        return;
    }
    if (fault) {
        checker.Add(line, fault);
    }
    if (words.size() > all) {
        checker.Add(line.number, Rule::extraWords, "words after the third number", Loss::line,
                    line.text.substr(words[all].column));
    }
    checker.LookAtLength(line.number, "the first word", read.ord1);
    checker.LookAtLength(line.number, "the second word", read.ord2);
    checker.LookAtLetters(line.number, read.ord1, LineChecker::Letters::converted);
    checker.LookAtLetters(line.number, read.ord2, LineChecker::Letters::kept);
}

} // namespace

std::vector<Finding> CheckStamp(std::string_view content) {
    LineChecker checker(content);
    checker.LookAtRecords(LookAtRecord);
    return checker.Take();
}

} // namespace kvarn
