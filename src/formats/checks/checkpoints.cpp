#include <algorithm>

#include "../stodpunkt.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

// A line that is read as one number.
void LookAtNumber(LineChecker& checker, TextLine const& line) {
    auto const words = Words(line.text);
    if (Fault const fault = NumberFault(words.empty() ? line.text : words[0].text)) {
        checker.Add(line, fault);
    } else if (words.size() > 1) {
        checker.Add(line.number, Rule::extraWords, "words after the number", Loss::line,
                    line.text.substr(words[1].column));
    }
}

void LookAtHeader(LineChecker& checker, StodpunktHeader const& header) {
    for (std::size_t i = 0; i < header.numbers.size(); ++i) {
        std::string const which = "number " + std::to_string(i + 1) + " of the header's six";
        StodpunktLine const& number = header.numbers[i];
        if (!number.isThere) {
            checker.Add(checker.LastLine(), Rule::endsEarly, "the file ends before " + which);
            return;
        }
        if (number.HoldsNumber()) {
            LookAtNumber(checker, number.line);
        } else {
            checker.Add(number.line.number, Rule::notANumber,
                        "no number where " + which + " stands", Loss::none, number.line.text);
        }
    }
    // It is read as a double into a float, which holds the lower half of its bits: of sound numbers
    // only zero comes back.
    StodpunktLine const& sixth = header.numbers.back();
    double number = 0;
    if (sixth.HoldsNumber() && sixth.Read(number) && number != 0) {
        checker.Add(sixth.line.number, Rule::notKept,
                    "the sixth number of the header, of which half of the bits are read",
                    Loss::line, sixth.line.text);
    }
    checker.AddOnce(header.skipped, Rule::notKept, "beyond the header's six numbers", Loss::line);
    if (!header.end.isThere) {
        checker.Add(checker.LastLine(), Rule::endsEarly,
                    "no line \"*\" ends the header: no point is read");
    } else {
        checker.LookAtStar(header.end.line, "a line");
    }
}

void LookAtName(LineChecker& checker, TextLine const& line) {
    auto const words = Words(line.text);
    if (words.empty()) {
        checker.Add(line.number, Rule::blankLine, "a blank line is read as a point without a name");
        return;
    }
    std::string_view const name = words[0].text;
    if (IsGvy(name)) { // and not alone
        checker.Add(line.number, Rule::gvy, "read as a point, for the line is not \"gvy\" alone",
                    Loss::none, line.text);
    }
    if (name.size() > longestStodpunkt) {
        checker.Add(line.number, Rule::tooLong,
                    "the name has " + std::to_string(name.size()) + " characters, and " +
                        std::to_string(longestStodpunkt) + " are read",
                    Loss::line, name.substr(longestStodpunkt));
    }
    if (words.size() > 1) {
        checker.Add(line.number, Rule::extraWords, "words after the name, which is one", Loss::line,
                    line.text.substr(words[1].column));
    }
    checker.LookAtLetters(line.number, name, LineChecker::Letters::converted);
}

void LookAtBlock(LineChecker& checker, StodpunktBlock const& block) {
    TextLine const& rest = block.rest.line;
    if (!block.IsGvy()) {
        LookAtName(checker, block.name.line);
    } else if (block.rest.isThere && !IsBlank(rest.text)) {
        checker.Add(rest.number, Rule::gvy, "the line after the level of \"gvy\" is not read",
                    Loss::line, rest.text);
    }
    if (!block.level.isThere) {
        checker.Add(checker.LastLine(), Rule::endsEarly,
                    "the file ends inside a block, before its level");
        return;
    }
    LookAtNumber(checker, block.level.line);
    if (!block.rest.isThere) {
        checker.Add(checker.LastLine(), Rule::endsEarly,
                    block.IsGvy() ? "the file ends before the blank line after \"gvy\""
                                  : "the file ends inside a point, before its values");
    } else if (!block.IsGvy() && IsStarLine(rest.text)) {
        checker.Add(rest.number, Rule::endsEarly, "the end line \"*\" is read as a point's values");
    }
}

// Values that the library would have to read to keep them.
bool HoldsValues(StodpunktBlock const& block) {
    double values[stodpunktNumbers]{};
    ReadValues(block.rest.line.text, values);
    return !block.IsGvy() && std::any_of(std::begin(values), std::end(values),
                                         [](double value) { return value != 0; });
}

} // namespace

std::vector<Finding> CheckPoints(std::string_view content) {
    LineChecker checker(content);
    LineReader lines(checker.IsReadable() ? content : std::string_view());
    LookAtHeader(checker, StodpunktHeader(lines));
    StodpunktReader blocks(lines);
    std::vector<TextLine> lost;
    bool isWhole = false; // the last block
    for (StodpunktBlock block; blocks.Next(block);) {
        LookAtBlock(checker, block);
        if (HoldsValues(block)) {
            lost.push_back(block.rest.line);
        }
        isWhole = block.rest.isThere;
    }
    checker.AddOnce(lost, Rule::notKept,
                    "a point's values, which are read from the message buffer and not from here",
                    Loss::line);
    if (blocks.End().isThere) {
        checker.LookAtStar(blocks.End().line, "a line");
        checker.AddAfterEnd(blocks.End().line.number, "after the end line \"*\"");
    } else if (isWhole) {
        checker.Add(checker.LastLine(), Rule::endsEarly,
                    "the file ends without the line \"*\": points may be lost");
    }
    return checker.Take();
}

} // namespace kvarn
