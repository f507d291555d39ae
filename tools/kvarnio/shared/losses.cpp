#include "losses.h"

#include <iostream>

#include <text/codepage.h>

#include "backup.h"
#include "failure.h"

namespace kvarnio {
namespace {

std::string Counted(std::size_t count, char const* what) {
    return count == 0 ? "" : std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

Losses LossesOf(std::vector<Finding> const& findings) {
    Losses losses;
    for (Finding const& finding : findings) {
        if (finding.loss == Loss::line) {
            losses.lines.push_back(finding);
        }
        losses.blank += finding.loss == Loss::blank ? 1 : 0;
    }
    return losses;
}

void KeepWhatIsLost(std::string const& path, Losses const& losses) {
    if (!losses.None() && !KeepCopy(path)) {
        throw Failure("nothing was written: lines would be dropped, and " + Shown(path) +
                      backupSuffix + ", which would keep them, cannot be made");
    }
}

void PrintLosses(std::string const& path, Losses const& losses) {
    if (losses.None()) {
        return;
    }
    std::string const shown = Shown(path);
    for (Finding const& line : losses.lines) {
        std::cerr << shown << ':' << line.line << ": dropped, " << line.what << ": "
                  << OneLine(line.text) << '\n';
    }
    std::string const both = losses.lines.empty() || losses.blank == 0 ? "" : " and ";
    std::cerr << "kvarnio: dropped " << Counted(losses.lines.size(), "line") << both
              << Counted(losses.blank, "blank line")
              << ", which the format does not keep; the old file is " << shown << backupSuffix
              << '\n';
}

void AddLosses(Json& json, std::string const& path, Losses const& losses) {
    json["backup"] = losses.None() ? Json() : Json(Shown(path) + backupSuffix);
    json["dropped"] = Json::array();
    for (Finding const& line : losses.lines) {
        json["dropped"].push_back(
            {{"line", line.line}, {"why", line.what}, {"text", kvarn::ToUtf8(line.text)}});
    }
    json["blankLinesDropped"] = losses.blank;
}

void WarnOfSharedFile(Context const& context, std::string const& path, std::string const& name) {
    CString const& project = context.project.m_projKat;
    if (!project.IsEmpty() && path != std::string(project) + '\\' + name) {
        std::cerr << "kvarnio: the project has no " << name
                  << " of its own: the shared file was written\n";
    }
}

} // namespace kvarnio
