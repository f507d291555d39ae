#include "commandline.h"

#include <algorithm>
#include <iostream>

#include <CLI/CLI.hpp>

namespace kvarnio {
namespace {

// An option's name and what it takes; the rest is said in words.
class ShortFormatter : public CLI::Formatter {
  public:
    std::string make_option_opts(CLI::Option const* option) const override {
        bool const takesValue = !option->get_positional() && option->get_items_expected_max() > 0;
        return takesValue ? " " + option->get_type_name() : "";
    }
};

} // namespace

CommandLine::CommandLine()
    : m_app(std::make_unique<CLI::App>(
          "Reads and writes the settings and data files of the drawing programs.\n"
          "A settings file is taken from the project folder, else the CFG folder, else the main "
          "folder.",
          "kvarnio")) {
    m_app->formatter(std::make_shared<ShortFormatter>());
    m_app->require_subcommand(1);
    m_app->allow_windows_style_options(false); // "/home/x" is a path
    m_app->footer("The main folder is the environment variable KVARNBOK unless --home names it; "
                  "Markvida.ini lies in it\nand names the CFG folder unless --cfg does.\n"
                  "Exit status: 0 done; 1 not there, or failed; 2 wrong usage.");
    AddCommonOptions(*m_app);
}

CommandLine::~CommandLine() = default;

void CommandLine::AddCommonOptions(CLI::App& app) {
    char const* const group = "Common options";
    // An empty folder is an unset variable in a script: another place would be read or written.
    CLI::Validator const named(
        [](std::string& folder) { return folder.empty() ? "DIR is empty" : std::string(); }, "");
    auto const addFolder = [&](char const* name, std::string& folder, char const* what) {
        app.add_option(name, folder, what)->type_name("DIR")->check(named)->group(group);
    };
    addFolder("--project", m_options.project, "Project folder");
    addFolder("--home", m_options.home, "Main folder, the one with Markvida.ini");
    addFolder("--cfg", m_options.cfg, "Folder of the shared settings files");
    app.add_flag("--json", m_options.json, "Print JSON")->group(group);
    app.set_help_flag("-h,--help", "Print this help")->group(group);
    app.set_version_flag("--version", "kvarnio " KVARNIO_VERSION, "Print the version")
        ->group(group);
}

CLI::App& CommandLine::AddGroup(char const* name, char const* what, char const* footer) {
    return AddGroup(*m_app, name, what, footer);
}

CLI::App& CommandLine::AddGroup(CLI::App& group, char const* name, char const* what,
                                char const* footer) {
    CLI::App& added = AddCommand(group, name, what, footer);
    added.require_subcommand(1);
    AddCommonOptions(added);
    return added;
}

CLI::App& CommandLine::AddCommand(char const* name, char const* what, char const* footer) {
    return AddCommand(*m_app, name, what, footer);
}

CLI::App& CommandLine::AddCommand(CLI::App& group, std::string const& name, std::string const& what,
                                  std::string const& footer) {
    CLI::App* const command = group.add_subcommand(name, what);
    command->footer(footer);
    return *command;
}

void CommandLine::Run(CLI::App& command, Action action) {
    AddCommonOptions(command); // below its own
    command.callback([this, action = std::move(action)] { m_action = action; });
}

int CommandLine::Explain(std::string const& error) const {
    std::string chosen = "kvarnio";
    for (CLI::App const* app = m_app.get(); !app->get_subcommands().empty();) {
        app = app->get_subcommands().front();
        chosen += ' ' + app->get_name();
    }
    std::cerr << "kvarnio: " << error << "\nTry \"" << chosen << " --help\".\n";
    return wrongUsage;
}

// The argument in the place of a subcommand's name that is no such name; empty when there is no
// fault.
std::string CommandLine::UnknownCommand() const {
    CLI::App const* app = m_app.get();
    while (!app->get_subcommands().empty()) {
        app = app->get_subcommands().front();
    }
    auto const unknown = app->remaining();
    return app->get_require_subcommand_min() > 0 && !unknown.empty() ? unknown.front() : "";
}

int CommandLine::Execute(std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
    try {
        m_app->parse(std::move(arguments));
        Context context(m_options);
        return m_action(context);
    } catch (CLI::Success const& helpOrVersion) {
        m_app->exit(helpOrVersion, std::cout, std::cerr);
    } catch (CLI::ParseError const& error) {
        std::string const unknown = UnknownCommand();
        return Explain(unknown.empty() ? error.what()
                                       : "there is no subcommand \"" + unknown + '"');
    } catch (UsageError const& error) {
        return Explain(error.what());
    }
    return done;
}

} // namespace kvarnio
