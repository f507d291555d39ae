// kvarnio project paths, kvarnio project status.
#include <array>
#include <memory>

#include <CLI/CLI.hpp>
#include <text/codepage.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/copies.h"
#include "../shared/output.h"

namespace kvarnio {
namespace {

// --- paths ---------------------------------------------------------------------------------------

struct ProjectPath {
    char const* name;
    char const* what;
    CString CProjPath::*path;
};

constexpr std::array<ProjectPath, 18> paths = {{
    {"projKat", "project folder", &CProjPath::m_projKat},
    {"zip", "archive", &CProjPath::m_zip},
    {"kvarnDbs", "drawing database", &CProjPath::m_kvarnDbs},
    {"faltverkDbs", "construction database", &CProjPath::m_faltverkDbs},
    {"terrDbs", "terrain database", &CProjPath::m_terrDbs},
    {"stenDbs", "rock database", &CProjPath::m_stenDbs},
    {"kvarnDbf", "drawing data", &CProjPath::m_kvarnDbf},
    {"kvarnRit", "drawings", &CProjPath::m_kvarnRit},
    {"stack", "stack", &CProjPath::m_stack},
    {"postDbf", "post-processing data", &CProjPath::m_postDbf},
    {"postRit", "post-processing drawings", &CProjPath::m_postRit},
    {"stabRit", "stability drawings", &CProjPath::m_stabRit},
    {"utvDbs", "evaluation database", &CProjPath::m_utvDbs},
    {"kvarnAvp", "in the drawing data", &CProjPath::m_kvarnAvp},
    {"kvarnVl", "area of the road", &CProjPath::m_kvarnVl},
    {"kvarnPar", "parameters", &CProjPath::m_kvarnPar},
    {"stenPar", "rock-drilling parameters", &CProjPath::m_stenPar},
    {"pictures", "pictures", &CProjPath::m_pictures},
}};

ExitStatus Paths(Context& context) {
    RequireProject(context);
    Json json = Json::array();
    std::vector<std::vector<std::string>> rows = {{"NAME", "WHAT", "THERE", "PATH"}};
    for (ProjectPath const& row : paths) {
        std::string const path = (context.project.*row.path).GetString();
        bool const there = Exists(path);
        json.push_back(
            {{"name", row.name}, {"what", row.what}, {"path", Shown(path)}, {"exists", there}});
        rows.push_back({row.name, row.what, there ? "yes" : "no", Shown(path)});
    }
    context.json ? PrintJson(json) : PrintTable(rows);
    return done;
}

// --- status --------------------------------------------------------------------------------------

struct State {
    int code;
    std::string text; // UTF-8
};

// By code, or by text.
State FindState(CProjektStatus& states, std::string const& typed) {
    bool const isCode = typed.find_first_not_of("-0123456789") == std::string::npos;
    int const code = isCode ? WholeNumber("CODE", typed) : states.Find(Text("TEXT", typed).c_str());
    bool const textFound = states.m_funnen != 0;
    states.SetStatus(code);
    bool const codeFound = states.m_status == code;
    std::string text = kvarn::ToUtf8(states.GetStatus().GetString());
    if (!(isCode ? codeFound : textFound)) {
        throw Failure("there is no state " + typed + ": programs take it for " +
                      std::to_string(states.m_status) + ", " + text);
    }
    return {code, std::move(text)};
}

std::vector<State> AllStates(CProjektStatus& states) {
    std::vector<State> all;
    for (bool there = states.Home() == 0; there; there = states++ != nullptr) {
        projektstatustype const& state = *states.Get_aktel();
        all.push_back({state.kod, kvarn::ToUtf8(state.text)});
    }
    return all;
}

ExitStatus Status(Context& context, std::string const& typed) {
    CProjektStatus states;
    states.SetHandle(LibraryModule());
    states.Load();
    std::vector<State> const wanted =
        typed.empty() ? AllStates(states) : std::vector{FindState(states, typed)};
    Json json = Json::array();
    std::vector<std::vector<std::string>> rows = {{"CODE", "TEXT"}};
    for (State const& state : wanted) {
        json.push_back({{"code", state.code}, {"text", state.text}});
        rows.push_back({std::to_string(state.code), state.text});
    }
    context.json ? PrintJson(typed.empty() ? json : json.front()) : PrintTable(rows);
    return done;
}

} // namespace

CLI::App& AddProjectCommands(CommandLine& line) {
    CLI::App& project = line.AddGroup(
        "project", "Make a project's folders; show its paths, and the states that it can be in",
        "");
    CLI::App& names = CommandLine::AddCommand(
        project, "paths", "Show where everything of a project is, and whether it exists",
        "Example: kvarnio project paths --project .");
    line.Run(names, Paths);

    auto const typed = std::make_shared<std::string>();
    CLI::App& status = CommandLine::AddCommand(
        project, "status", "Show the states that a project can be in, or one of them",
        "Exit status: 1 for one that does not exist.\nExample: kvarnio project status levererat");
    status.add_option("STATE", *typed, "Its code, or its text in any case; without it, all");
    line.Run(status, [typed](Context& context) { return Status(context, *typed); });
    return project;
}

} // namespace kvarnio
