// kvarnio formats.
#include <memory>

#include <CLI/CLI.hpp>
#include <kvarnprog.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/output.h"

namespace kvarnio {
namespace {

std::string Size(double width, double height) {
    return Shortest(width) + " x " + Shortest(height);
}

Json ToJson(double width, double height) {
    return {{"width", width}, {"height", height}};
}

// The indices of those that are asked for.
std::vector<int> Wanted(CRitningsFormat& table, std::string const& name) {
    std::vector<int> indices;
    if (name.empty()) {
        for (int i = 0; i < table.m_antal; ++i) {
            indices.push_back(i);
        }
        return indices;
    }
    int const index = table.Format2Index(Text("NAME", name).c_str());
    if (index < 0) {
        throw Failure("there is no sheet format " + name + ", spelt exactly so");
    }
    return {index};
}

ExitStatus Formats(Context& context, std::string const& name) {
    CRitningsFormat table;
    Json json = Json::array();
    std::vector<std::vector<std::string>> rows = {
        {"INDEX", "NAME", "DRAWING AREA", "FRAME", "SHEET"}};
    for (int const i : Wanted(table, name)) {
        ritningsformattype const& format = table.m_format[i];
        json.push_back({{"index", i},
                        {"name", format.namn},
                        {"drawingArea", ToJson(format.inreBredd, format.inreHojd)},
                        {"frame", ToJson(format.ramBredd, format.ramHojd)},
                        {"sheet", ToJson(format.arkBredd, format.arkHojd)}});
        rows.push_back({std::to_string(i), format.namn, Size(format.inreBredd, format.inreHojd),
                        Size(format.ramBredd, format.ramHojd),
                        Size(format.arkBredd, format.arkHojd)});
    }
    context.json ? PrintJson(name.empty() ? json : json.front()) : PrintTable(rows);
    return done;
}

} // namespace

void AddFormatsCommand(CommandLine& line) {
    auto const name = std::make_shared<std::string>();
    CLI::App& formats =
        line.AddCommand("formats", "Show the sheet formats of drawings, in millimetres",
                        "Width x height.\nExample: kvarnio formats A3L");
    formats.add_option("NAME", *name, "One format, in capitals; without it, all");
    line.Run(formats, [name](Context& context) { return Formats(context, *name); });
}

} // namespace kvarnio
