// kvarnio road import.
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>
#include <files/filerewrite.h>
#include <neighbours/dxf/dxf.h>
#include <neighbours/landxml/landxml.h>
#include <neighbours/road/makeroad.h>
#include <neighbours/road/station.h>
#include <text/format.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/backup.h"
#include "../shared/copies.h"
#include "../shared/losses.h"
#include "../shared/output.h"
#include "../shared/platform.h"
#include "../shared/road/exchangeformat.h"
#include "../shared/road/roadcheck.h"

namespace kvarnio {
namespace {

struct ImportArguments {
    std::string file;
    std::string output;
    std::string format;
    std::string name;
    std::string profile;
    bool planAlone = false;
    std::string layer;
    std::string unit;
    std::string station;
    std::string tolerance;
    bool exact = false;
};

void RefuseFor(ExchangeFormat format, std::string const& given, char const* option) {
    if (!given.empty()) {
        throw UsageError(std::string(option) + " is not for " + NameOf(format));
    }
}

Alignment Read(std::string const& text, ExchangeFormat format, ImportArguments const& arguments,
               double tolerance) {
    if (format == ExchangeFormat::dxf) {
        RefuseFor(format, arguments.profile, "--profile");
        Alignment alignment = ReadDxf(
            text, {.layer = arguments.layer, .tolerance = tolerance, .unit = arguments.unit});
        if (!arguments.name.empty()) {
            alignment.name = arguments.name;
        }
        return alignment;
    }
    RefuseFor(format, arguments.layer, "--layer");
    RefuseFor(format, arguments.unit, "--unit");
    return ReadLandXml(text, {.name = arguments.name,
                              .profile = arguments.profile,
                              .planAlone = arguments.planAlone,
                              .tolerance = tolerance});
}

// From the station that the user gives; what the file says of the others stays.
void Move(Alignment& alignment, double station) {
    double const by = station - alignment.firstStation;
    alignment.firstStation = station;
    for (PlanElement& element : alignment.plan) {
        if (element.station) {
            *element.station += by;
        }
    }
    if (alignment.lastStation) {
        *alignment.lastStation += by;
    }
    for (ProfilePoint& point : alignment.profile) {
        point.station += by;
    }
}

double TypedStation(std::string const& typed) {
    std::optional<double> const station = ReadStation(typed);
    if (!station) {
        throw UsageError("--station is not a station: \"" + typed + '"');
    }
    return *station;
}

std::vector<Finding> Findings(std::string_view content) {
    return CheckRoad(content, stationRounding);
}

// Returns where the old file is kept, in UTF-8.
std::string Write(std::string const& path, std::string const& text) {
    if (Exists(path) && !kvarn::OpensForWriting(path.c_str())) {
        throw IoFailure(NotWritten(path));
    }
    Losses losses;
    KeepOld(path, losses, Findings);
    if (kvarn::RewriteFile(path.c_str(), text) != kvarn::Rewritten::done) {
        throw IoFailure(NotWritten(path));
    }
    return losses.kept;
}

std::string Summary(MadeRoad const& made) {
    std::string text;
    auto const add = [&](std::vector<kovltype> const& part, char const* name, double off) {
        if (!part.empty()) {
            text += (text.empty() ? "" : ", ") + std::string(name) + " of " +
                    std::to_string(part.size()) + " vertices within " +
                    kvarn::Format("%.4lf m", off);
        }
    };
    add(made.road.plan, "plan", made.deviation);
    add(made.road.profile, "profile", made.heightDifference);
    return text;
}

void Print(std::string const& output, MadeRoad const& made, std::vector<Finding> const& findings,
           std::string const& kept) {
    for (std::string const& note : made.notes) {
        std::cerr << "kvarnio: " << note << '\n';
    }
    for (Finding const& finding : findings) {
        std::cerr << output << ':' << finding.line << ": " << finding.what << '\n';
    }
    if (!kept.empty()) {
        std::cerr << "kvarnio: the old file is " << kept << '\n';
    }
    std::cout << output << ": " << Summary(made) << '\n';
}

Json ToJson(Context const& context, std::string const& input, ExchangeFormat format,
            std::string const& output, MadeRoad const& made, std::vector<Finding> const& findings,
            std::string const& kept) {
    Json json = {{"file", input},
                 {"format", NameOf(format)},
                 {"written", context.dryRun ? Json() : Json(output)},
                 {"backup", kept.empty() ? Json() : Json(kept)},
                 {"name", made.road.name},
                 {"planVertices", made.road.plan.size()},
                 {"profileVertices", made.road.profile.size()},
                 {"largestDeviation", made.deviation},
                 {"largestHeightDifference", made.heightDifference},
                 {"notes", made.notes},
                 {"findings", Json::array()}};
    AppendFindings(json["findings"], output, findings);
    return json;
}

ExitStatus Import(Context& context, ImportArguments const& arguments) {
    ExchangeFormat const format = FormatToRead(arguments.format, arguments.file);
    MakingRoad how;
    if (!arguments.tolerance.empty()) {
        how.tolerance = Number("METRES", arguments.tolerance);
    }
    if (!(how.tolerance > 0)) {
        throw UsageError("--tolerance must be greater than 0");
    }
    how.exact = arguments.exact;
    std::string const input = LibraryPath(arguments.file);
    std::string const output = LibraryPath(arguments.output);
    std::error_code notThere;
    if (std::filesystem::equivalent(HostPath(input), HostPath(output), notThere)) {
        throw UsageError("the road file would take the place of the file that is read");
    }
    std::string const text = ReadWhole(input);
    try {
        Alignment alignment = Read(text, format, arguments, how.tolerance);
        if (!arguments.station.empty()) {
            Move(alignment, TypedStation(arguments.station));
        }
        MadeRoad const made = MakeRoad(alignment, how);
        std::string const road = RoadText(made.road);
        std::vector<Finding> const findings = Findings(road);
        std::string const kept = context.dryRun ? "" : Write(output, road);
        if (context.json) {
            PrintJson(ToJson(context, Shown(input), format, Shown(output), made, findings, kept));
        } else {
            Print(Shown(output), made, findings, kept);
        }
    } catch (NotTaken const& refusal) {
        throw Failure(Shown(input) + ": " + refusal.what());
    } catch (BadChoice const& refusal) {
        throw UsageError(refusal.what());
    }
    return done;
}

} // namespace

void AddRoadImport(CommandLine& line, CLI::App& road) {
    auto const arguments = std::make_shared<ImportArguments>();
    CLI::App& import = CommandLine::AddCommand(
        road, "import", "Make a road file of another program's alignment",
        "From LandXML: lines, curves and spirals, and a profile of points of intersection. From "
        "DXF:\na polyline, or lines and arcs that meet.\n"
        "Spirals become arcs and parabolas become circular curves that leave them by no more than "
        "the\ntolerance; what was divided or approximated is told on standard error, and what "
        "cannot be taken\nover is named with its line, and nothing is written. A road file that "
        "is replaced is kept as\nFILE.bak.\n"
        "Example: kvarnio road import linje.xml -o KVARNBOK.DBF/VAG28.VL");
    auto const add = [&](char const* name, std::string& value, char const* type, char const* what) {
        return import.add_option(name, value, what)->type_name(type);
    };
    import.add_option("FILE", arguments->file, "File to read")->required();
    add("-o,--output", arguments->output, "ROADFILE", "Road file to write")->required();
    add("--format", arguments->format, "FORMAT",
        (FormatsToRead() + "; by the file's ending if not given").c_str());
    add("--name", arguments->name, "NAME",
        "LandXML: the alignment, where there are several; DXF: the road's name");
    CLI::Option* const profile =
        add("--profile", arguments->profile, "NAME", "LandXML: the profile, of several");
    import.add_flag("--no-profile", arguments->planAlone, "Leave the profile out")
        ->excludes(profile);
    add("--layer", arguments->layer, "NAME", "DXF: the layer, where there is more than one line");
    add("--unit", arguments->unit, "UNIT",
        "DXF: m, mm, cm, km, ft, us-ft or in, instead of the one that the drawing states");
    add("--station", arguments->station, "STATION",
        "Of the start; the file's if not given, 0 where it has none");
    add("--tolerance", arguments->tolerance, "METRES",
        "By which arcs may leave what they stand for, and elements may fail to meet; 0.001 if not "
        "given");
    import.add_flag("--exact", arguments->exact, "Refuse spirals and parabolas");
    line.AddDryRun(import);
    line.Run(import, [arguments](Context& context) { return Import(context, *arguments); });
}

} // namespace kvarnio
