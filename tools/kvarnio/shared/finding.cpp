#include "finding.h"

#include <algorithm>
#include <iostream>

#include <files/infile.h>

namespace kvarnio {
namespace {

// "what", or `what: "text"`.
std::string Told(Finding const& finding) {
    return finding.what + (finding.text.empty() ? "" : ": \"" + OneLine(finding.text) + '"');
}

std::string Place(std::string const& shownPath, Finding const& finding) {
    return finding.line > 0 ? shownPath + ':' + std::to_string(finding.line) : shownPath;
}

bool IsNamed(Finding const& finding) {
    return finding.loss != Loss::blank;
}

} // namespace

void PrintFindings(std::string const& shownPath, std::vector<Finding> const& findings) {
    for (Finding const& finding : findings) {
        if (IsNamed(finding)) {
            bool const lost = finding.HowBad() == kvarn::Severity::lost;
            std::cout << Place(shownPath, finding) << ": "
                      << (lost ? "lost when the file is written: " : "") << Told(finding) << " ["
                      << TextOf(finding.rule).name << "]\n";
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
            json.push_back({{"file", shownPath},
                            {"line", finding.line > 0 ? Json(finding.line) : Json()},
                            {"rule", TextOf(finding.rule).name},
                            {"severity", NameOf(finding.HowBad())},
                            {"problem", Told(finding)}});
        }
    }
}

bool IsSound(std::vector<Finding> const& findings) {
    return std::none_of(findings.begin(), findings.end(), IsNamed);
}

std::vector<Finding> FindingsOf(std::string const& path, ContentCheck const& check) {
    auto const content = kvarn::WholeFile(path.c_str());
    return content ? check(*content)
                   : std::vector<Finding>{{0, Rule::unreadable, "cannot be read"}};
}

ExitStatus StatusOf(std::vector<Finding> const& findings) {
    bool const unread = std::any_of(findings.begin(), findings.end(), [](Finding const& finding) {
        return finding.rule == Rule::unreadable;
    });
    return unread ? notDone : IsSound(findings) ? done : failed;
}

} // namespace kvarnio
