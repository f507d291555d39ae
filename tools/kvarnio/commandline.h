// The command line: the subcommands, and the options that all of them take.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "context.h"

namespace CLI {
class App;
}

namespace kvarnio {

class CommandLine {
  public:
    CommandLine();
    ~CommandLine();
    CommandLine(CommandLine const&) = delete;
    CommandLine& operator=(CommandLine const&) = delete;

    // A subcommand, to which its own arguments are then added.
    CLI::App& AddCommand(char const* name, char const* what, char const* footer);
    // What it does when it is chosen. Adds the common options.
    void Run(CLI::App& command, std::function<void(Context&)> action);

    // Reads the arguments and runs the subcommand that they name. Returns the exit status.
    int Execute(std::vector<std::string> arguments);

  private:
    void AddCommonOptions(CLI::App& app);
    int Explain(std::string const& error) const;

    std::unique_ptr<CLI::App> m_app;
    CommonOptions m_options;
    std::function<void(Context&)> m_action;
};

// Each adds its subcommands.
void AddReadCommands(CommandLine& line); // get, list
void AddSetCommand(CommandLine& line);   // set

} // namespace kvarnio
