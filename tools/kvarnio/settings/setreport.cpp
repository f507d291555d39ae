#include "setreport.h"

#include <iostream>

#include <text/codepage.h>

namespace kvarnio {
namespace {

std::string ValueOf(Entry const& entry) {
    return OneLine(entry.value) + (entry.file.empty() ? ", the default" : "");
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

Json ToJson(SettingsFile const& file, Change const& change, Losses const& losses,
            Json const& written) {
    Json json = ToJson(file, change.now.value_or(Entry{change.key, "", ""}));
    json["source"] = change.now ? Json(Source(*change.now)) : Json();
    json["written"] = written;
    AddLosses(json, losses);
    return json;
}

} // namespace

void Report(Context const& context, SettingsFile const& file, std::vector<Change> const& changes,
            Losses const& losses) {
    PrintLosses(file.Path(), losses);
    if (!file.IsCfg()) {
        WarnOfSharedFile(context, file.Path(), file.Name());
    }
    if (!context.json) {
        std::string const path = (context.dryRun ? "would be written: " : "") + Shown(file.Path());
        for (Change const& change : changes) {
            PrintChange(path, change);
        }
        return;
    }
    Json all = Json::array();
    for (Change const& change : changes) {
        all.push_back(
            ToJson(file, change, losses, context.dryRun ? Json() : Json(Shown(file.Path()))));
    }
    PrintJson(changes.size() == 1 ? all.front() : all);
}

} // namespace kvarnio
