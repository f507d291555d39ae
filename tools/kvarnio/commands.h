// The subcommands of the tool, in the order in which its help shows them.
#pragma once

#include "shared/commandline.h"

namespace kvarnio {

void AddCommands(CommandLine& line);

// Each adds its own; those of a group return it.
void AddReadCommands(CommandLine& line);         // get, list
void AddSetCommand(CommandLine& line);           // set
void AddCodesCommand(CommandLine& line);         // codes list, add, set, remove, update
void AddLocalCommand(CommandLine& line);         // local status, create, remove
void AddCheckCommand(CommandLine& line);         // check
CLI::App& AddProjectCommands(CommandLine& line); // project paths, status
void AddProjectCreate(CommandLine& line, CLI::App& project);
void AddMaterialsCommand(CommandLine& line);            // materials rock, fill, soil
void AddPointsCommand(CommandLine& line);               // points
void AddFormatsCommand(CommandLine& line);              // formats
CLI::App& AddRoadCommands(CommandLine& line);           // road info
void AddRoadQueries(CommandLine& line, CLI::App& road); // road xy, station, z
void AddRoadCheck(CommandLine& line, CLI::App& road);
void AddRoadPlot(CommandLine& line, CLI::App& road);
void AddEnvCommand(CommandLine& line);      // env
void AddDirCommand(CommandLine& line);      // dir
void AddRegistryCommand(CommandLine& line); // registry

} // namespace kvarnio
