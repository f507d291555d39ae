#include <algorithm>

#include <geodata/stodpunkt.h>
#include <text/scan.h>
#include <text/text.h>

#include <formats/checks/linechecker.h>

#include "materialchecks.h"
#include "pointfile.h"

namespace kvarnio {
namespace {

using namespace kvarn;

// A line that is read as one number.
void LookAtNumber(LineChecker& checker, TextLine const& line) {
    auto const words = Words(line.text);
    std::string const fault = NumberFault(words.empty() ? line.text : words[0].text);
    if (!fault.empty()) {
        checker.Add(line.number, fault, Loss::none, line.text);
    } else if (words.size() > 1) {
        checker.Add(line.number, "words after the number", Loss::line,
                    line.text.substr(words[1].column));
    }
}

// It is read as a double into a float, which holds the lower half of its bits: of sound numbers
// zero alone comes back.
void LookAtSixth(LineChecker& checker, TextLine const& line) {
    double number = 0;
    if (kvarn::Scan(line.text, number) == 1 && number != 0) {
        checker.Add(line.number,
                    "the sixth number of the header, of which half of the bits are read",
                    Loss::line, line.text);
    }
}

void LookAtHeader(LineChecker& checker, PointFile const& file) {
    for (std::size_t i = 0; i < file.header.size(); ++i) {
        std::string const which = "number " + std::to_string(i + 1) + " of the header's six";
        TextLine const* const line = file.header[i];
        if (line == nullptr) {
            checker.Add(checker.LastLine(), "the file ends before " + which);
            return;
        }
        if (HoldsNumber(*line)) {
            LookAtNumber(checker, *line);
        } else {
            checker.Add(line->number, "no number where " + which + " stands", Loss::none,
                        line->text);
        }
    }
    if (HoldsNumber(*file.header.back())) {
        LookAtSixth(checker, *file.header.back());
    }
    checker.AddOnce(file.skipped, "beyond the header's six numbers", Loss::line);
    if (file.headerEnd == nullptr) {
        checker.Add(checker.LastLine(), "no line \"*\" ends the header: no point is read");
    } else if (file.headerEnd->text.size() > 1) {
        checker.Add(file.headerEnd->number, "text on a line \"*\"", Loss::line,
                    file.headerEnd->text.substr(1));
    }
}

void LookAtName(LineChecker& checker, TextLine const& line) {
    constexpr std::size_t longest = sizeof stdpkttype::namn - 1;
    auto const words = Words(line.text);
    if (words.empty()) {
        checker.Add(line.number, "a blank line is read as a point without a name");
        return;
    }
    std::string_view const name = words[0].text;
    if (kvarn::SameText(name, "gvy")) { // and not alone
        checker.Add(line.number, "read as a point, for the line is not \"gvy\" alone", Loss::none,
                    line.text);
    }
    if (name.size() > longest) {
        checker.Add(line.number,
                    "the name has " + std::to_string(name.size()) + " characters, and 11 are read",
                    Loss::line, name.substr(longest));
    }
    if (words.size() > 1) {
        checker.Add(line.number, "words after the name, which is one", Loss::line,
                    line.text.substr(words[1].column));
    }
    checker.LookAtLetters(line.number, name, LineChecker::Letters::converted);
}

void LookAtBlock(LineChecker& checker, PointBlock const& block) {
    if (!block.IsGvy()) {
        LookAtName(checker, *block.name);
    } else if (block.rest != nullptr && !IsBlank(block.rest->text)) {
        checker.Add(block.rest->number, "the line after the level of \"gvy\" is not read",
                    Loss::line, block.rest->text);
    }
    if (block.level == nullptr) {
        checker.Add(checker.LastLine(), "the file ends inside a block, before its level");
        return;
    }
    LookAtNumber(checker, *block.level);
    if (block.rest == nullptr) {
        checker.Add(checker.LastLine(), block.IsGvy()
                                            ? "the file ends before the blank line after \"gvy\""
                                            : "the file ends inside a point, before its values");
    } else if (!block.IsGvy() && block.rest->text.starts_with('*')) {
        checker.Add(block.rest->number, "the end line \"*\" is read as a point's values");
    }
}

// Values that the library would have to read to keep them.
void LookAtValues(LineChecker& checker, std::vector<PointBlock> const& blocks) {
    std::vector<TextLine const*> lost;
    for (PointBlock const& block : blocks) {
        auto const values = block.IsGvy() ? std::vector<double>() : ValuesIn(block.rest);
        if (std::any_of(values.begin(), values.end(), [](double value) { return value != 0; })) {
            lost.push_back(block.rest);
        }
    }
    checker.AddOnce(lost,
                    "a point's values, which are read from the message buffer and not from here",
                    Loss::line);
}

} // namespace

std::vector<Finding> CheckPoints(std::string_view content) {
    LineChecker checker(content);
    PointFile const file = ReadPointFile(checker.Lines());
    LookAtHeader(checker, file);
    for (PointBlock const& block : file.blocks) {
        LookAtBlock(checker, block);
    }
    LookAtValues(checker, file.blocks);
    if (file.end != nullptr) {
        if (file.end->text.size() > 1) {
            checker.Add(file.end->number, "text on a line \"*\"", Loss::line,
                        file.end->text.substr(1));
        }
        checker.AddUnread(file.end->number, "after the end line \"*\"");
    } else if (!file.blocks.empty() && file.blocks.back().rest != nullptr) {
        checker.Add(checker.LastLine(), "the file ends without the line \"*\": points may be lost");
    }
    return checker.Take();
}

} // namespace kvarnio
