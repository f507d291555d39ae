#include "checkvagfil.h"

#include <string>

#include "../../text/scan.h"
#include "../../text/shown.h"
#include "linechecker.h"

namespace kvarn {
namespace {

// Why a line gives no vertex; empty for one that does, or is meant not to.
char const* WhySkipped(VagfilLine const& line) {
    double number = 0;
    switch (line.kind) {
    case VagfilLine::Kind::bad:
        return "not four numbers";
    case VagfilLine::Kind::badProfileVertex:
        return "not three numbers";
    case VagfilLine::Kind::heading:
        return Scan(line.line.text, number) == 1 ? R"(it stands where "Profil" and "*" do)" : "";
    default:
        return "";
    }
}

bool IsSkipped(VagfilLine const& line) {
    return *WhySkipped(line) != '\0';
}

// Decimal commas are told by name: a whole file may have them.
Rule RuleOfSkipped(TextLine const& line) {
    for (Word const& word : Words(line.text)) {
        if (Fault const fault = NumberFault(word.text); fault.rule == Rule::decimalComma && fault) {
            return Rule::decimalComma;
        }
    }
    return Rule::badLine;
}

void LookAtHeader(LineChecker& checker, TextLine const& line) {
    VagfilHeader const header(line.text);
    if (header.name.size() > longestVagnamn) {
        checker.Add(line.number, Rule::tooLong,
                    "the name has " + std::to_string(header.name.size()) + " characters; " +
                        std::to_string(longestVagnamn) + " are read",
                    Loss::line, header.name.substr(longestVagnamn));
    }
    if (!header.afterName.empty()) {
        checker.Add(line.number, Rule::extraWords, "the name ends at its second \"$\"", Loss::line,
                    header.afterName);
    }
    checker.LookAtLetters(line.number, header.name, LineChecker::Letters::converted);
}

void LookAtLine(LineChecker& checker, VagfilLine const& line) {
    TextLine const& found = line.line;
    if (IsSkipped(line)) {
        Rule const rule = RuleOfSkipped(found);
        checker.Add(found.number, rule,
                    std::string("bad line, skipped: ") + WhySkipped(line) +
                        (rule == Rule::decimalComma ? ", for the decimal sign is a point" : ""),
                    Loss::line, found.text);
    } else if (line.hasRest && found.number > 1) { // a decimal comma in the last number, for one
        checker.Add(found.number,
                    RuleOfSkipped(found) == Rule::decimalComma ? Rule::decimalComma
                                                               : Rule::extraWords,
                    "text after the numbers", Loss::line, found.text);
    }
}

} // namespace

VagfilContent ReadVagfil(std::string_view content) {
    VagfilContent read;
    VagfilReader lines(content);
    for (VagfilLine line; lines.Next(line);) {
        if (IsSkipped(line)) {
            ++read.skipped;
        } else if (line.kind == VagfilLine::Kind::profileVertex) {
            read.profile.Add(line);
        } else if (line.kind == VagfilLine::Kind::vertex) {
            read.plan.Add(line);
        }
    }
    return read;
}

std::vector<Finding> CheckVagfil(std::string_view content) {
    LineChecker checker(content);
    VagfilReader lines(checker.IsReadable() ? content : std::string_view());
    for (VagfilLine line; lines.Next(line);) {
        LookAtLine(checker, line);
        if (line.line.number == 1 && !IsSkipped(line)) {
            LookAtHeader(checker, line.line);
        }
    }
    return checker.Take();
}

} // namespace kvarn
