#include "losses.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include <files/existence.h>
#include <files/infile.h>
#include <text/codepage.h>

#include "backup.h"
#include "copies.h"
#include "failure.h"
#include "platform.h"

namespace kvarnio {
namespace {

std::string Counted(std::size_t count, char const* what) {
    return count == 0 ? "" : std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// False when the copy cannot be given another name.
bool SetAside(std::string const& kept) {
    int number = 2;
    std::string aside;
    do {
        aside = kept + std::to_string(number++);
    } while (kvarn::IsThere(aside.c_str()));
    if (Exists(aside)) {
        return false; // it cannot be looked at
    }
    std::error_code error;
    std::filesystem::rename(HostPath(kept), HostPath(aside), error);
    return !error;
}

// Makes the copy beside the file the file. Another copy with lines that the file has dropped gets
// out of the way first. False when that failed, and when it is not known what another copy holds.
bool KeepAsCopy(std::string const& path, FormatCheck const& check) {
    std::string const kept = path + backupSuffix;
    auto const earlier = kvarn::WholeFile(kept.c_str());
    if (!earlier) {
        return !Exists(kept) && KeepCopy(path);
    }
    if (earlier == kvarn::WholeFile(path.c_str())) {
        return true;
    }
    return (LossesOf(check(*earlier)).lines.empty() || SetAside(kept)) && KeepCopy(path);
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

void KeepOld(std::string const& path, Losses& losses, FormatCheck const& check) {
    if (path.empty() || !Exists(path)) {
        return;
    }
    if (!KeepAsCopy(path, check)) {
        throw IoFailure("nothing was written: " + Shown(path) + backupSuffix +
                        ", which would keep the old file, cannot be made");
    }
    losses.kept = Shown(path) + backupSuffix;
}

void PrintLosses(std::string const& path, Losses const& losses) {
    if (losses.None()) {
        return;
    }
    std::string const shown = Shown(path);
    for (Finding const& line : losses.lines) {
        std::cerr << shown << ':' << line.line
                  << (losses.kept.empty() ? ": would be dropped, " : ": dropped, ") << line.what
                  << ": " << OneLine(line.text) << '\n';
    }
    std::string const both = losses.lines.empty() || losses.blank == 0 ? "" : " and ";
    std::cerr << "kvarnio: " << (losses.kept.empty() ? "would drop " : "dropped ")
              << Counted(losses.lines.size(), "line") << both << Counted(losses.blank, "blank line")
              << ", which the format does not keep"
              << (losses.kept.empty() ? "" : "; the old file is " + losses.kept) << '\n';
}

void AddLosses(Json& json, Losses const& losses) {
    json["backup"] = losses.kept.empty() ? Json() : Json(losses.kept);
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
        std::cerr << "kvarnio: the project has no " << name << " of its own: the shared file "
                  << (context.dryRun ? "would be" : "was") << " written\n";
    }
}

} // namespace kvarnio
