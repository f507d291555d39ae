#include "../../text/scan.h"
#include "../../text/text.h"

#include "../../text/shown.h"
#include "../miljkod.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

// The last place of a name with its "=", in any case.
std::size_t FindLast(std::string_view text, std::string_view name) {
    for (std::size_t i = text.size(); i-- > 0;) {
        if (SameText(text.substr(i, name.size()), name)) {
            return i;
        }
    }
    return std::string_view::npos;
}

std::string_view FirstWord(std::string_view text) {
    auto const words = Words(text);
    return words.empty() ? "" : words[0].text;
}

// What is wrong with a limit that was taken off a text.
Fault FaultOf(std::string_view text, std::size_t at, MiljkodLimit const& limit) {
    std::string const name(limit.name);
    std::string_view const rest = text.substr(at + name.size());
    std::string_view const number = FirstWord(rest);
    if (Words(rest).size() > 1) {
        return {Rule::extraWords, "text after " + name + OneLine(number)};
    }
    std::int32_t value = 0;
    if (Scan(number, value) != 1 || value < limit.least || value > MiljkodLimit::most) {
        return {Rule::limits,
                name + OneLine(number) + ", " + std::to_string(limit.otherwise) + " is read"};
    }
    if (Fault const fault = WholeNumberFault(number)) {
        return {fault.rule, name + fault.what};
    }
    bool const blankBefore = IsBlank(text.substr(at - 1, 1));
    return {Rule::limits,
            blankBefore ? std::string() : "no blank before " + name + ", a letter is lost"};
}

// The same for one that is not read, and so stays in the text.
Fault FaultOfUnread(std::string_view text, MiljkodLimit const& limit) {
    std::string const name(limit.name);
    std::string const otherwise = ", " + std::to_string(limit.otherwise) + " is read";
    std::size_t const at = FindLast(text, limit.name);
    if (at == std::string_view::npos) {
        return {Rule::limits, "no " + name + otherwise};
    }
    return {Rule::limits, at == 0 ? "no text before " + name + otherwise
                                  : "after " + name + " its first letter comes again" + otherwise};
}

// Takes the limits off the text.
void LookAtLimits(LineChecker& checker, TextLine const& line, std::string_view& text) {
    std::size_t const step = FindLast(text, "steg=");
    std::size_t const most = FindLast(text, "max=");
    if (step != std::string_view::npos && most != std::string_view::npos && most > step) {
        checker.Add(line.number, Rule::limits, "max= stands after steg= and is not read",
                    Loss::line, line.text);
        return;
    }
    for (MiljkodLimit const& limit : {miljkodStep, miljkodMax}) {
        std::string_view const before = text;
        Fault const fault = TakeLimit(text, limit)
                                ? FaultOf(before, before.find_last_of(limit.first), limit)
                                : FaultOfUnread(text, limit);
        if (fault) {
            checker.Add(line, fault);
        }
    }
}

void LookAtRecord(LineChecker& checker, TextLine const& line, int section) {
    MiljkodLine read(line.text);
    if (read.kind == MiljkodLine::Kind::blank) {
        checker.AddBlank(line);
        return;
    }
    if (read.kind == MiljkodLine::Kind::codeTooLong) {
        checker.Add(line.number, Rule::tooLong, "a code over four characters", Loss::line,
                    line.text);
        return;
    }
    if (read.kod.starts_with(';')) {
        checker.Add(line.number, Rule::oddCode, "read as the code \"" + OneLine(read.kod) + '"',
                    Loss::none, line.text);
    }
    checker.LookAtLetters(line.number, read.kod, LineChecker::Letters::kept);
    checker.LookAtLetters(line.number, read.text, LineChecker::Letters::converted);
    if (section == miljkodClasses) {
        LookAtLimits(checker, line, read.text);
    }
    checker.LookAtLength(line.number, "the text", read.text);
}

} // namespace

std::vector<Finding> CheckMiljkod(std::string_view content) {
    LineChecker checker(content);
    int section = -1;
    for (TextLine const& line : checker.Lines()) {
        if (IsStarLine(line.text)) {
            // It ends the header, as section -1, or a section.
            checker.LookAtStar(line, "a line", section < 1 ? Loss::header : Loss::line);
            ++section;
        } else if (section > 0) {
            LookAtRecord(checker, line, section);
        } else if (!IsBlank(line.text)) {
            checker.Add(line.number, Rule::notKept,
                        section < 0 ? "a header" : "section 0, which is empty", Loss::header,
                        line.text);
        }
        if (section == miljkodSections) {
            checker.AddAfterEnd(line.number, "after the fifth line \"*\"");
            break;
        }
    }
    if (section < miljkodSections) {
        checker.Add(checker.LastLine(), Rule::endsEarly,
                    "the file ends after " + std::to_string(section + 1) +
                        " of five lines \"*\": a section is missing, or has no end");
    }
    return checker.Take();
}

} // namespace kvarn
