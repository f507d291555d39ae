#include "commands.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <string_view>

#include <kvarnprog.h>
#include <text/codepage.h>

#include "shared/messages.h"
#include "shared/output.h"

namespace kvarnio {
namespace {

void AddProject(CommandLine& line) {
    CLI::App& project = AddProjectCommands(line);
    AddProjectCreate(line, project);
}

void AddRoad(CommandLine& line) {
    CLI::App& road = AddRoadCommands(line);
    AddRoadQueries(line, road);
    AddRoadCheck(line, road);
    AddRoadPlot(line, road);
    AddRoadImport(line, road);
    AddRoadExport(line, road);
}

struct Command {
    std::string_view name;
    void (*add)(CommandLine& line);
};

// In the order in which the help shows them.
constexpr Command commands[] = {
    {"get", AddGetCommand},
    {"list", AddListCommand},
    {"set", AddSetCommand},
    {"codes", AddCodesCommand},
    {"local", AddLocalCommand},
    {"undo", AddUndoCommand},
    {"check", AddCheckCommand},
    {"diff", AddDiffCommand},
    {"project", AddProject},
    {"materials", AddMaterialsCommand},
    {"points", AddPointsCommand},
    {"formats", AddFormatsCommand},
    {"road", AddRoad},
    {"env", AddEnvCommand},
    {"dir", AddDirCommand},
    {"registry", AddRegistryCommand},
};

// What could not be done: a sentence for people, and JSON for whoever asked for that.
int Refuse(ExitStatus status, std::string const& why, bool json) {
    std::cerr << "kvarnio: " << why << '\n';
    if (json && !JsonIsPrinted()) {
        PrintJson({{"error", why},
                   {"status", static_cast<int>(status)},
                   {"programsShow", MessagesShown()}});
        std::cout.flush();
    }
    return status;
}

} // namespace

int Execute(std::vector<std::string> const& arguments) {
    bool const json = std::find(arguments.begin(), arguments.end(), "--json") != arguments.end();
    try {
        CommandLine line;
        AddCommands(line, arguments);
        int const status = line.Execute(arguments);
        if (!std::cout.flush()) {
            throw IoFailure("standard output cannot be written");
        }
        return status;
    } catch (UsageError const& error) {
        return Refuse(wrongUsage, error.what(), json);
    } catch (IoFailure const& error) {
        return Refuse(notDone, error.what(), json);
    } catch (Failure const& error) {
        return Refuse(failed, error.what(), json);
    } catch (ListFel const& error) { // memory is out
        return Refuse(notDone, kvarn::ToUtf8(error.what()), json);
    }
}

// A name in the first place is always the subcommand: an option's value comes after the option. To
// build all the others took most of the time of a short command.
void AddCommands(CommandLine& line, std::vector<std::string> const& arguments) {
    auto const* const chosen =
        std::find_if(std::begin(commands), std::end(commands), [&](Command const& command) {
            return !arguments.empty() && command.name == arguments.front();
        });
    if (chosen != std::end(commands)) {
        chosen->add(line);
        return;
    }
    for (Command const& command : commands) {
        command.add(line);
    }
}

} // namespace kvarnio
