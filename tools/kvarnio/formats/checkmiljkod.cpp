#include <text/scan.h>
#include <text/text.h>

#include "filechecks.h"
#include "linechecker.h"

namespace kvarnio {
namespace {

constexpr int sections = 4; // 0 to 3, each ended by a star line, as the header is
constexpr int classes = 3;  // the section whose lines end in max= and steg=

// Where a name and "=" last stand, in any case.
std::size_t FindLast(std::string_view text, std::string_view name) {
    for (std::size_t i = text.size(); i-- > 0;) {
        if (kvarn::SameText(text.substr(i, name.size()), name)) {
            return i;
        }
    }
    return std::string_view::npos;
}

struct Limit {
    char const* name;
    int least;
    char const* otherwise;
};

// Takes a number that ends the text off it. What is wrong with it; empty when nothing is.
std::string TakeLimit(std::string_view& text, Limit const& limit) {
    constexpr int most = 100000;
    std::string const otherwise = std::string(", ") + limit.otherwise + " is read";
    std::string_view const name = limit.name;
    std::size_t const at = FindLast(text, name);
    if (at == std::string_view::npos) {
        return "no " + std::string(name) + otherwise;
    }
    auto const words = Words(text.substr(at + name.size()));
    std::string_view const number = words.empty() ? "" : words[0].text;
    std::int32_t value = 0;
    bool const isNumber = kvarn::Scan(number, value) == 1;
    if (words.size() > 1) {
        return "text after " + std::string(name) + std::string(number);
    }
    bool const blankBefore = at > 0 && IsBlank(text.substr(at - 1, 1));
    text = kvarn::TrimmedRight(text.substr(0, at));
    if (!isNumber || value < limit.least || value > most) {
        return std::string(name) + std::string(number) + otherwise;
    }
    if (std::string const fault = WholeNumberFault(number); !fault.empty()) {
        return std::string(name) + fault;
    }
    if (text.empty()) {
        return "no text before " + std::string(name) + otherwise;
    }
    return blankBefore ? "" : "no blank before " + std::string(name) + ", a letter is lost";
}

// Takes the limits off the text.
void LookAtLimits(LineChecker& checker, TextLine const& line, std::string_view& text) {
    std::size_t const step = FindLast(text, "steg=");
    std::size_t const most = FindLast(text, "max=");
    if (step != std::string_view::npos && most != std::string_view::npos && most > step) {
        checker.Add(line.number, "max= stands after steg= and is not read", Loss::line, line.text);
        return;
    }
    constexpr Limit limits[] = {{"steg=", 1, "20"}, {"max=", 0, "100"}};
    for (Limit const& limit : limits) {
        std::string const fault = TakeLimit(text, limit);
        if (!fault.empty()) {
            checker.Add(line.number, fault, Loss::none, line.text);
        }
    }
}

void LookAtRecord(LineChecker& checker, TextLine const& line, int section) {
    constexpr std::size_t longestCode = 4;
    auto const words = Words(line.text);
    if (words.empty()) {
        checker.Add(line.number, "", Loss::blank);
        return;
    }
    std::string_view const code = words[0].text;
    if (code.size() > longestCode) {
        checker.Add(line.number, "a code over four characters", Loss::line, line.text);
        return;
    }
    if (code.starts_with(';')) {
        checker.Add(line.number, "read as the code \"" + OneLine(code) + '"', Loss::none,
                    line.text);
    }
    std::string_view text = kvarn::Trimmed(line.text.substr(words[0].column + code.size()));
    checker.LookAtLetters(line.number, code, LineChecker::Letters::kept);
    checker.LookAtLetters(line.number, text, LineChecker::Letters::converted);
    if (section == classes) {
        LookAtLimits(checker, line, text);
    }
    checker.LookAtLength(line.number, "the text", text);
}

// A star line ends the header, as section -1, or a section.
void LookAtStar(LineChecker& checker, TextLine const& line, int section) {
    if (line.text.size() > 1) {
        checker.Add(line.number, "text on a line \"*\"", section < 1 ? Loss::header : Loss::line,
                    line.text.substr(1));
    }
}

} // namespace

std::vector<Finding> CheckMiljkod(std::string_view content) {
    LineChecker checker(content);
    int section = -1;
    for (TextLine const& line : checker.Lines()) {
        if (line.text.starts_with('*')) {
            LookAtStar(checker, line, section++);
        } else if (section > 0) {
            LookAtRecord(checker, line, section);
        } else if (!IsBlank(line.text)) {
            checker.Add(line.number, section < 0 ? "a header" : "section 0, which is empty",
                        Loss::header, line.text);
        }
        if (section == sections) {
            checker.AddUnread(line.number, "after the fifth line \"*\"");
            break;
        }
    }
    if (section < sections) {
        checker.Add(checker.LastLine(),
                    "the file ends after " + std::to_string(section + 1) +
                        " of five lines \"*\": a section is missing, or has no end");
    }
    return checker.Take();
}

} // namespace kvarnio
