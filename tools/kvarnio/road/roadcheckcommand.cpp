// kvarnio road check.
#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>
#include <neighbours/road/roadgeometry.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/backup.h"
#include "../shared/copies.h"
#include "../shared/output.h"
#include "../shared/platform.h"
#include "../shared/road/roadcheck.h"
#include "../shared/road/roadfile.h"

namespace kvarnio {
namespace {

struct CheckArguments {
    CLI::Option const* files = nullptr;
    std::string tolerance;
};

ExitStatus Check(Context& context, CheckArguments const& arguments) {
    double const tolerance =
        arguments.tolerance.empty() ? stationRounding : Number("METRES", arguments.tolerance);
    ExitStatus status = done;
    Json json = Json::array();
    std::vector<std::string> paths; // all of them before anything is told
    for (std::string const& typed : arguments.files->results()) {
        paths.push_back(LibraryPath(typed));
        if (!Exists(paths.back())) {
            ThrowNotRead(paths.back());
        }
    }
    for (std::string const& path : paths) {
        std::vector<Finding> const findings = FindingsOf(
            path, [&](std::string_view content) { return CheckRoad(content, tolerance); });
        status = std::max(status, StatusOf(findings));
        context.json ? AppendFindings(json, Shown(path), findings)
                     : PrintFindings(Shown(path), findings);
    }
    if (context.json) {
        PrintJson(json);
    }
    return status;
}

} // namespace

void AddRoadCheck(CommandLine& line, CLI::App& road) {
    auto const arguments = std::make_shared<CheckArguments>();
    CLI::App& check = CommandLine::AddCommand(
        road, "check", "Name what is wrong with road files, as file:line: problem [rule]",
        "Lines that are not read; stations that do not go one way, or differ from the segment's "
        "length;\nvertices that coincide; bulges beyond a half circle; arcs that a search for a "
        "station may miss;\nvertical curves too steep for exact heights.\n"
        "Exit status: 0 no problems, 1 problems, 3 a file could not be read.");
    arguments->files = CommandLine::AddWords(check, "FILE", "Road files").required();
    check
        .add_option("--tolerance", arguments->tolerance,
                    "Between a segment's length and that of its stations; 0.01 if not given")
        ->type_name("METRES");
    line.Run(check, [arguments](Context& context) { return Check(context, *arguments); });
}

} // namespace kvarnio
