#include "landxml.h"

#include <cmath>
#include <sstream>

#include <pugixml.hpp>
#include <text/format.h>

namespace kvarnio {
namespace {

using kvarn::Format;
using pugi::xml_node;

void Set(xml_node node, char const* attribute, std::string const& value) {
    node.append_attribute(attribute).set_value(value.c_str());
}

void SetPoint(xml_node element, char const* name, RoadPoint p) {
    std::string const text = Metres(p.x) + ' ' + Metres(p.y);
    element.append_child(name).text().set(text.c_str());
}

void RequireFinite(std::vector<kovltype> const& vertices, char const* part) {
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        if (!IsFinite(vertices[i])) {
            throw NotTaken(std::string("vertex ") + std::to_string(i + 1) + " of the " + part +
                           " holds a value that is not a number or is infinite");
        }
    }
}

// A name without what XML has no letters for.
std::string InXml(std::string name) {
    for (char& letter : name) {
        letter = static_cast<unsigned char>(letter) < ' ' ? ' ' : letter;
    }
    return name;
}

class Writer {
  public:
    Writer(Road const& road, LandXmlTime const& made) : m_road(road) {
        xml_node declaration = m_document.append_child(pugi::node_declaration);
        Set(declaration, "version", "1.0");
        Set(declaration, "encoding", "UTF-8");
        m_root = m_document.append_child("LandXML");
        Set(m_root, "xmlns", "http://www.landxml.org/schema/LandXML-1.2");
        Set(m_root, "version", "1.2");
        Set(m_root, "date", made.date);
        Set(m_root, "time", made.time);
        Set(m_root, "language", "English");
        Set(m_root, "readOnly", "false");
    }

    std::string Write() {
        AddUnits();
        xml_node alignment = m_root.append_child("Alignments").append_child("Alignment");
        std::vector<kovltype> const& plan = m_road.plan;
        std::vector<kovltype> const& first = plan.size() < 2 ? m_road.profile : plan;
        bool const decreases = plan.size() > 1 && plan[1].sektion < plan[0].sektion;
        Set(alignment, "name", InXml(m_road.name));
        Set(alignment, "length", Metres(std::fabs(first.back().sektion - first.front().sektion)));
        Set(alignment, "staStart", Metres(first.front().sektion));
        AddPlan(alignment, decreases ? -1 : 1);
        if (m_road.profile.size() > 1) {
            AddProfile(alignment);
        }
        if (decreases) {
            AddTurn(alignment);
        }
        std::ostringstream out;
        m_document.save(out, "  ", pugi::format_default, pugi::encoding_utf8);
        return out.str();
    }

  private:
    void AddUnits() {
        xml_node metric = m_root.append_child("Units").append_child("Metric");
        for (auto const& [attribute, unit] : {std::pair("areaUnit", "squareMeter"),
                                              {"linearUnit", "meter"},
                                              {"volumeUnit", "cubicMeter"},
                                              {"temperatureUnit", "celsius"},
                                              {"pressureUnit", "milliBars"},
                                              {"angularUnit", "radians"},
                                              {"directionUnit", "radians"}}) {
            Set(metric, attribute, unit);
        }
        xml_node application = m_root.append_child("Application");
        Set(application, "name", "kvarnio");
    }

    void AddPlan(xml_node alignment, double direction) {
        std::vector<kovltype> const& plan = m_road.plan;
        if (plan.size() < 2) {
            return;
        }
        xml_node geometry = alignment.append_child("CoordGeom");
        for (std::size_t i = 1; i < plan.size(); ++i) {
            AddElement(geometry, i, direction * (plan[i].sektion - plan[i - 1].sektion));
        }
    }

    // The length is that by which the stations grow, so that programs that add lengths get them.
    void AddElement(xml_node geometry, std::size_t i, double length) {
        kovltype const& from = m_road.plan[i - 1];
        kovltype const& to = m_road.plan[i];
        Segment const segment(from, to);
        if (!IsAsLongAs(segment, length)) {
            throw NotTaken("vertex " + std::to_string(i + 1) + " of the plan: its station " +
                           Format("%.4lf", to.sektion) +
                           Format(" differs by %.4lf m from that by the segment's length; LandXML "
                                  "would need a station equation",
                                  length - segment.Length()));
        }
        xml_node element = geometry.append_child(segment.IsArc() ? "Curve" : "Line");
        if (segment.IsArc()) {
            Set(element, "rot", from.bulge > 0 ? "ccw" : "cw");
            Set(element, "radius", Metres(segment.Radius()));
            Set(element, "crvType", "arc");
        }
        Set(element, "length", Metres(length));
        Set(element, "staStart", Metres(from.sektion));
        SetPoint(element, "Start", segment.From());
        if (segment.IsArc()) {
            SetPoint(element, "Center", segment.Centre());
        }
        SetPoint(element, "End", segment.To());
    }

    // A point where a curve begins and one where it ends say how far it reaches, and between them
    // stands where its tangents meet.
    void AddProfile(xml_node alignment) {
        xml_node profile = alignment.append_child("Profile");
        xml_node align = profile.append_child("ProfAlign");
        Set(align, "name", InXml(m_road.name));
        std::vector<kovltype> const& vertices = m_road.profile;
        for (std::size_t i = 0; i < vertices.size(); ++i) {
            if (i > 0 && !(vertices[i].y > vertices[i - 1].y)) {
                throw NotTaken("vertex " + std::to_string(i + 1) + " of the profile: its station " +
                               Format("%.4lf", vertices[i].y) +
                               " does not follow that of the vertex before it");
            }
            if (i > 0) {
                AddCurve(align, vertices[i - 1], vertices[i], i);
            }
            SetPoint(align, "PVI", {vertices[i].y, vertices[i].x});
        }
    }

    static void AddCurve(xml_node align, kovltype const& from, kovltype const& to, std::size_t i) {
        Segment const curve(from, to);
        if (!curve.IsArc()) {
            return;
        }
        double const chord = std::atan2(to.x - from.x, to.y - from.y);
        double const half = 2 * std::atan(from.bulge);
        constexpr double steepest = 1.5; // radians
        if (std::fabs(chord) + std::fabs(half) > steepest) {
            throw NotTaken("vertex " + std::to_string(i) +
                           " of the profile: its vertical curve stands upright");
        }
        double const tangent = curve.Radius() * std::tan(std::fabs(half));
        double const in = chord - half;
        SetPoint(align, "CircCurve",
                 {from.y + tangent * std::cos(in), from.x + tangent * std::sin(in)});
        Set(align.last_child(), "length", Metres(to.y - from.y));
        Set(align.last_child(), "radius", Metres(curve.Radius()));
    }

    static void AddTurn(xml_node alignment) {
        xml_node turn = alignment.append_child("StaEquation");
        std::string const start = alignment.attribute("staStart").value();
        for (char const* const attribute : {"staAhead", "staBack", "staInternal"}) {
            Set(turn, attribute, start);
        }
        Set(turn, "staIncrement", "decreasing");
    }

    Road const& m_road;
    pugi::xml_document m_document;
    xml_node m_root;
};

} // namespace

std::string ToLandXml(Road const& road, LandXmlTime const& made) {
    RequireFinite(road.plan, "plan");
    RequireFinite(road.profile, "profile");
    if (road.plan.size() < 2 && road.profile.size() < 2) {
        throw NotTaken("the road has neither a plan nor a profile of two vertices");
    }
    return Writer(road, made).Write();
}

} // namespace kvarnio
