// kvarnio dir: a folder's entries, as programs list them.
#include <algorithm>
#include <map>
#include <memory>

#include <CLI/CLI.hpp>
#include <text/codepage.h>

#include "../commands.h"
#include "../shared/output.h"
#include "../shared/platform.h"

namespace kvarnio {
namespace {

struct DirArguments {
    std::string pattern;
    std::string sort = "name";
    bool reverse = false;
    bool folders = false;
};

// The library's sort keys.
std::map<std::string, int> const& SortKeys() {
    static std::map<std::string, int> const keys = {{"name", 1}, {"size", 2}, {"date", 3}};
    return keys;
}

ExitStatus Dir(Context& context, DirArguments const& arguments) {
    constexpr int emptied = 1;
    constexpr int mode = 0;
    CDirSort list;
    list.Init(LibraryPath(arguments.pattern).c_str(), SortKeys().at(arguments.sort), emptied, mode,
              arguments.folders ? 1 : 0);
    std::vector<dirsorttype> entries;
    for (bool there = list.Home() == 0; there; there = list++ != nullptr) {
        entries.push_back(*list.Get_aktel());
    }
    if (arguments.reverse) {
        std::reverse(entries.begin(), entries.end());
    }
    Json json = Json::array();
    std::vector<std::vector<std::string>> rows = {{"NAME", "SIZE", "DATE", "TIME", "SHORT"}};
    for (dirsorttype const& entry : entries) {
        json.push_back({{"name", kvarn::ToUtf8(entry.namn)},
                        {"size", entry.storlek},
                        {"date", entry.datum},
                        {"time", entry.tid},
                        {"short", kvarn::ToUtf8(entry.kortNamn)}});
        rows.push_back({OneLine(entry.namn), std::to_string(entry.storlek), entry.datum, entry.tid,
                        OneLine(entry.kortNamn)});
    }
    if (entries.empty() && !context.json) {
        throw Failure("nothing matches " + arguments.pattern);
    }
    context.json ? PrintJson(json) : PrintTable(rows);
    return entries.empty() ? failed : done;
}

} // namespace

void AddDirCommand(CommandLine& line) {
    auto const arguments = std::make_shared<DirArguments>();
    CLI::App& dir = line.AddCommand(
        "dir", "List the files that match a pattern",
        "Names are sorted by the number that they begin with, then as texts. Files of 1 to 999 "
        "bytes count\nas 1000, as programs show them.\n"
        "Example: kvarnio dir 'C:\\Projekt\\Vag27\\*.PAR' --sort date");
    dir.add_option("PATTERN", arguments->pattern, "Path whose last part may hold * and ?")
        ->required();
    dir.add_option("--sort", arguments->sort, "name, size or date; name without it")
        ->type_name("BY")
        ->check(CLI::IsMember(SortKeys()));
    dir.add_flag("--reverse", arguments->reverse, "The last first");
    dir.add_flag("--folders", arguments->folders, "Folders too");
    line.Run(dir, [arguments](Context& context) { return Dir(context, *arguments); });
}

} // namespace kvarnio
