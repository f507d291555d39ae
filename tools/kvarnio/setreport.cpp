#include "setreport.h"

#include <iostream>

#include <compat/codepage.h>

#include "backup.h"

namespace kvarnio {
namespace {

std::string ValueOf(Entry const& entry) {
    return OneLine(entry.value) + (entry.file.empty() ? ", the default" : "");
}

std::string Counted(std::size_t count, char const* what) {
    return count == 0 ? "" : std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void PrintChange(std::string const& path, Change const& change) {
    std::cout << path << ": " << kvarn::ToUtf8(change.key);
    if (!change.removed) {
        std::cout << '=' << OneLine(change.now ? change.now->value : "")
                  << (change.was ? " (was " + ValueOf(*change.was) + ")" : " (new)") << '\n';
        return;
    }
    std::cout << " removed (was " << ValueOf(*change.was) << "); now ";
    if (!change.now) {
        std::cout << "without a value\n";
    } else {
        // Only the first line of a key is written, and removed.
        bool const repeated = !change.now->file.empty();
        std::cout << ValueOf(*change.now) << (repeated ? ", from a later line" : "") << '\n';
    }
}

void PrintDropped(std::string const& path, DroppedLines const& dropped) {
    if (dropped.None()) {
        return;
    }
    for (DroppedLine const& line : dropped.lines) {
        std::cerr << path << ':' << line.number << ": dropped, " << line.why << ": "
                  << OneLine(line.text) << '\n';
    }
    std::string const both = dropped.lines.empty() || dropped.blank == 0 ? "" : " and ";
    std::cerr << "kvarnio: dropped " << Counted(dropped.lines.size(), "line") << both
              << Counted(dropped.blank, "blank line")
              << ", which the format does not keep; the old file is " << path << backupSuffix
              << '\n';
}

// A change that was meant for the project and went to everybody.
void WarnOfSharedFile(Context const& context, SettingsFile const& file) {
    CString const& project = context.project.m_projKat;
    if (!file.IsCfg() && !project.IsEmpty() &&
        file.Path() != std::string(project) + '\\' + file.Name()) {
        std::cerr << "kvarnio: the project has no " << file.Name()
                  << " of its own: the shared file was written\n";
    }
}

Json ToJson(SettingsFile const& file, Change const& change) {
    Json json = ToJson(file, change.now.value_or(Entry{change.key, "", ""}));
    json["source"] = change.now ? Json(Source(*change.now)) : Json();
    json["written"] = Shown(file.Path());
    json["backup"] = change.dropped.None() ? Json() : Json(Shown(file.Path()) + backupSuffix);
    json["dropped"] = Json::array();
    for (DroppedLine const& line : change.dropped.lines) {
        json["dropped"].push_back(
            {{"line", line.number}, {"why", line.why}, {"text", kvarn::ToUtf8(line.text)}});
    }
    json["blankLinesDropped"] = change.dropped.blank;
    return json;
}

} // namespace

void Report(Context const& context, SettingsFile const& file, Change const& change) {
    PrintDropped(Shown(file.Path()), change.dropped);
    WarnOfSharedFile(context, file);
    if (context.json) {
        PrintJson(ToJson(file, change));
    } else {
        PrintChange(Shown(file.Path()), change);
    }
}

} // namespace kvarnio
