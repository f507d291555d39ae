// kvarnio road plot.
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>
#include <files/filerewrite.h>

#include "../commands.h"
#include "../shared/output.h"
#include "../shared/platform.h"
#include "../shared/road/roadarea.h"
#include "../shared/road/roadfile.h"
#include "roadplot.h"

namespace kvarnio {
namespace {

struct PlotArguments {
    std::string file;
    std::string picture;
};

void Write(std::string const& typed, std::string const& text) {
    if (kvarn::RewriteFile(LibraryPath(typed).c_str(), text) != kvarn::Rewritten::done) {
        throw IoFailure(typed + " cannot be written");
    }
}

ExitStatus PlotFile(Context& context, PlotArguments const& arguments) {
    RoadFile file(arguments.file);
    file.WarnOfSkippedLines();
    std::filesystem::path const picture = UserPath(arguments.picture);
    std::error_code notThere;
    if (std::filesystem::equivalent(picture, HostPath(file.Path()), notThere)) {
        throw UsageError("the picture would take the place of the road file");
    }
    Plot const plot = PlotRoad(file.Plan(), file.Profile(), AreaOf(context, file),
                               {file.Name(), OneLine(FileNameOf(file.Path()))});
    if (plot.leftOut > 0) {
        std::cerr << "kvarnio: not drawn, being no numbers or too large: " << plot.leftOut
                  << " of the vertices and segments\n";
    }
    Write(arguments.picture, plot.svg);
    if (context.json) {
        PrintJson({{"file", Shown(file.Path())}, {"picture", arguments.picture}});
    } else {
        std::cout << arguments.picture << '\n';
    }
    return done;
}

} // namespace

void AddRoadPlot(CommandLine& line, CLI::App& road) {
    auto const arguments = std::make_shared<PlotArguments>();
    CLI::App& plot = CommandLine::AddCommand(
        road, "plot", "Draw the plan and the profile of a road as an SVG picture",
        "North is up. The shaded area is that of the project's area file where it names the road, "
        "otherwise\n30 m to either side.\n"
        "Example: kvarnio road plot KVARNBOK.DBF/VAG27.VL -o road.svg --project .");
    AddRoadFile(plot, arguments->file);
    plot.add_option("-o,--output", arguments->picture, "Picture to write")
        ->type_name("SVG")
        ->required();
    line.Run(plot, [arguments](Context& context) { return PlotFile(context, *arguments); });
}

} // namespace kvarnio
