#include "../stampel.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

void LookAtRecord(LineChecker& checker, TextLine const& line, std::vector<Word> const& words) {
    constexpr std::size_t firstNumber = StampelLine::words;
    constexpr std::size_t all = StampelLine::all;
    StampelLine const read(line.text);
    std::string fault;
    for (std::size_t i = firstNumber; i < words.size() && i < all; ++i) {
        fault = fault.empty() ? NumberFault(words[i].text) : fault;
    }
    if (!read.IsRead()) {
        checker.Add(line.number,
                    "fewer than two words and two numbers" + (fault.empty() ? "" : ", " + fault),
                    Loss::line, line.text);
        return;
    }
    if (!fault.empty()) {
        checker.Add(line.number, fault, Loss::none, line.text);
    }
    if (words.size() > all) {
        checker.Add(line.number, "words after the third number", Loss::line,
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
