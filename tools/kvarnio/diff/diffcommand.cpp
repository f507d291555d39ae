// kvarnio diff: what a project has otherwise than the office, or than another project.
#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>

#include <CLI/CLI.hpp>
#include <text/codepage.h>

#include "../codes/codefile.h"
#include "../codes/codereport.h"
#include "../commands.h"
#include "../settings/settingsfile.h"
#include "../shared/copies.h"
#include "../shared/output.h"

namespace kvarnio {
namespace {

// What one of the two has under a name.
struct Held {
    std::string text; // in UTF-8
    Json value;
    std::string source; // a path, or "default"
    std::string place;  // "project", "CFG", "main", "default"
};

struct Difference {
    std::string file;
    std::string name;
    std::optional<Held> first;
    std::optional<Held> second;
};

using Differences = std::vector<Difference>;

std::string PlaceOf(Context const& context, std::string const& name, std::string const& path) {
    for (Copy const& copy : PlacesOf(context, name)) {
        if (copy.path == path) {
            return copy.place;
        }
    }
    return path.empty() ? "default" : "main";
}

// --- Settings ------------------------------------------------------------------------------------

std::optional<Held> HeldBy(Context const& context, SettingsFile const& file,
                           std::string const& key) {
    auto const entry = file.Find(key);
    if (!entry) {
        return std::nullopt;
    }
    return Held{OneLine(entry->value), kvarn::ToUtf8(entry->value), Source(*entry),
                PlaceOf(context, file.Name(), entry->file)};
}

void CompareSettings(Context& first, Context& second, Differences& found) {
    for (std::string const& name : SettingsFile::Names()) {
        SettingsFile const a(first, name);
        SettingsFile const b(second, name);
        auto const compare = [&](std::string const& key) {
            auto held = HeldBy(first, a, key);
            auto other = HeldBy(second, b, key);
            if (held.has_value() != other.has_value() || (held && held->value != other->value)) {
                found.push_back({name, kvarn::ToUtf8(key), std::move(held), std::move(other)});
            }
        };
        for (Entry const& entry : a.Entries()) {
            compare(entry.key);
        }
        for (Entry const& entry : b.Entries()) {
            if (!a.Find(entry.key)) {
                compare(entry.key);
            }
        }
    }
}

// --- Codes ---------------------------------------------------------------------------------------

struct Codes {
    Codes(Context const& context, CodeFormat const& aFormat) : format(aFormat) {
        if (auto const copy = InForce(context, format.fileName)) {
            CodeFile const file(context, format, "");
            path = file.Path();
            place = file.Place();
            records = file.Records();
        }
    }

    bool Has(CodeRecord const& record) const {
        return std::find(records.begin(), records.end(), record) != records.end();
    }
    std::optional<Held> HeldAs(CodeRecord const* record) const {
        return record == nullptr ? std::nullopt
                                 : std::optional(Held{Shown(format, *record),
                                                      ToJson(format, *record), Shown(path), place});
    }

    CodeFormat const& format;
    std::string path;
    std::string place;
    CodeRecords records;
};

// The record's counterpart among those of the other that are not the same; null when it has none.
CodeRecord const* Counterpart(CodeRecord const& record, Codes const& of, Codes const& among) {
    auto const found =
        std::find_if(among.records.begin(), among.records.end(), [&](CodeRecord const& other) {
            return SameKey(of.format, record, other) && !of.Has(other);
        });
    return found != among.records.end() ? &*found : nullptr;
}

void CompareCodes(Context const& first, Context const& second, Differences& found) {
    for (CodeFormat const& format : CodeFormats()) {
        if (format.fileName == nullptr) {
            continue; // no project has one of its own
        }
        Codes const a(first, format);
        Codes const b(second, format);
        auto const add = [&](CodeRecord const* held, CodeRecord const* other) {
            found.push_back({format.fileName, NameOf(format, held != nullptr ? *held : *other),
                             a.HeldAs(held), b.HeldAs(other)});
        };
        for (CodeRecord const& record : a.records) {
            if (!b.Has(record)) {
                add(&record, Counterpart(record, a, b));
            }
        }
        for (CodeRecord const& record : b.records) {
            if (!a.Has(record) && Counterpart(record, b, a) == nullptr) {
                add(nullptr, &record);
            }
        }
    }
}

// --- The answer ----------------------------------------------------------------------------------

Json ToJson(std::optional<Held> const& held) {
    return held ? Json({{"value", held->value}, {"source", held->source}}) : Json();
}

std::string Cell(std::optional<Held> const& held) {
    return held ? held->text + " (" + held->place + ')' : "-";
}

void Print(Differences const& differences, std::string const& first, std::string const& second) {
    std::vector<std::vector<std::string>> rows = {{"FILE", "NAME", first, second}};
    for (Difference const& each : differences) {
        rows.push_back({each.file, each.name, Cell(each.first), Cell(each.second)});
    }
    PrintTable(rows);
}

struct DiffArguments {
    std::string first;
    std::string second;
};

// The folders' names as headings; where both have the same, what the user typed.
std::pair<std::string, std::string> Headings(Context const& first, Context const& second,
                                             DiffArguments const& arguments) {
    auto const name = [](Context const& context) {
        std::string const path = context.project.m_projKat.GetString();
        return path.empty() ? "OFFICE" : Shown(path.substr(path.find_last_of("\\/") + 1));
    };
    return name(first) != name(second) ? std::pair(name(first), name(second))
                                       : std::pair(arguments.first, arguments.second);
}

ExitStatus Diff(Context& context, DiffArguments const& arguments) {
    Context first = context.WithProject(arguments.first);
    Context second = context.WithProject(arguments.second);
    Differences found;
    CompareSettings(first, second, found);
    CompareCodes(first, second, found);
    if (context.json) {
        Json json = Json::array();
        for (Difference const& each : found) {
            json.push_back({{"file", each.file},
                            {"name", each.name},
                            {"first", ToJson(each.first)},
                            {"second", ToJson(each.second)}});
        }
        PrintJson(json);
    } else if (found.empty()) {
        std::cout << "no differences\n";
    } else {
        auto const [heading, other] = Headings(first, second, arguments);
        Print(found, heading, other);
    }
    return found.empty() ? done : failed;
}

} // namespace

void AddDiffCommand(CommandLine& line) {
    auto const arguments = std::make_shared<DiffArguments>();
    CLI::App& diff = line.AddCommand(
        "diff", "Show what a project has otherwise than the office, or than another project",
        "The values of the settings files and the codes of the code files are compared, as "
        "programs take them: from the project, the CFG folder, the main folder or the built-in "
        "defaults, which stand in brackets.\n"
        "Exit status: 0 no differences, 1 differences, 3 a file could not be read.\n"
        "Example: kvarnio diff Vag27 Hamnkajen");
    diff.add_option("PROJECT", arguments->first, "Project folder")->required();
    diff.add_option("OTHER", arguments->second,
                    "Another one; without it the project is compared with the office's files");
    line.Run(diff, [arguments](Context& context) { return Diff(context, *arguments); });
}

} // namespace kvarnio
