#include "commands.h"

namespace kvarnio {

void AddCommands(CommandLine& line) {
    AddReadCommands(line);
    AddSetCommand(line);
    AddCodesCommand(line);
    AddLocalCommand(line);
    AddCheckCommand(line);
    CLI::App& project = AddProjectCommands(line);
    AddProjectCreate(line, project);
    AddMaterialsCommand(line);
    AddPointsCommand(line);
    AddFormatsCommand(line);
    CLI::App& road = AddRoadCommands(line);
    AddRoadQueries(line, road);
    AddRoadCheck(line, road);
    AddRoadPlot(line, road);
    AddEnvCommand(line);
    AddDirCommand(line);
    AddRegistryCommand(line);
}

} // namespace kvarnio
