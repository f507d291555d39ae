// kvarnio materials.
#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>
#include <numbers>

#include <CLI/CLI.hpp>
#include <geodata/materialtable.h>
#include <kvarnprog.h>
#include <text/codepage.h>
#include <text/text.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/backup.h"
#include "../shared/copies.h"
#include "../shared/output.h"

namespace kvarnio {
namespace {

using kvarn::MaterialKind;

struct Materials {
    char const* FileName() const {
        return norwegian ? CBergOrMateLista::FILNAMNN : CBergOrMateLista::FILNAMN;
    }

    MaterialKind kind{};
    bool norwegian = false;
};

struct MaterialsArguments {
    Materials materials;
    std::vector<std::string> wanted; // numbers and names to find
};

// Where an entry comes from.
struct Source {
    bool isBuiltIn;
    std::size_t line = 0; // of the file that gave or changed it; 0 for none
};

struct List {
    std::optional<Copy> file;
    std::vector<bergmattype> entries;
    std::vector<Source> sources;
};

// The line that made or changed each entry, by the file's own rule: the first entry with a line's
// number is its.
void AddSources(List& list, Materials const& materials) {
    std::size_t const builtIn = kvarn::MaterialTable(materials.kind, materials.norwegian).size();
    list.sources.assign(builtIn + 1, {true});
    if (list.file && kvarn::HasSection(materials.kind)) {
        std::string const content = ReadWhole(list.file->path);
        kvarn::LineReader lines{std::string_view(content)};
        kvarn::MaterialReader section(lines, materials.kind, materials.norwegian);
        for (kvarn::MaterialLine line; section.Next(line);) {
            if (!line.IsRead() || line.isShift || list.sources.size() > list.entries.size()) {
                continue;
            }
            std::size_t entry = 0; // that the line changes, or becomes
            while (entry < list.sources.size() &&
                   !(line.changes && list.entries.at(entry).nr == *line.changes)) {
                ++entry;
            }
            if (entry < list.sources.size()) {
                list.sources[entry].line = line.line.number;
            } else {
                list.sources.push_back({false, line.line.number});
            }
        }
    }
    if (list.sources.size() != list.entries.size()) {
        throw IoFailure("the material file has changed while it was read");
    }
}

List Read(Context& context, Materials const& materials, CBergOrMateLista& library) {
    List list;
    list.file = InForce(context, materials.FileName());
    library.Init();
    for (bool there = library.Home() == 0; there; there = library++ != nullptr) {
        list.entries.push_back(*library.Get_aktel());
    }
    AddSources(list, materials);
    return list;
}

// --- The table -----------------------------------------------------------------------------------

std::string Told(Source const& source) {
    if (source.line == 0) {
        return "built-in";
    }
    std::string const line = "line " + std::to_string(source.line);
    return source.isBuiltIn ? "built-in, changed by " + line : line;
}

char const* Word(Source const& source) {
    return !source.isBuiltIn ? "file" : source.line == 0 ? "built-in" : "changed";
}

double Degrees(double radians) {
    constexpr double halfTurn = 180;
    constexpr double exact = 1e9; // the library's half turn has twelve digits
    return std::round(radians * halfTurn / std::numbers::pi * exact) / exact;
}

Json ToJson(bergmattype const& entry, Source const& source) {
    return {{"number", entry.nr},
            {"name", kvarn::ToUtf8(entry.namn)},
            {"text", kvarn::ToUtf8(entry.text)},
            {"scale", entry.skala},
            {"pattern", entry.monster},
            {"degrees", Degrees(entry.vinkel)},
            {"radians", entry.vinkel},
            {"flag", entry.flagga},
            {"source", Word(source)},
            {"line", source.line == 0 ? Json() : Json(source.line)}};
}

void PrintTableOf(List const& list) {
    std::vector<std::vector<std::string>> rows = {
        {"NUMBER", "NAME", "TEXT", "SCALE", "PATTERN", "DEGREES", "RADIANS", "FLAG", "SOURCE"}};
    for (std::size_t i = 0; i < list.entries.size(); ++i) {
        bergmattype const& entry = list.entries[i];
        rows.push_back({std::to_string(entry.nr), OneLine(entry.namn), OneLine(entry.text),
                        Shortest(entry.skala), std::to_string(entry.monster),
                        Shortest(Degrees(entry.vinkel)), Shortest(entry.vinkel),
                        std::to_string(entry.flagga), Told(list.sources[i])});
    }
    PrintTable(rows);
}

std::string FileOf(List const& list, Materials const& materials) {
    if (!kvarn::HasSection(materials.kind)) {
        return "built-in: no file changes soil";
    }
    return list.file ? Shown(list.file->path)
                     : std::string("built-in: there is no ") + materials.FileName();
}

ExitStatus ShowList(Context& context, Materials const& materials, List const& list) {
    if (!context.json) {
        std::cout << FileOf(list, materials) << '\n';
        PrintTableOf(list);
        return done;
    }
    bool const hasFile = list.file && kvarn::HasSection(materials.kind);
    Json json = {{"file", hasFile ? Json(Shown(list.file->path)) : Json()},
                 {"place", hasFile ? Json(list.file->place) : Json()},
                 {"materials", Json::array()}};
    for (std::size_t i = 0; i < list.entries.size(); ++i) {
        json["materials"].push_back(ToJson(list.entries[i], list.sources[i]));
    }
    PrintJson(json);
    return done;
}

// --- find ----------------------------------------------------------------------------------------

struct Found {
    std::string asked;
    std::optional<bergmattype> entry;
};

bool IsNumber(std::string const& typed) {
    std::size_t const digits = typed.starts_with('-') ? 1 : 0;
    return typed.size() > digits &&
           typed.find_first_not_of("0123456789", digits) == std::string::npos;
}

// The library's searches leave the current entry where they found something.
Found Find(CBergOrMateLista& library, Materials const& materials, std::string const& typed) {
    if (IsNumber(typed)) {
        int const number = WholeNumber("NUMBER", typed);
        library.Find(number);
        bool const there = library.Get_aktel()->nr == number;
        return {typed, there ? std::optional(*library.Get_aktel()) : std::nullopt};
    }
    constexpr std::size_t codeOfSoil = 3; // with blanks
    std::string name = Text("NAME", typed);
    if (materials.kind == MaterialKind::soil) {
        name.resize(std::max(name.size(), codeOfSoil), ' ');
    }
    CString sought(name.c_str());
    library.FindNr(sought);
    bool const there = kvarn::SameText(library.Get_aktel()->namn, name);
    return {typed, there ? std::optional(*library.Get_aktel()) : std::nullopt};
}

ExitStatus ShowFound(Context& context, CBergOrMateLista& library,
                     MaterialsArguments const& arguments) {
    bool all = true;
    Json json = Json::array();
    std::vector<std::vector<std::string>> rows = {{"ASKED", "NUMBER", "NAME"}};
    for (std::string const& typed : arguments.wanted) {
        auto const [asked, entry] = Find(library, arguments.materials, typed);
        all = all && entry;
        json.push_back({{"asked", asked},
                        {"number", entry ? Json(entry->nr) : Json()},
                        {"name", entry ? Json(kvarn::ToUtf8(entry->namn)) : Json()}});
        rows.push_back({asked, entry ? std::to_string(entry->nr) : "not in the list",
                        entry ? OneLine(entry->namn) : ""});
    }
    context.json ? PrintJson(json) : PrintTable(rows);
    return all ? done : failed;
}

ExitStatus Run(Context& context, MaterialsArguments const& arguments) {
    Materials const& materials = arguments.materials;
    CBergOrMateLista library(&context.ini, &context.project, static_cast<int>(materials.kind),
                             materials.norwegian ? 1 : 0);
    List const list = Read(context, materials, library);
    return arguments.wanted.empty() ? ShowList(context, materials, list)
                                    : ShowFound(context, library, arguments);
}

void AddList(CommandLine& line, CLI::App& materials, MaterialKind kind, char const* name,
             char const* what) {
    auto const arguments = std::make_shared<MaterialsArguments>();
    arguments->materials.kind = kind;
    auto const run = [arguments](Context& context) { return Run(context, *arguments); };
    auto const addLanguage = [&](CLI::App& command) {
        command.add_flag("--norwegian", arguments->materials.norwegian,
                         "The Norwegian list and its file");
    };
    CLI::App& list = CommandLine::AddCommand(materials, name, what, "");
    addLanguage(list);
    CLI::App& find = CommandLine::AddCommand(
        list, "find", "Find names by their numbers, and numbers by their names",
        "Of several entries programs find the first. Exit status: 1 where one is not there.");
    find.add_option("WANTED", arguments->wanted, "Numbers, or names in any case")->required();
    addLanguage(find);
    line.Run(find, run);
    line.Run(list, run);
}

} // namespace

void AddMaterialsCommand(CommandLine& line) {
    CLI::App& materials = line.AddGroup(
        "materials", "Show the materials of drawings, and where each comes from",
        "Rock and fill are built in, and completed and changed by Stenkod.dat (Norwegian: "
        "StenkodN.dat), which is\ntaken from the project folder, else the CFG folder, else the "
        "main folder.\nExample: kvarnio materials rock find 3 Kv --project .");
    AddList(line, materials, MaterialKind::rock, "rock", "Kinds of rock");
    AddList(line, materials, MaterialKind::fill, "fill", "Fill materials");
    AddList(line, materials, MaterialKind::soil, "soil", "Kinds of soil");
}

} // namespace kvarnio
