// The subcommands of the tool.
#pragma once

#include <string>
#include <vector>

#include "shared/commandline.h"

namespace kvarnio {

// Adds the one that the arguments begin with; all of them where they begin with none, for what is
// then to be said of them.
void AddCommands(CommandLine& line, std::vector<std::string> const& arguments);

// Runs the command that the arguments ask for; tells on standard error what could not be done.
// Returns the exit status.
int Execute(std::vector<std::string> const& arguments);

// Each adds its own; those of a group return it.
void AddGetCommand(CommandLine& line);           // get
void AddListCommand(CommandLine& line);          // list
void AddSetCommand(CommandLine& line);           // set
void AddCodesCommand(CommandLine& line);         // codes list, add, set, remove, update
void AddLocalCommand(CommandLine& line);         // local status, create, remove
void AddUndoCommand(CommandLine& line);          // undo
void AddCheckCommand(CommandLine& line);         // check
void AddDiffCommand(CommandLine& line);          // diff
CLI::App& AddProjectCommands(CommandLine& line); // project paths, status
void AddProjectCreate(CommandLine& line, CLI::App& project);
void AddMaterialsCommand(CommandLine& line);            // materials rock, fill, soil
void AddPointsCommand(CommandLine& line);               // points
void AddFormatsCommand(CommandLine& line);              // formats
CLI::App& AddRoadCommands(CommandLine& line);           // road info
void AddRoadQueries(CommandLine& line, CLI::App& road); // road xy, station, z
void AddRoadCheck(CommandLine& line, CLI::App& road);
void AddRoadPlot(CommandLine& line, CLI::App& road);
void AddRoadImport(CommandLine& line, CLI::App& road);
void AddRoadExport(CommandLine& line, CLI::App& road);
void AddEnvCommand(CommandLine& line);      // env
void AddDirCommand(CommandLine& line);      // dir
void AddRegistryCommand(CommandLine& line); // registry

} // namespace kvarnio
