// kvarnio road export.
#include <chrono>
#include <cmath>
#include <ctime>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>
#include <files/filerewrite.h>
#include <neighbours/dxf/dxf.h>
#include <neighbours/landxml/landxml.h>
#include <neighbours/lists/geojson.h>
#include <neighbours/lists/stationtable.h>
#include <text/codepage.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/backup.h"
#include "../shared/folder.h"
#include "../shared/output.h"
#include "../shared/platform.h"
#include "../shared/road/exchangeformat.h"
#include "../shared/road/roadarea.h"
#include "../shared/road/roadfile.h"

namespace kvarnio {
namespace {

struct ExportArguments {
    std::string file;
    std::string output;
    std::string format;
    std::string interval;
    std::string tolerance;
    std::string crs;
    std::string separator;
    bool decimalComma = false;
};

struct Exported {
    std::string text;
    std::vector<std::string> notes;
};

LandXmlTime Now() {
    std::time_t const now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    auto const print = [&](char const* format) {
        char text[32] = "";
        std::strftime(text, sizeof text, format, std::gmtime(&now));
        return std::string(text);
    };
    return {print("%Y-%m-%d"), print("%H:%M:%SZ")};
}

std::optional<double> Interval(ExportArguments const& arguments) {
    if (arguments.interval.empty()) {
        return std::nullopt;
    }
    return Number("METRES", arguments.interval);
}

// Stations that do not follow from the segments' lengths are drawn, but not taken back.
void AppendNotesOfDrawing(Road const& road, std::vector<std::string>& notes) {
    if (!road.profile.empty()) {
        notes.emplace_back("the profile is not part of a drawing");
    }
    std::vector<kovltype> const& plan = road.plan;
    for (std::size_t i = 1; i < plan.size(); ++i) {
        double const step = std::fabs(plan[i].sektion - plan[i - 1].sektion);
        if (!IsAsLongAs(Segment(plan[i - 1], plan[i]), step)) {
            notes.push_back("the stations jump at vertex " + std::to_string(i + 1) +
                            ": road import would not take the drawing back");
            return;
        }
    }
}

Exported ToFormat(Context& context, RoadFile& file, ExchangeFormat format,
                  ExportArguments const& arguments) {
    Road const road = {kvarn::ToUtf8(file.Road().namn), file.Plan(), file.Profile()};
    std::optional<double> const interval = Interval(arguments);
    std::vector<std::string> notes;
    if (road.plan.size() == 1) {
        notes.emplace_back("the plan has one vertex alone: it is left out");
    }
    if (format == ExchangeFormat::dxf) {
        AppendNotesOfDrawing(road, notes);
    } else if (road.profile.size() == 1) {
        notes.emplace_back("the profile has one vertex alone: it is left out");
    }
    switch (format) {
    case ExchangeFormat::landXml:
        return {ToLandXml(road, Now()), notes};
    case ExchangeFormat::dxf:
        return {ToDxf(road, {.interval = interval, .area = AreaOf(context, file)}), notes};
    case ExchangeFormat::geoJson: {
        GeoJsonOptions options;
        options.interval = interval;
        options.crs = arguments.crs;
        if (!arguments.tolerance.empty()) {
            options.deviation = Number("METRES", arguments.tolerance);
        }
        return {ToGeoJson(road, options), notes};
    }
    default: {
        StationTable table;
        table.interval = interval;
        table.decimalComma = arguments.decimalComma;
        if (!arguments.separator.empty()) {
            table.separator = Separator(arguments.separator);
        }
        return {ToCsv(road, table), notes};
    }
    }
}

void RequireFitting(ExchangeFormat format, ExportArguments const& arguments) {
    auto const require = [&](bool isGiven, char const* option, ExchangeFormat only) {
        if (isGiven && format != only) {
            throw UsageError(std::string(option) + " is for " + NameOf(only) + ", not for " +
                             NameOf(format));
        }
    };
    require(!arguments.crs.empty(), "--crs", ExchangeFormat::geoJson);
    require(!arguments.tolerance.empty(), "--tolerance", ExchangeFormat::geoJson);
    require(!arguments.separator.empty(), "--separator", ExchangeFormat::csv);
    require(arguments.decimalComma, "--decimal-comma", ExchangeFormat::csv);
    if (!arguments.interval.empty() && format == ExchangeFormat::landXml) {
        throw UsageError("--interval is not for landxml");
    }
}

// An export is made anew at any time, and replaces the last one without a copy; a road file is not.
void RefuseRoadFile(std::string const& output) {
    if (HasExtension(output, ".VL")) {
        throw UsageError(Shown(output) + " is a road file's name; give the export another ending");
    }
}

ExitStatus Export(Context& context, ExportArguments const& arguments) {
    ExchangeFormat const format = FormatToWrite(arguments.format, arguments.output);
    RequireFitting(format, arguments);
    RoadFile file(arguments.file);
    file.WarnOfSkippedLines();
    std::string const output = LibraryPath(arguments.output);
    RefuseRoadFile(output);
    std::error_code notThere;
    if (std::filesystem::equivalent(HostPath(output), HostPath(file.Path()), notThere)) {
        throw UsageError("the export would take the place of the road file");
    }
    try {
        Exported const exported = ToFormat(context, file, format, arguments);
        if (!context.dryRun &&
            kvarn::RewriteFile(output.c_str(), exported.text) != kvarn::Rewritten::done) {
            throw IoFailure(NotWritten(output));
        }
        for (std::string const& note : exported.notes) {
            std::cerr << "kvarnio: " << note << '\n';
        }
        if (context.json) {
            PrintJson({{"file", Shown(file.Path())},
                       {"format", NameOf(format)},
                       {"written", context.dryRun ? Json() : Json(Shown(output))},
                       {"bytes", exported.text.size()},
                       {"notes", exported.notes}});
        } else {
            std::cout << Shown(output) << '\n';
        }
    } catch (NotTaken const& refusal) {
        throw Failure(Shown(file.Path()) + ": " + refusal.what());
    } catch (BadChoice const& refusal) {
        throw UsageError(refusal.what());
    }
    return done;
}

} // namespace

void AddRoadExport(CommandLine& line, CLI::App& road) {
    auto const arguments = std::make_shared<ExportArguments>();
    CLI::App& out = CommandLine::AddCommand(
        road, "export", "Write a road for another program: LandXML, DXF, GeoJSON, a table",
        "LandXML has the plan and the profile, DXF the plan with stations and the area, GeoJSON "
        "the line\nand stations in the road's own coordinates, and a table has a line for each "
        "station. In DXF and\nGeoJSON the first coordinate is the easting.\n"
        "Example: kvarnio road export VAG27.VL -o vag27.csv --interval 20");
    AddRoadFile(out, arguments->file);
    auto const add = [&](char const* name, std::string& value, char const* type, char const* what) {
        return out.add_option(name, value, what)->type_name(type);
    };
    add("-o,--output", arguments->output, "OUT", "File to write, whole or not at all")->required();
    add("--format", arguments->format, "FORMAT",
        (FormatsToWrite() + "; by the ending of OUT if not given").c_str());
    add("--interval", arguments->interval, "METRES",
        "Between stations; a round number if not given");
    add("--tolerance", arguments->tolerance, "METRES",
        "GeoJSON: by which the line may leave the arcs; 0.001 if not given");
    add("--crs", arguments->crs, "CODE",
        "GeoJSON: the system of the road's coordinates, as in EPSG:3006");
    add("--separator", arguments->separator, "CHARACTER",
        "Table: between the fields; a semicolon if not given");
    out.add_flag("--decimal-comma", arguments->decimalComma, "Table: numbers with a comma");
    line.AddDryRun(out);
    line.Run(out, [arguments](Context& context) { return Export(context, *arguments); });
}

} // namespace kvarnio
