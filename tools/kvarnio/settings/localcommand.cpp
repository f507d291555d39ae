// kvarnio local.
#include <algorithm>
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
#include "../shared/losses.h"
#include "../shared/output.h"
#include "../shared/platform.h"
#include "../shared/removed.h"

namespace kvarnio {
namespace {

struct LocalArguments {
    bool rock = false;
    bool overwrite = false;
    bool yes = false;
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
            std::cout << (context.dryRun ? "in a dry run: " : "") << Shown(outcome.file) << ": "
                      << outcome.what
                      << (outcome.from.empty() ? "" : ", a copy of " + Shown(outcome.from)) << '\n';
        }
    }
    if (context.json) {
        PrintJson(json);
    }
    return failure ? notDone : done;
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

// What becomes of a file, and what it is made from.
Outcome Expected(Context const& context, Before const& before, bool overwrite) {
    std::string const from = SourceOf(context, before.file);
    if (before.existed && !(overwrite && before.file.isReplaced)) {
        bool const isThere = kvarn::IsThere(before.path.c_str()); // it can be looked at
        return {before.path, isThere ? "kept" : "failed", ""};
    }
    if (from.empty() && !IsMade(before.file)) {
        return {before.path, "none", ""};
    }
    if (IsFolder(before.path)) {
        return {before.path, "failed", from};
    }
    return {before.path,
            before.existed ? "replaced"
            : from.empty() ? "created empty"
                           : "created",
            from};
}

bool IsWritten(Outcome const& outcome) {
    return outcome.what == "replaced" || outcome.what.starts_with("created");
}

Outcome Created(Outcome expected) {
    if (IsWritten(expected)) {
        auto const copy = kvarn::WholeFile(expected.file.c_str());
        bool const same =
            expected.from.empty() || (copy && copy == kvarn::WholeFile(expected.from.c_str()));
        expected.what = Exists(expected.file) && same ? expected.what : "failed";
    }
    return expected;
}

ExitStatus Create(Context& context, LocalArguments const& arguments) {
    RequireProject(context);
    constexpr int withParFile = 1;
    int const overwrite = arguments.overwrite ? 1 : 0;
    std::vector<Outcome> outcomes;
    for (Before const& file : StateOf(context, arguments)) {
        outcomes.push_back(Expected(context, file, arguments.overwrite));
    }
    if (context.dryRun) {
        return Told(context, outcomes);
    }
    for (Outcome const& outcome : outcomes) {
        if (outcome.what == "replaced") {
            Losses kept;
            KeepOld(outcome.file, kept, [](std::string_view) { return std::vector<Finding>(); });
        }
    }
    arguments.rock ? context.settings.CreateLokalStenFil(overwrite)
                   : context.settings.CreateLokalaFiler(overwrite, withParFile);
    std::transform(outcomes.begin(), outcomes.end(), outcomes.begin(), Created);
    return Told(context, outcomes);
}

// --- remove --------------------------------------------------------------------------------------

bool IsConfirmed(LocalArguments const& arguments, std::size_t count) {
    if (arguments.yes) {
        return true;
    }
    if (!CanAsk()) {
        throw UsageError("nothing was removed: --yes removes " + std::to_string(count) +
                         (count == 1 ? " file" : " files") + ", which are kept in a dated folder");
    }
    std::cerr << "Remove " << count << (count == 1 ? " file" : " files")
              << " of the project? They are kept in a dated folder. [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

ExitStatus Remove(Context& context, LocalArguments const& arguments) {
    RequireProject(context);
    std::vector<std::string> paths;
    for (Before const& file : StateOf(context, arguments)) {
        if (file.existed) {
            paths.push_back(file.path);
        }
    }
    if (paths.empty()) {
        throw Failure("nothing to remove: the project has no such files");
    }
    std::vector<Outcome> outcomes;
    if (context.dryRun) {
        for (std::string const& path : paths) {
            outcomes.push_back({path, "removed", ""});
        }
        return Told(context, outcomes);
    }
    if (!IsConfirmed(arguments, paths.size())) {
        throw Failure("nothing was removed");
    }
    std::string const kept = KeepRemoved(paths);
    arguments.rock ? context.settings.RemoveLokalStenFil() : context.settings.RemoveLokalaFiler();
    for (std::string const& path : paths) {
        outcomes.push_back({path, Exists(path) ? "failed" : "removed", ""});
    }
    std::cerr << "kvarnio: the files are kept in " << Shown(kept) << "; kvarnio undo "
              << Shown(context.project.m_projKat.GetString()) << " puts them back\n";
    return Told(context, outcomes);
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
    CLI::App& create = add("create", "Copy the shared files into the project that it does not have",
                           "Where there is nothing to copy an empty file is made. A file that is\n"
                           "replaced is kept in FILE.bak: kvarnio undo FILE puts it back.",
                           Create);
    create.add_flag("--overwrite", arguments->overwrite,
                    "Replace the code files and the scales, never the others");
    line.AddDryRun(create);
    CLI::App& remove =
        add("remove", "Remove the project's copies: the shared files count again",
            "They are kept in a dated folder of the project: kvarnio undo PROJECT puts them\n"
            "back. Asks on a terminal.",
            Remove);
    remove.add_flag("--yes", arguments->yes, "Do not ask");
    line.AddDryRun(remove);
}

} // namespace kvarnio
