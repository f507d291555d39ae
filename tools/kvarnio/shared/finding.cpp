#include "finding.h"

#include <algorithm>
#include <iostream>

namespace kvarnio {
namespace {

bool IsNamed(Finding const& finding) {
    return finding.loss != Loss::blank;
}

} // namespace

std::string Told(Finding const& finding) {
    bool const lost = finding.loss == Loss::line || finding.loss == Loss::header;
    return (lost ? "lost when the file is written: " : "") + finding.what +
           (finding.text.empty() ? "" : ": \"" + OneLine(finding.text) + '"');
}

void PrintFindings(std::string const& shownPath, std::vector<Finding> const& findings) {
    for (Finding const& finding : findings) {
        if (IsNamed(finding)) {
            std::cout << shownPath << ':' << finding.line << ": " << Told(finding) << '\n';
        }
    }
    if (IsSound(findings)) {
        std::cout << shownPath << ": no problems\n";
    }
}

void AppendFindings(Json& json, std::string const& shownPath,
                    std::vector<Finding> const& findings) {
    for (Finding const& finding : findings) {
        if (IsNamed(finding)) {
            json.push_back(
                {{"file", shownPath}, {"line", finding.line}, {"problem", Told(finding)}});
        }
    }
}

bool IsSound(std::vector<Finding> const& findings) {
    return std::none_of(findings.begin(), findings.end(), IsNamed);
}

} // namespace kvarnio
