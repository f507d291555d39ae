// kvarnio check.
#include <memory>

#include <CLI/CLI.hpp>
#include <files/pathparts.h>
#include <formats/checks/checks.h>
#include <geodata/materialtable.h>
#include <kvarnfiles/defaults.h>

#include "../commands.h"
#include "../shared/backup.h"
#include "../shared/copies.h"
#include "../shared/finding.h"
#include "../shared/platform.h"

namespace kvarnio {
namespace {

struct CheckArguments {
    std::string folder;
    std::vector<std::string> stamps;
    std::vector<std::string> points;
};

struct FileToCheck {
    std::string path; // of the library
    std::vector<Finding> (*check)(std::string_view content);
};

std::vector<Finding> CheckMaterials(std::string_view content, bool norwegian) {
    using kvarn::MaterialKind;
    return kvarn::CheckStenkod(content, kvarn::MaterialTable(MaterialKind::rock, norwegian),
                               kvarn::MaterialTable(MaterialKind::fill, norwegian), norwegian);
}

std::vector<FileToCheck> FilesIn(std::string const& folder) {
    FileToCheck const known[] = {
        {CProjPath::KvarnParNamn,
         [](auto text) { return kvarn::CheckKeys(text, kvarn::kvarnDefaults); }},
        {CProjPath::StenParNamn,
         [](auto text) { return kvarn::CheckKeys(text, kvarn::stenDefaults); }},
        {CProjPath::KvarnCfgNamn, [](auto text) { return kvarn::CheckKeys(text, {}); }},
        {CProjPath::Jb23ParNamn, [](auto text) { return kvarn::CheckJb23(text); }},
        {CProjPath::Kodfil, kvarn::CheckKodfil},
        {CProjPath::Miljkod, kvarn::CheckMiljkod},
        {CProjPath::Linkod, kvarn::CheckLinkod},
        {CBergOrMateLista::FILNAMN, [](auto text) { return CheckMaterials(text, false); }},
        {CBergOrMateLista::FILNAMNN, [](auto text) { return CheckMaterials(text, true); }},
    };
    std::vector<FileToCheck> files;
    for (FileToCheck const& file : known) {
        std::string path = kvarn::PathOf(folder, file.path);
        if (Exists(path)) {
            files.push_back({std::move(path), file.check});
        }
    }
    return files;
}

// Programs give support points any name: without an option those with this extension are checked.
void AddPointsIn(std::string const& folder, std::vector<FileToCheck>& files) {
    CDirSort list;
    list.Init(kvarn::PathOf(folder, "*.STP").c_str(), 1, 1, 0, 0); // by name
    for (bool there = list.Home() == 0; there; there = list++ != nullptr) {
        files.push_back({kvarn::PathOf(folder, list.Get_aktel()->namn), kvarn::CheckPoints});
    }
}

// The list that the settings name for all projects.
void AddFolderList(Context& context, std::vector<FileToCheck>& files) {
    CString const list = context.ini.ReadKey(CString("ARKIV"), CString("MAPPAR"));
    if (!list.IsEmpty() && Exists(list.GetString())) {
        files.push_back({list.GetString(), kvarn::CheckMappar});
    }
}

std::vector<FileToCheck> FilesToCheck(Context& context, CheckArguments const& arguments) {
    std::string const folder = LibraryFolder(arguments.folder);
    if (!IsFolder(folder + '\\')) {
        throw Failure("there is no folder " + arguments.folder);
    }
    std::vector<FileToCheck> files = FilesIn(folder);
    AddPointsIn(folder, files);
    for (std::string const& points : arguments.points) {
        files.push_back({LibraryPath(points), kvarn::CheckPoints});
    }
    for (std::string const& stamp : arguments.stamps) {
        files.push_back({LibraryPath(stamp), kvarn::CheckStamp});
    }
    if (files.empty()) {
        throw Failure("there is nothing to check in " + arguments.folder);
    }
    AddFolderList(context, files);
    return files;
}

ExitStatus Check(Context& context, CheckArguments const& arguments) {
    bool sound = true;
    Json json = Json::array();
    for (FileToCheck const& file : FilesToCheck(context, arguments)) {
        std::vector<Finding> const findings = file.check(ReadWhole(file.path));
        sound = sound && IsSound(findings);
        if (context.json) {
            AppendFindings(json, Shown(file.path), findings);
        } else {
            PrintFindings(Shown(file.path), findings);
        }
    }
    if (context.json) {
        PrintJson(json);
    }
    return sound ? done : failed;
}

} // namespace

void AddCheckCommand(CommandLine& line) {
    auto const arguments = std::make_shared<CheckArguments>();
    CLI::App& check = line.AddCommand(
        "check", "Name what is wrong with the files of a project, as file:line: problem",
        "Its settings, code and material files, its support points (*.STP) and the list of folders "
        "that\nMarkvida.ini names: lines that are not read, or lost when a program writes the "
        "file; "
        "text that is cut or\nread as something else; numbers that are none, or out of their "
        "limits. "
        "Any other folder with such files\ncan be checked too.\n"
        "Exit status: 0 no problems, 1 problems.");
    check.add_option("PROJECT", arguments->folder, "Project folder")->required();
    check.add_option("--stamp", arguments->stamps, "A title block's file, to be checked too")
        ->type_name("FILE")
        ->allow_extra_args(false);
    check.add_option("--points", arguments->points, "A file of support points, to be checked too")
        ->type_name("FILE")
        ->allow_extra_args(false);
    line.Run(check, [arguments](Context& context) { return Check(context, *arguments); });
}

} // namespace kvarnio
