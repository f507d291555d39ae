// The command line: the subcommands, and the options that all of them take.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "context.h"
#include "failure.h"

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace kvarnio {

class CommandLine {
  public:
    CommandLine();
    ~CommandLine();
    CommandLine(CommandLine const&) = delete;
    CommandLine& operator=(CommandLine const&) = delete;

    // What a subcommand does; what it does not do it throws.
    using Action = std::function<ExitStatus(Context&)>;

    // A subcommand that only has subcommands of its own.
    CLI::App& AddGroup(char const* name, char const* what, char const* footer);
    CLI::App& AddGroup(CLI::App& group, char const* name, char const* what, char const* footer);
    // A subcommand, of a group where one is given, to which its own arguments are then added.
    CLI::App& AddCommand(char const* name, char const* what, char const* footer);
    static CLI::App& AddCommand(CLI::App& group, std::string const& name, std::string const& what,
                                std::string const& footer);
    // An argument for any number of words, which its results() are. A vector would not do: the
    // parser takes a word in brackets apart.
    static CLI::Option& AddWords(CLI::App& command, char const* name, char const* what);
    // An option for the same, that may be given again.
    static CLI::Option& AddOptionOfWords(CLI::App& command, char const* name, char const* type,
                                         char const* what);
    // Of a command that writes.
    void AddDryRun(CLI::App& command);
    // What it does when it is chosen. Adds the common options.
    void Run(CLI::App& command, Action action);

    // Reads the arguments and runs the subcommand that they name. Returns the exit status. Throws
    // UsageError for what the command line cannot say, and what the subcommand throws.
    int Execute(std::vector<std::string> arguments);

  private:
    void AddCommonOptions(CLI::App& app);
    void AddCommonOptionsWhenChosen(CLI::App& app);
    CLI::App const& Chosen() const;
    std::string WhatIsWrong(char const* parserSays, bool isExtra) const;
    std::string Explained(std::string const& error) const;

    std::unique_ptr<CLI::App> m_app;
    CommonOptions m_options;
    Action m_action;
};

} // namespace kvarnio
