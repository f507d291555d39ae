#include "landxmlvalues.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <text/format.h>

#include "../road/alignment.h"
#include "../road/station.h"

namespace kvarnio {
namespace {

using pugi::xml_node;

struct KnownUnit {
    std::string_view name;
    double metres;
};
constexpr std::array<KnownUnit, 8> knownUnits = {{
    {"meter", 1},
    {"millimeter", 0.001},
    {"centimeter", 0.01},
    {"kilometer", 1000},
    {"foot", 0.3048},
    {"USSurveyFoot", 1200.0 / 3937},
    {"inch", 0.0254},
    {"mile", 1609.344},
}};

constexpr std::string_view blanks = " \t\r\n";

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(blanks) == std::string_view::npos;
}

} // namespace

LandXmlValues::LandXmlValues(LandXmlDocument const& document) : m_document(document) {
    xml_node const units = Child(document.Root(), "Units");
    xml_node const metric = Child(units, "Metric");
    xml_node const system = metric ? metric : Child(units, "Imperial");
    if (!system) {
        m_note = "the file states no unit: its numbers were taken as metres";
        return;
    }
    std::string const name = system.attribute("linearUnit").value();
    auto const* const found =
        std::find_if(knownUnits.begin(), knownUnits.end(),
                     [&](KnownUnit const& unit) { return unit.name == name; });
    if (found == knownUnits.end()) {
        Refuse(system, "the unit of length " + Quoted(name) + " is not known");
    }
    m_metres = found->metres;
    if (m_metres != 1) {
        m_note = "the file's unit is " + name + ": its numbers were multiplied by " +
                 kvarn::Format("%.12lf", m_metres);
    }
}

void LandXmlValues::Refuse(xml_node node, std::string const& why) const {
    throw NotTaken(Where(node) + ": " + why);
}

double LandXmlValues::Length(xml_node node, char const* attribute) const {
    std::string_view const text = node.attribute(attribute).value();
    std::string_view rest = text;
    std::optional<double> const length = TakeLength(rest);
    if (!length || !IsBlank(rest)) {
        Refuse(node, std::string("wanted a number as its ") + attribute + ", got " + Quoted(text));
    }
    return *length;
}

std::optional<double> LandXmlValues::TakeLength(std::string_view& text) const {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    std::string_view const word = text.substr(0, text.find_first_of(blanks));
    std::optional<double> const number = ReadNumber(word);
    text.remove_prefix(word.size());
    bool const isNear = number && std::fabs(*number * m_metres) <= farthest;
    return isNear ? std::optional(*number * m_metres) : std::nullopt;
}

RoadPoint LandXmlValues::Pair(xml_node node) const {
    std::string_view text = node.child_value();
    std::optional<double> const first = TakeLength(text);
    std::optional<double> const second = TakeLength(text);
    if (!first || !second || (!IsBlank(text) && (!TakeLength(text) || !IsBlank(text)))) {
        Refuse(node, "wanted two or three numbers, got " + Quoted(node.child_value()));
    }
    return {*first, *second};
}

std::optional<RoadPoint> LandXmlValues::PointIn(xml_node element, char const* name) {
    xml_node const child = Child(element, name);
    if (!child) {
        return std::nullopt;
    }
    pugi::xml_attribute const reference = child.attribute("pntRef");
    if (!reference) {
        return Pair(child);
    }
    if (m_points.empty()) {
        for (xml_node const points : Children(m_document.Root(), "CgPoints")) {
            for (xml_node const point : Children(points, "CgPoint")) {
                auto const [place, isNew] =
                    m_points.emplace(point.attribute("name").value(), point);
                place->second = isNew ? point : xml_node();
            }
        }
    }
    auto const found = m_points.find(reference.value());
    bool const isKnown = found != m_points.end();
    xml_node const point = isKnown ? found->second : xml_node();
    if (!point) {
        Refuse(child, (isKnown ? "there are more points " : "there is no point ") +
                          Quoted(reference.value()));
    }
    return Pair(point);
}

RoadPoint LandXmlValues::Point(xml_node element, char const* name) {
    std::optional<RoadPoint> const point = PointIn(element, name);
    if (!point) {
        Refuse(element, std::string("has no ") + name);
    }
    return *point;
}

} // namespace kvarnio
