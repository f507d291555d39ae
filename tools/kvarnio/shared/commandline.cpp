#include "commandline.h"

#include <algorithm>
#include <iostream>
#include <sstream>

#include <CLI/CLI.hpp>

namespace kvarnio {
namespace {

constexpr int mostWords = 1'000'000; // more than a command line holds
constexpr std::size_t terminalWidth = 80;
constexpr std::size_t optionWidth = 30; // of the column of names

// At blanks; the lines that follow begin below the text.
void AppendWrapped(std::string& out, std::string line) {
    std::size_t const indent = line.starts_with(' ') ? optionWidth : 0;
    while (line.size() > terminalWidth) {
        std::size_t const at = line.rfind(' ', terminalWidth);
        if (at == std::string::npos || at <= indent) {
            break;
        }
        out.append(line, 0, at) += '\n';
        line = std::string(indent, ' ') + line.substr(at + 1);
    }
    out.append(line) += '\n';
}

// A text goes on on its next line until a line ends a sentence or a heading.
std::string Reflowed(std::string const& help) {
    std::string out;
    std::string line;
    std::istringstream lines(help);
    for (std::string next; std::getline(lines, next);) {
        if (line.empty() && next.empty()) {
            continue; // beside a group of options that is not shown
        }
        bool const isText = !next.empty() && next.front() != ' ' && !next.starts_with("Usage:") &&
                            !line.empty() && line.front() != ' ' && line.back() != '.' &&
                            line.back() != ':' && !line.starts_with("Usage:");
        if (isText) {
            line += ' ' + next;
            continue;
        }
        if (!line.empty() || !out.empty()) {
            AppendWrapped(out, line);
        }
        line = next;
    }
    AppendWrapped(out, line);
    return out;
}

// An option's name and what it takes; the rest is said in words.
class ShortFormatter : public CLI::Formatter {
  public:
    std::string make_help(CLI::App const* app, std::string name,
                          CLI::AppFormatMode mode) const override {
        return Reflowed(CLI::Formatter::make_help(app, std::move(name), mode));
    }
    std::string make_option_opts(CLI::Option const* option) const override {
        bool const takesValue = !option->get_positional() && option->get_items_expected_max() > 0;
        return takesValue ? " " + option->get_type_name() : "";
    }
    std::string make_option_usage(CLI::Option const* argument) const override {
        std::string const name = make_option_name(argument, true);
        std::string const words = argument->get_expected_max() > 1 ? name + "..." : name;
        return argument->get_required() ? words : '[' + words + ']';
    }
};

std::string Listed(std::vector<CLI::App const*> const& commands) {
    std::string names;
    for (CLI::App const* command : commands) {
        names += (names.empty() ? "" : ", ") + command->get_name();
    }
    return names;
}

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
                  "Exit status: 0 done; 1 not there, or something found; 2 wrong usage; 3 "
                  "something\ncould not be read or written.");
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

// Most of the time that the tool takes to start went into those of all the others.
void CommandLine::AddCommonOptionsWhenChosen(CLI::App& app) {
    app.preparse_callback([this, &app](std::size_t) { AddCommonOptions(app); });
}

CLI::App& CommandLine::AddGroup(char const* name, char const* what, char const* footer) {
    return AddGroup(*m_app, name, what, footer);
}

CLI::App& CommandLine::AddGroup(CLI::App& group, char const* name, char const* what,
                                char const* footer) {
    CLI::App& added = AddCommand(group, name, what, footer);
    added.require_subcommand(1);
    AddCommonOptionsWhenChosen(added);
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

CLI::Option& CommandLine::AddWords(CLI::App& command, char const* name, char const* what) {
    return *command.add_option(name, CLI::callback_t(), what)->expected(mostWords)->take_all();
}

CLI::Option& CommandLine::AddOptionOfWords(CLI::App& command, char const* name, char const* type,
                                           char const* what) {
    return *command.add_option(name, CLI::callback_t(), what)
                ->expected(1, mostWords)
                ->take_all()
                ->type_name(type);
}

void CommandLine::AddDryRun(CLI::App& command) {
    command.add_flag("--dry-run", m_options.dryRun,
                     "Tell what would be written, and write nothing");
}

void CommandLine::Run(CLI::App& command, Action action) {
    AddCommonOptionsWhenChosen(command); // below its own
    command.callback([this, action = std::move(action)] { m_action = action; });
}

// The innermost subcommand that the arguments have named.
CLI::App const& CommandLine::Chosen() const {
    CLI::App const* app = m_app.get();
    while (!app->get_subcommands().empty()) {
        app = app->get_subcommands().front();
    }
    return *app;
}

std::string CommandLine::Explained(std::string const& error) const {
    std::string name;
    for (CLI::App const* app = &Chosen(); app != nullptr; app = app->get_parent()) {
        name.insert(0, app->get_name() + (name.empty() ? "" : " "));
    }
    return error + "\nTry \"" + name + " --help\".";
}

std::string CommandLine::WhatIsWrong(char const* parserSays, bool isExtra) const {
    CLI::App const& app = Chosen();
    std::vector<std::string> extra = app.remaining();
    if (app.get_require_subcommand_min() > 0) {
        std::string const begin =
            extra.empty() ? "a subcommand is wanted: "
                          : "there is no subcommand \"" + extra.front() + "\"; there are ";
        return begin + Listed(app.get_subcommands([](CLI::App const*) { return true; }));
    }
    if (!isExtra) {
        return parserSays;
    }
    std::string words;
    for (std::string const& word : extra) {
        words += (words.empty() ? "" : " ") + word;
    }
    return (extra.size() == 1 ? "an argument too many: " : "arguments too many: ") + words;
}

int CommandLine::Execute(std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
    try {
        m_app->parse(std::move(arguments));
        Context context(m_options);
        return m_action(context);
    } catch (CLI::Success const& helpOrVersion) {
        m_app->exit(helpOrVersion, std::cout, std::cerr);
    } catch (CLI::ExtrasError const& error) {
        throw UsageError(Explained(WhatIsWrong(error.what(), true)));
    } catch (CLI::ParseError const& error) {
        throw UsageError(Explained(WhatIsWrong(error.what(), false)));
    } catch (UsageError const& error) {
        throw UsageError(Explained(error.what()));
    }
    return done;
}

} // namespace kvarnio
