// kvarnio local.
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>
#include <files/existence.h>
#include <files/infile.h>
#include <kvarnfiles/defaults.h>
#include <kvarnfiles/localfiles.h>
#include <project/searchorder.h>

#include "../commands.h"
#include "../shared/copies.h"
#include "../shared/output.h"

namespace kvarnio {
namespace {

struct LocalArguments {
    bool rock = false;
    bool overwrite = false;
};

using kvarn::LocalFile;

std::vector<LocalFile> LocalFiles(LocalArguments const& arguments) {
    return arguments.rock ? kvarn::RockDrillingFiles() : kvarn::DrawingFiles();
}

bool IsMade(LocalFile const& file) { // where there is nothing to copy
    return file.empty != nullptr;
}

std::string InProject(Context const& context, LocalFile const& file) {
    return PlacesOf(context, file.name).front().path;
}

// The file that a project's own copy is made from.
std::string SourceOf(Context const& context, LocalFile const& file) {
    return kvarn::SharedCopy(&context.ini, file.name).GetString();
}

// --- status --------------------------------------------------------------------------------------

// A project's first file tells whether it has the others; programs then copy what it lacks.
void PrintSummary(Context const& context, std::vector<LocalFile> const& files) {
    char const* const decisive = files.front().name;
    if (!Exists(InProject(context, files.front()))) {
        std::cout << "The project has no settings of its own: it has no " << decisive << ".\n";
        return;
    }
    std::string missing;
    for (LocalFile const& file : files) {
        bool const copied = IsMade(file) || !SourceOf(context, file).empty();
        if (copied && !Exists(InProject(context, file))) {
            missing.append(missing.empty() ? "" : ", ").append(file.name);
        }
    }
    std::cout << "The project has settings of its own: it has " << decisive << ".\n"
              << (missing.empty() ? "" : "Programs will copy what it lacks: " + missing + ".\n");
}

ExitStatus Status(Context& context, LocalArguments const& arguments) {
    std::vector<LocalFile> const files = LocalFiles(arguments);
    std::vector<std::vector<std::string>> rows = {{"FILE", "IN FORCE", "PATH"}};
    Json json = Json::array();
    for (LocalFile const& file : files) {
        auto const copy = InForce(context, file.name);
        std::string const place = copy                                    ? copy->place
                                  : !kvarn::DefaultsOf(file.name).empty() ? "default"
                                                                          : "none";
        json.push_back({{"file", file.name},
                        {"place", place},
                        {"path", copy ? Json(Shown(copy->path)) : Json()}});
        rows.push_back({file.name, place, copy ? Shown(copy->path) : ""});
    }
    context.json ? PrintJson(json) : PrintTable(rows);
    if (!context.json && !context.project.m_projKat.IsEmpty()) {
        PrintSummary(context, files);
    }
    return done;
}

// --- create --------------------------------------------------------------------------------------

struct Outcome {
    std::string file;
    std::string what; // "kept", "created", "replaced", "removed", "none", "failed"
    std::string from; // the copy's source
};

ExitStatus Told(Context const& context, std::vector<Outcome> const& outcomes) {
    Json json = Json::array();
    bool failure = false;
    for (Outcome const& outcome : outcomes) {
        failure = failure || outcome.what == "failed";
        json.push_back({{"file", Shown(outcome.file)},
                        {"result", outcome.what},
                        {"from", outcome.from.empty() ? Json() : Json(Shown(outcome.from))}});
        if (!context.json) {
            std::cout << Shown(outcome.file) << ": " << outcome.what
                      << (outcome.from.empty() ? "" : ", a copy of " + Shown(outcome.from)) << '\n';
        }
    }
    if (context.json) {
        PrintJson(json);
    }
    return failure ? failed : done;
}

struct Before {
    LocalFile file;
    std::string path;
    bool existed;
};

std::vector<Before> StateOf(Context const& context, LocalArguments const& arguments) {
    std::vector<Before> state;
    for (LocalFile const& file : LocalFiles(arguments)) {
        std::string path = InProject(context, file);
        bool const existed = Exists(path);
        state.push_back({file, std::move(path), existed});
    }
    return state;
}

Outcome Created(Context const& context, Before const& before, bool overwrite) {
    std::string const from = SourceOf(context, before.file);
    bool const replace = overwrite && before.file.isReplaced;
    if (before.existed && !replace) {
        bool const isThere = kvarn::IsThere(before.path.c_str()); // it can be looked at
        return {before.path, isThere ? "kept" : "failed", ""};
    }
    if (from.empty() && !IsMade(before.file)) {
        return {before.path, "none", ""};
    }
    auto const copy = kvarn::WholeFile(before.path.c_str());
    bool const same = from.empty() || (copy && copy == kvarn::WholeFile(from.c_str()));
    if (!Exists(before.path) || !same) {
        return {before.path, "failed", from};
    }
    return {before.path,
            before.existed ? "replaced"
            : from.empty() ? "created empty"
                           : "created",
            from};
}

ExitStatus Create(Context& context, LocalArguments const& arguments) {
    RequireProject(context);
    constexpr int withParFile = 1;
    int const overwrite = arguments.overwrite ? 1 : 0;
    auto const before = StateOf(context, arguments);
    arguments.rock ? context.settings.CreateLokalStenFil(overwrite)
                   : context.settings.CreateLokalaFiler(overwrite, withParFile);
    std::vector<Outcome> outcomes;
    outcomes.reserve(before.size());
    for (Before const& file : before) {
        outcomes.push_back(Created(context, file, arguments.overwrite));
    }
    return Told(context, outcomes);
}

// --- remove --------------------------------------------------------------------------------------

ExitStatus Remove(Context& context, LocalArguments const& arguments) {
    RequireProject(context);
    auto const before = StateOf(context, arguments);
    arguments.rock ? context.settings.RemoveLokalStenFil() : context.settings.RemoveLokalaFiler();
    std::vector<Outcome> outcomes;
    for (Before const& file : before) {
        if (file.existed) {
            outcomes.push_back({file.path, Exists(file.path) ? "failed" : "removed", ""});
        }
    }
    if (outcomes.empty() && !context.json) {
        throw Failure("nothing to remove: the project has no such files");
    }
    ExitStatus const status = Told(context, outcomes);
    return outcomes.empty() ? failed : status;
}

} // namespace

void AddLocalCommand(CommandLine& line) {
    CLI::App& local = line.AddGroup(
        "local", "A project's own copies of the settings and code files",
        "A project with a KVARNBOK.PAR has settings of its own; programs then copy the others of "
        "the set\nthat it lacks.\nExample: kvarnio local create --project .");
    auto const arguments = std::make_shared<LocalArguments>();
    auto const add = [&](char const* name, char const* what, char const* footer,
                         ExitStatus (*run)(Context&, LocalArguments const&)) -> CLI::App& {
        CLI::App& command = CommandLine::AddCommand(local, name, what, footer);
        command.add_flag("--rock", arguments->rock,
                         std::string("The rock-drilling program's ") + CProjPath::StenParNamn +
                             " instead");
        line.Run(command, [arguments, run](Context& context) { return run(context, *arguments); });
        return command;
    };
    add("status", "Show which copy of each file is in force", "", Status);
    add("create", "Copy the shared files into the project that it does not have",
        "Where there is nothing to copy an empty file is made.", Create)
        .add_flag("--overwrite", arguments->overwrite,
                  "Replace the code files and the scales, never the others");
    add("remove", "Delete the project's copies: the shared files count again", "", Remove);
}

} // namespace kvarnio
