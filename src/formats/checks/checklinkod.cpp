#include "../../text/scan.h"
#include "../../text/text.h"

#include "../linkod.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

constexpr std::size_t textColumn = linkodTextColumn;

enum { number = 2, whole }; // the words of a line

void LookAtCode(LineChecker& checker, TextLine const& line, std::string_view text) {
    bool const shortFamily =
        text.size() == 3 && text.starts_with("PV") && text[2] >= '0' && text[2] <= '9';
    if (shortFamily) {
        checker.Add(line.number, Rule::shortPv,
                    "too short for a \"PV\" code, which has two digits: an ordinary "
                    "one",
                    Loss::none, text);
    }
    checker.LookAtLetters(line.number, text, LineChecker::Letters::converted);
}

// Looks at the word that is read as the whole number: it may be missing, or belong to the text.
void LookAtWhole(LineChecker& checker, TextLine const& line, std::vector<Word> const& words) {
    if (words.size() <= whole) {
        return;
    }
    Word const& found = words[whole];
    if (found.column >= textColumn) {
        std::int32_t ignored = 0;
        if (Scan(found.text, ignored) == 1) {
            checker.Add(line.number, Rule::noWholeNumber,
                        "no whole number, and the one that the text begins with is "
                        "read instead",
                        Loss::none, line.text.substr(found.column));
        }
        return;
    }
    Fault const fault = WholeNumberFault(found.text);
    if (fault) {
        checker.Add(line.number, fault.rule, fault.what, Loss::line,
                    line.text.substr(found.column));
    }
}

// The words before the text's column, where only the first four are read.
void LookAtColumns(LineChecker& checker, TextLine const& line, std::vector<Word> const& words) {
    bool crossing = false;
    for (std::size_t i = 0; i < words.size() && words[i].column < textColumn; ++i) {
        crossing = crossing || words[i].column + words[i].text.size() > textColumn;
    }
    if (crossing) {
        checker.Add(line.number, Rule::textColumn,
                    "a word stands across column 50, where the text begins", Loss::none, line.text);
    }
    if (words.size() > whole + 1 && words[whole + 1].column < textColumn) {
        std::size_t const from = words[whole + 1].column;
        checker.Add(line.number, Rule::textColumn, "words before column 50, where the text begins",
                    Loss::line, TrimmedRight(line.text.substr(from, textColumn - from)));
    }
    if (line.text.substr(0, textColumn).find('\t') != std::string_view::npos) {
        checker.Add(line.number, Rule::textColumn,
                    "a tab before column 50 is one column, whatever editors show", Loss::none,
                    line.text);
    }
}

void LookAtRecord(LineChecker& checker, TextLine const& line, std::vector<Word> const& words) {
    LinkodLine const read(line.text);
    if (!read.IsRead()) {
        checker.Add(line.number, Rule::tooFewWords,
                    "fewer than three values, code, word and number", Loss::line, line.text);
        return;
    }
    if (Fault const fault = NumberFault(words[number].text)) {
        checker.Add(line, fault);
    }
    LookAtCode(checker, line, read.kod);
    checker.LookAtLength(line.number, "the code", read.kod);
    checker.LookAtLength(line.number, "the word", read.ord);
    checker.LookAtLetters(line.number, read.ord, LineChecker::Letters::kept);
    LookAtWhole(checker, line, words);
    LookAtColumns(checker, line, words);
    checker.LookAtLength(line.number, "the text", read.text);
    checker.LookAtLetters(line.number, read.text, LineChecker::Letters::converted);
}

} // namespace

std::vector<Finding> CheckLinkod(std::string_view content) {
    LineChecker checker(content);
    checker.LookAtRecords(LookAtRecord);
    return checker.Take();
}

} // namespace kvarn
