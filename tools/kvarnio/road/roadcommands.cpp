// kvarnio road, kvarnio road info.
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>
#include <text/format.h>

#include "../commands.h"
#include "../shared/output.h"
#include "../shared/road/exchangeformat.h"
#include "../shared/road/roadfile.h"
#include "otherroads.h"
#include "roadelements.h"
#include <neighbours/road/roadgeometry.h>

namespace kvarnio {
namespace {

// What is told of a plan or a profile.
struct PartInfo {
    std::size_t vertices;
    double length;
    double firstStation;
    double lastStation;
    Extent extent;
};

PartInfo InfoOf(std::vector<kovltype> const& part, double length) {
    return {part.size(), length, part.front().sektion, part.back().sektion, ExtentOf(part)};
}

std::string Type(RoadFile const& file) {
    bool const plan = !file.Plan().empty();
    bool const profile = !file.Profile().empty();
    return plan && profile ? "plan and profile" : plan ? "plan" : profile ? "profile" : "empty";
}

std::string Range(double from, double to) {
    return kvarn::Format("%.4lf to %.4lf", from, to);
}

Json ToJson(double from, double to) {
    return {{"from", from}, {"to", to}};
}

class Report {
  public:
    explicit Report(RoadFile const& file)
        : m_rows({{"FILE", Shown(file.Path())}, {"NAME", file.Name()}, {"TYPE", Type(file)}}),
          m_json({{"file", Shown(file.Path())}, {"name", file.Name()}, {"type", Type(file)}}) {}

    void AddPlan(PartInfo const& plan) {
        Extent const& e = plan.extent;
        Json& json = Begin("PLAN", "plan", plan);
        m_rows.push_back({"  x (north)", Range(e.minX, e.maxX)});
        m_rows.push_back({"  y (east)", Range(e.minY, e.maxY)});
        json["x"] = ToJson(e.minX, e.maxX);
        json["y"] = ToJson(e.minY, e.maxY);
    }
    void AddProfile(PartInfo const& profile) {
        Json& json = Begin("PROFILE", "profile", profile);
        m_rows.push_back({"  heights", Range(profile.extent.minX, profile.extent.maxX)});
        json["heights"] = ToJson(profile.extent.minX, profile.extent.maxX);
    }
    void AddElements(std::vector<kovltype> const& plan) { m_json["elements"] = ElementsOf(plan); }
    void Print(bool json) const {
        if (json) {
            PrintJson(m_json);
            return;
        }
        PrintTable(m_rows);
        if (m_json.contains("elements")) {
            std::cout << '\n';
            PrintElements(m_json["elements"]);
        }
    }

  private:
    Json& Begin(char const* title, char const* name, PartInfo const& part) {
        m_rows.push_back({title, ""});
        m_rows.push_back({"  vertices", std::to_string(part.vertices)});
        m_rows.push_back({"  length", kvarn::Format("%.4lf", part.length)});
        m_rows.push_back({"  stations", Range(part.firstStation, part.lastStation)});
        m_json[name] = {{"vertices", part.vertices},
                        {"length", part.length},
                        {"stations", ToJson(part.firstStation, part.lastStation)}};
        return m_json[name];
    }

    std::vector<std::vector<std::string>> m_rows;
    Json m_json;
};

struct InfoArguments {
    std::string file;
    bool elements = false;
};

ExitStatus Info(Context& context, InfoArguments const& arguments) {
    if (IsExchangeFile(arguments.file)) {
        PrintOtherRoads(context, arguments.file);
        return done;
    }
    RoadFile file(arguments.file);
    if (file.Plan().empty() && file.Profile().empty()) {
        throw Failure(Shown(file.Path()) + " is no road file: none of its lines gives a vertex");
    }
    file.WarnOfSkippedLines();
    Report report(file);
    if (!file.Plan().empty()) {
        report.AddPlan(InfoOf(file.Plan(), LengthOf(file.Plan())));
    }
    if (std::vector<kovltype> const& profile = file.Profile(); !profile.empty()) {
        report.AddProfile(InfoOf(profile, profile.back().y - profile.front().y));
    }
    if (arguments.elements) {
        static_cast<void>(file.PlanToAsk());
        report.AddElements(file.Plan());
    }
    report.Print(context.json);
    return done;
}

void AddInfo(CLI::App& road, CommandLine& line) {
    auto const arguments = std::make_shared<InfoArguments>();
    CLI::App& info = CommandLine::AddCommand(
        road, "info", "Show what a road file holds: name, type, length, stations, extent",
        "The length of a plan is that of its straights and arcs, that of a profile is the "
        "difference of its stations;\nthe extent includes what arcs bow beyond their ends.\n"
        "Example: kvarnio road info KVARNBOK.DBF/VAG27.VL");
    AddRoadFile(info, arguments->file);
    info.add_flag("--elements", arguments->elements,
                  "List the straights and arcs of the plan; bearings are in gon, clockwise from "
                  "north");
    line.Run(info, [arguments](Context& context) { return Info(context, *arguments); });
}

} // namespace

CLI::App& AddRoadCommands(CommandLine& line) {
    CLI::App& road = line.AddGroup("road",
                                   "Ask a road file: coordinates, stations, heights; "
                                   "check it; draw it",
                                   "x is the northing and y the easting, in metres.");
    AddInfo(road, line);
    return road;
}

} // namespace kvarnio
