// kvarnio undo.
#include <filesystem>
#include <iostream>
#include <memory>
#include <system_error>

#include <CLI/CLI.hpp>
#include <files/filecopy.h>
#include <files/pathparts.h>

#include "../commands.h"
#include "../shared/backup.h"
#include "../shared/copies.h"
#include "../shared/failure.h"
#include "../shared/output.h"
#include "../shared/platform.h"
#include "../shared/removed.h"

namespace kvarnio {
namespace {

void Move(std::string const& from, std::string const& to) {
    std::error_code error;
    std::filesystem::rename(HostPath(from), HostPath(to), error);
    if (error) {
        throw IoFailure(Shown(to) + " could not be written: " + error.message());
    }
}

void Tell(Context const& context, std::vector<std::string> const& restored,
          std::string const& from) {
    Json json = {{"restored", Json::array()}, {"from", Shown(from)}, {"done", !context.dryRun}};
    for (std::string const& path : restored) {
        json["restored"].push_back(Shown(path));
        if (!context.json) {
            std::cout << (context.dryRun ? "would be put back: " : "") << Shown(path)
                      << ": as it was, from " << Shown(from) << '\n';
        }
    }
    if (context.json) {
        PrintJson(json);
    }
}

// An undo that was ended half-way has put the file back and left the present one aside.
bool WasInterrupted(std::string const& path, std::string const& aside) {
    return Exists(aside) && ReadIfThere(aside) != ReadIfThere(path);
}

void PutBack(std::string const& kept, std::string const& path) {
    if (!kvarn::CopyWhole(kept.c_str(), path.c_str(), kvarn::Existing::replaced)) {
        throw IoFailure(NotWritten(path));
    }
}

// The file and its copy change places, so that a second time takes this one back. At any moment the
// content of both is there.
void Exchange(std::string const& path, std::string const& kept) {
    std::string const aside = path + ".undone";
    if (!Exists(path)) {
        Move(kept, path);
        return;
    }
    if (!WasInterrupted(path, aside)) {
        if (!kvarn::KeepCopy(path.c_str(), aside.c_str())) {
            throw IoFailure(Shown(aside) + ", which would keep the present file, cannot be made");
        }
        PutBack(kept, path);
    }
    Move(aside, kept);
}

ExitStatus UndoFile(Context const& context, std::string const& path) {
    std::string const kept = path + backupSuffix;
    if (!Exists(kept)) {
        throw Failure("there is no " + Shown(kept) + ", which a change would have left");
    }
    if (!context.dryRun) {
        Exchange(path, kept);
    }
    Tell(context, {path}, kept);
    return done;
}

ExitStatus UndoRemoval(Context const& context, std::string const& project) {
    std::string const kept = LastRemoved(project);
    if (kept.empty()) {
        throw Failure("nothing was removed from " + Shown(project) + " that could be put back");
    }
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(HostPath(kept))) {
        names.push_back(LibraryName(entry.path().filename()).value_or(""));
        if (Exists(kvarn::PathOf(project, names.back()))) {
            throw Failure("nothing was put back: " + Shown(kvarn::PathOf(project, names.back())) +
                          " is there");
        }
    }
    std::vector<std::string> restored;
    for (std::string const& name : names) {
        restored.push_back(kvarn::PathOf(project, name));
        if (!context.dryRun) {
            Move(kvarn::PathOf(kept, name), restored.back());
        }
    }
    Tell(context, restored, kept);
    std::error_code error;
    if (!context.dryRun && !std::filesystem::remove(HostPath(kept), error) &&
        error != std::errc::directory_not_empty) { // somebody has put something there
        throw IoFailure(Shown(kept) + ", which is empty now, could not be removed");
    }
    return done;
}

} // namespace

void AddUndoCommand(CommandLine& line) {
    auto const typed = std::make_shared<std::string>();
    CLI::App& undo = line.AddCommand(
        "undo", "Put a file back as it was before this tool changed it",
        "Of a file, FILE.bak takes its place, and the present file becomes FILE.bak: a\n"
        "second time takes the first one back. Of a project, the files that were removed\n"
        "last come back from their dated folder.");
    undo.add_option("FILE|PROJECT", *typed, "The file, or the project folder")->required();
    line.AddDryRun(undo);
    line.Run(undo, [typed](Context& context) {
        std::string const folder = LibraryFolder(*typed);
        return IsFolder(folder + '\\') ? UndoRemoval(context, folder)
                                       : UndoFile(context, LibraryPath(*typed));
    });
}

} // namespace kvarnio
