#include "roadelements.h"

#include <text/format.h>

#include <neighbours/road/roadgeometry.h>

namespace kvarnio {
namespace {

Json Bearing(Segment const& segment, double fraction) {
    auto const bearing = BearingAt(segment, fraction);
    return bearing ? Json(*bearing) : Json();
}

Json ElementBetween(kovltype const& from, kovltype const& to) {
    Segment const segment(from, to);
    bool const isArc = segment.IsArc();
    return {{"type", !isArc           ? "straight"
                     : from.bulge > 0 ? "left"
                                      : "right"},
            {"from", from.sektion},
            {"to", to.sektion},
            {"length", segment.Length()},
            {"radius", isArc ? Json(segment.Radius()) : Json()},
            {"bearing", Bearing(segment, 0)},
            {"bearingAtEnd", Bearing(segment, 1)}};
}

std::string Cell(Json const& number) {
    return number.is_null() ? "-" : kvarn::Format("%.4lf", number.get<double>());
}

} // namespace

Json ElementsOf(std::span<kovltype const> plan) {
    Json elements = Json::array();
    for (std::size_t i = 1; i < plan.size(); ++i) {
        elements.push_back(ElementBetween(plan[i - 1], plan[i]));
    }
    return elements;
}

void PrintElements(Json const& elements) {
    std::vector<std::vector<std::string>> rows = {
        {"ELEMENT", "FROM", "TO", "LENGTH", "RADIUS", "BEARING", "AT ITS END"}};
    for (Json const& element : elements) {
        auto const& type = element["type"].get_ref<std::string const&>();
        rows.push_back({type == "straight" ? type : "arc to the " + type, Cell(element["from"]),
                        Cell(element["to"]), Cell(element["length"]), Cell(element["radius"]),
                        Cell(element["bearing"]), Cell(element["bearingAtEnd"])});
    }
    PrintTable(rows);
}

} // namespace kvarnio
