// kvarnio road check.
#include <memory>

#include <CLI/CLI.hpp>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/output.h"
#include "../shared/road/roadfile.h"
#include "roadcheck.h"

namespace kvarnio {
namespace {

struct CheckArguments {
    std::string file;
    std::string tolerance = "0.01";
};

ExitStatus Check(Context& context, CheckArguments const& arguments) {
    double const tolerance = Number("METRES", arguments.tolerance);
    RoadFile const file(arguments.file);
    std::vector<Finding> const findings = CheckRoad(file, tolerance);
    std::string const path = Shown(file.Path());
    if (context.json) {
        Json json = Json::array();
        AppendFindings(json, path, findings);
        PrintJson(json);
    } else {
        PrintFindings(path, findings);
    }
    return findings.empty() ? done : failed;
}

} // namespace

void AddRoadCheck(CommandLine& line, CLI::App& road) {
    auto const arguments = std::make_shared<CheckArguments>();
    CLI::App& check = CommandLine::AddCommand(
        road, "check", "Name what is wrong with a road file, as file:line: problem",
        "Lines that are not read; stations that do not go one way, or differ from the segment's "
        "length;\nvertices that coincide; bulges beyond a half circle; arcs that a search for a "
        "station may miss;\nvertical curves too steep for exact heights.\n"
        "Exit status: 0 no problems, 1 problems.");
    AddRoadFile(check, arguments->file);
    check
        .add_option("--tolerance", arguments->tolerance,
                    "Between a segment's length and that of its stations; 0.01 if not given")
        ->type_name("METRES");
    line.Run(check, [arguments](Context& context) { return Check(context, *arguments); });
}

} // namespace kvarnio
