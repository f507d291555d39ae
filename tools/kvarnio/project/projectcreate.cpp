// kvarnio project create.
#include <algorithm>
#include <iostream>
#include <memory>
#include <set>

#include <CLI/CLI.hpp>

#include "../commands.h"
#include "../shared/copies.h"
#include "../shared/messages.h"
#include "../shared/output.h"
#include "../shared/platform.h"

namespace kvarnio {
namespace {

struct CreateArguments {
    std::string path;
    bool drawing = false;
    bool postProcessing = false;
    bool rockDrilling = false;
    bool construction = false;
    bool folders = false;
    bool yes = false;

    bool NothingChosen() const {
        return !drawing && !postProcessing && !rockDrilling && !construction && !folders;
    }
};

// A folder on a drive or a share, which the library makes level by level from there on.
std::string ProjectFolder(std::string const& typed) {
    if (typed.find_first_not_of("\\/") == std::string::npos) {
        throw UsageError("PATH names no folder");
    }
    std::string folder = LibraryFolder(typed);
    bool const fromRoot = folder.starts_with('\\') || folder.substr(0, 2).ends_with(':');
    if (!fromRoot) {
        auto const absolute = std::filesystem::absolute(HostPath(folder)).lexically_normal();
        std::u8string const utf8 = absolute.u8string();
        folder = LibraryFolder({utf8.begin(), utf8.end()});
    }
    return folder;
}

using HostPaths = std::set<std::filesystem::path>;

// What is there of the levels of a path, and below it.
HostPaths WhatIsThere(std::string const& folder) {
    HostPaths there;
    for (std::size_t end = folder.find('\\'); end < folder.size();
         end = folder.find('\\', end + 1)) {
        if (Exists(folder.substr(0, end))) {
            there.insert(HostPath(folder.substr(0, end)));
        }
    }
    if (Exists(folder)) {
        there.insert(HostPath(folder));
    }
    std::error_code unreachable;
    std::filesystem::recursive_directory_iterator const below(
        HostPath(folder), std::filesystem::directory_options::skip_permission_denied, unreachable);
    for (auto i = begin(below); i != end(below); i.increment(unreachable)) {
        there.insert(i->path());
    }
    return there;
}

std::vector<std::string> New(HostPaths const& before, HostPaths const& after) {
    std::vector<std::string> made;
    for (std::filesystem::path const& path : after) {
        if (!before.contains(path)) {
            std::u8string const utf8 = path.u8string();
            made.emplace_back(utf8.begin(), utf8.end());
        }
    }
    return made;
}

void Report(Context const& context, std::string const& folder, std::vector<std::string> const& made,
            bool stands) {
    if (context.json) {
        PrintJson({{"project", Shown(folder)}, {"done", stands}, {"made", made}});
        return;
    }
    for (std::string const& path : made) {
        std::cout << path << ": made\n";
    }
    if (stands && made.empty()) {
        std::cout << Shown(folder) << ": all of it was there\n";
    }
}

ExitStatus Create(Context& context, CreateArguments arguments) {
    if (arguments.NothingChosen()) {
        arguments.drawing = true;
        arguments.folders = true;
    }
    std::string const folder = ProjectFolder(arguments.path);
    if (arguments.yes) {
        AnswerYes();
    }
    constexpr int create = 1;
    constexpr int interactive = 1; // the answer is --yes, or No
    HostPaths const before = WhatIsThere(folder);
    bool const existed = Exists(folder);
    int const result = context.project.CreateProjectStructure(
        folder.c_str(), arguments.folders ? &context.ini : nullptr, create, interactive,
        arguments.drawing ? 1 : 0, arguments.postProcessing ? 1 : 0, arguments.rockDrilling ? 1 : 0,
        arguments.construction ? 1 : 0, arguments.folders ? 1 : 0);
    std::vector<std::string> const made = New(before, WhatIsThere(folder));
    Report(context, folder, made, result == 1);
    if (result == 1) {
        return done;
    }
    if (!made.empty()) {
        throw IoFailure(Shown(folder) + ": not all of it could be made; what was made stays");
    }
    if (existed && !arguments.yes) {
        throw Failure(Shown(folder) + ": nothing was made; --yes uses a folder that exists");
    }
    throw IoFailure(Shown(folder) + ": nothing was made");
}

} // namespace

void AddProjectCreate(CommandLine& line, CLI::App& project) {
    auto const arguments = std::make_shared<CreateArguments>();
    CLI::App& create = CommandLine::AddCommand(
        project, "create", "Make a project's folders",
        "Without a choice it is --drawing --folders, as the drawing program makes a project. "
        "Missing folders above\nit are made too. What is there stays as it is; a folder that "
        "holds a drawing database already is refused\nwith --drawing.\n"
        "Example: kvarnio project create 'C:\\Projekt\\Slussen' --drawing --construction");
    create.add_option("PATH", arguments->path, "The project's folder")->required();
    auto const add = [&](char const* name, bool& flag, char const* what) {
        create.add_flag(name, flag, what);
    };
    add("--drawing", arguments->drawing, "The drawing program's folders");
    add("--post-processing", arguments->postProcessing, "The post-processing program's folders");
    add("--rock-drilling", arguments->rockDrilling, "The rock-drilling program's folders");
    add("--construction", arguments->construction,
        "The construction program's folders and its marker file");
    add("--folders", arguments->folders,
        "The folders in the list that Markvida.ini names (section ARKIV, key MAPPAR), if it does");
    add("--yes", arguments->yes, "Use a folder that exists; it is never asked for");
    line.Run(create, [arguments](Context& context) { return Create(context, *arguments); });
}

} // namespace kvarnio
