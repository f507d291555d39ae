// kvarnio check.
#include <algorithm>
#include <iostream>
#include <memory>
#include <set>

#include <CLI/CLI.hpp>
#include <files/pathparts.h>

#include "../commands.h"
#include "../shared/copies.h"
#include "../shared/platform.h"
#include "../shared/progress.h"
#include "checkfiles.h"

namespace kvarnio {
namespace {

struct CheckArguments {
    CLI::Option const* operands = nullptr;
    std::string all;
    std::vector<std::string> stamps;
    std::vector<std::string> points;
    std::vector<std::string> folderLists;
    std::vector<std::string> only;
    std::vector<std::string> ignored;
    bool rules = false;
};

// --- What is asked for ---------------------------------------------------------------------------

std::string ExistingFile(std::string const& typed) {
    std::string path = LibraryPath(typed);
    if (!Exists(path)) {
        throw Failure("there is no file or folder " + typed);
    }
    return path;
}

// Returns whether it is a project. A folder with the name of a file is a file that cannot be read.
bool AddOperand(std::string const& typed, std::vector<FileToCheck>& files) {
    std::string const folder = LibraryFolder(typed);
    if (auto const file = ByName(folder)) {
        ExistingFile(typed);
        files.push_back(*file);
        return false;
    }
    if (IsFolder(folder + '\\')) {
        auto const found = FilesOf(folder);
        files.insert(files.end(), found.begin(), found.end());
        return true;
    }
    ExistingFile(typed);
    throw UsageError("no program reads a file of the name " + typed +
                     "; --stamp, --points or --folders says what it is");
}

void AddProjectsOf(std::string const& typed, std::vector<FileToCheck>& files) {
    std::string const folder = LibraryFolder(typed);
    if (!IsFolder(folder + '\\')) {
        throw Failure("there is no folder " + typed);
    }
    for (std::string const& project : ProjectsBelow(folder)) {
        auto const found = FilesOf(project);
        files.insert(files.end(), found.begin(), found.end());
    }
}

// Each file once, in the order in which they were named.
std::vector<FileToCheck> Distinct(std::vector<FileToCheck> files) {
    std::set<std::string> seen;
    std::erase_if(files,
                  [&](FileToCheck const& file) { return !seen.insert(Shown(file.path)).second; });
    return files;
}

std::vector<FileToCheck> FilesToCheck(Context& context, CheckArguments const& arguments) {
    std::vector<FileToCheck> files;
    auto const operands = arguments.operands->results();
    bool hasProject = !arguments.all.empty();
    if (hasProject) {
        AddProjectsOf(arguments.all, files);
    }
    for (std::string const& typed : operands) {
        hasProject = AddOperand(typed, files) || hasProject;
    }
    auto const addAs = [&](std::vector<std::string> const& all, auto as) {
        for (std::string const& typed : all) {
            files.push_back(as(ExistingFile(typed)));
        }
    };
    addAs(arguments.points, AsPoints);
    addAs(arguments.stamps, AsStamp);
    addAs(arguments.folderLists, AsFolderList);
    if (operands.empty() && arguments.all.empty() && files.empty()) {
        throw UsageError("name a project folder or a file to check");
    }
    if (files.empty()) {
        throw Failure("there is nothing to check in " +
                      (operands.empty() ? arguments.all : operands.front()));
    }
    if (hasProject) {
        auto const common = CommonFiles(context);
        files.insert(files.end(), common.begin(), common.end());
    }
    return Distinct(std::move(files));
}

// --- The rules -----------------------------------------------------------------------------------

std::vector<Rule> RulesNamed(std::vector<std::string> const& names) {
    std::vector<Rule> rules;
    for (std::string const& name : names) {
        auto const rule = kvarn::RuleNamed(name);
        if (!rule) {
            throw UsageError("there is no rule " + name + "; --rules lists them");
        }
        rules.push_back(*rule);
    }
    return rules;
}

bool Holds(std::vector<Rule> const& rules, Rule rule) {
    return std::find(rules.begin(), rules.end(), rule) != rules.end();
}

class Chosen {
  public:
    explicit Chosen(CheckArguments const& arguments)
        : m_only(RulesNamed(arguments.only)), m_ignored(RulesNamed(arguments.ignored)) {}

    std::vector<Finding> Of(std::vector<Finding> findings) const {
        std::erase_if(findings, [this](Finding const& finding) {
            return (!m_only.empty() && !Holds(m_only, finding.rule)) ||
                   Holds(m_ignored, finding.rule);
        });
        return findings;
    }

  private:
    std::vector<Rule> m_only;
    std::vector<Rule> m_ignored;
};

ExitStatus PrintRules(Context const& context) {
    std::vector<std::vector<std::string>> rows{{"RULE", "SEVERITY", "WHAT IS FOUND"}};
    Json json = Json::array();
    for (kvarn::RuleText const& rule : kvarn::Rules()) {
        rows.push_back({std::string(rule.name), std::string(NameOf(rule.severity)),
                        std::string(rule.meaning)});
        json.push_back(
            {{"rule", rule.name}, {"severity", NameOf(rule.severity)}, {"meaning", rule.meaning}});
    }
    context.json ? PrintJson(json) : PrintTable(rows);
    return done;
}

// --- The check -----------------------------------------------------------------------------------

ExitStatus Check(Context& context, CheckArguments const& arguments) {
    if (arguments.rules) {
        return PrintRules(context);
    }
    Chosen const chosen(arguments);
    std::vector<FileToCheck> const files = FilesToCheck(context, arguments);
    ExitStatus status = done;
    Json json = Json::array();
    Progress progress("files", files.size(), 1);
    for (FileToCheck const& file : files) {
        std::vector<Finding> const findings = chosen.Of(FindingsOf(file));
        status = std::max(status, StatusOf(findings));
        if (context.json) {
            AppendFindings(json, Shown(file.path), findings);
        } else if (arguments.all.empty() || !IsSound(findings)) {
            PrintFindings(Shown(file.path), findings);
        }
        progress.Advance(1);
    }
    if (context.json) {
        PrintJson(json);
    } else if (!arguments.all.empty() && status == done) {
        std::cout << files.size() << " files: no problems\n";
    }
    return status;
}

} // namespace

void AddCheckCommand(CommandLine& line) {
    auto const arguments = std::make_shared<CheckArguments>();
    CLI::App& check = line.AddCommand(
        "check", "Name what is wrong with files, as file:line: problem [rule]",
        "Of a project folder: its settings, code and material files, its support\n"
        "points (*.STP), its roads and areas (*.VL), and what all projects share:\n"
        "Markvida.ini, KVARNBOK.CFG, the list of folders, the registry's text. A file\n"
        "is known by its name.\n"
        "Found are lines that are lost when a program writes the file, what is misread,\n"
        "and what is doubtful; docs/check-rules.md shows an example of each rule.\n"
        "Exit status: 0 no problems, 1 problems, 3 a file could not be read.");
    arguments->operands =
        &CommandLine::AddWords(check, "PROJECT|FILE", "Project folders and files");
    check.add_option("--all", arguments->all, "Every project in and below FOLDER")
        ->type_name("FOLDER");
    auto const addList = [&](char const* name, std::vector<std::string>& list, char const* type,
                             char const* what) {
        check.add_option(name, list, what)->type_name(type)->allow_extra_args(false);
    };
    addList("--stamp", arguments->stamps, "FILE", "A title block's file");
    addList("--points", arguments->points, "FILE", "A file of support points");
    addList("--folders", arguments->folderLists, "FILE", "A list of a project's folders");
    addList("--only", arguments->only, "RULE", "This rule alone; may be given again");
    addList("--ignore", arguments->ignored, "RULE", "Not this rule; may be given again");
    check.add_flag("--rules", arguments->rules, "List the rules");
    line.Run(check, [arguments](Context& context) { return Check(context, *arguments); });
}

} // namespace kvarnio
