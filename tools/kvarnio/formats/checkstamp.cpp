#include <text/scan.h>

#include "filechecks.h"
#include "linechecker.h"

namespace kvarnio {
namespace {

constexpr std::size_t firstNumber = 2; // two words stand before it
constexpr std::size_t allNumbers = 3;

void LookAtRecord(LineChecker& checker, TextLine const& line, std::vector<Word> const& words) {
    std::string_view first;
    std::string_view second;
    double numbers[allNumbers]{};
    int const count = kvarn::Scan(line.text, first, second, numbers[0], numbers[1], numbers[2]);
    std::string fault;
    for (std::size_t i = firstNumber; i < words.size() && i < firstNumber + allNumbers; ++i) {
        fault = fault.empty() ? NumberFault(words[i].text) : fault;
    }
    if (count < static_cast<int>(firstNumber) + 2) {
        checker.Add(line.number,
                    "fewer than two words and two numbers" + (fault.empty() ? "" : ", " + fault),
                    Loss::line, line.text);
        return;
    }
    if (!fault.empty()) {
        checker.Add(line.number, fault, Loss::none, line.text);
    }
    if (words.size() > firstNumber + allNumbers) {
        checker.Add(line.number, "words after the third number", Loss::line,
                    line.text.substr(words[firstNumber + allNumbers].column));
    }
    checker.LookAtLength(line.number, "the first word", first);
    checker.LookAtLength(line.number, "the second word", second);
    checker.LookAtLetters(line.number, first, LineChecker::Letters::converted);
    checker.LookAtLetters(line.number, second, LineChecker::Letters::kept);
}

} // namespace

std::vector<Finding> CheckStamp(std::string_view content) {
    LineChecker checker(content);
    checker.LookAtRecords(LookAtRecord);
    return checker.Take();
}

} // namespace kvarnio
