#include "landxml.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include <text/format.h>

#include "landxmlvalues.h"

namespace kvarnio {
namespace {

using kvarn::Format;
using pugi::xml_node;

class Reader {
  public:
    Reader(LandXmlDocument const& document, LandXmlChoice const& choice)
        : m_values(document), m_choice(choice) {}

    Alignment Read(xml_node alignment) {
        Alignment read;
        read.name = alignment.attribute("name").value();
        if (!m_values.Note().empty()) {
            read.notes.push_back(m_values.Note());
        }
        read.firstStation = FirstStation(alignment);
        NoteOthers(alignment, {"CoordGeom", "Profile", "StaEquation", "AlignPIs", "Feature"}, read);
        ReadDirection(alignment, read);
        ReadPlan(alignment, read);
        if (!m_choice.planAlone) {
            ReadProfile(alignment, read);
        }
        return read;
    }

  private:
    // That of the alignment or, where it states none, of its first element.
    double FirstStation(xml_node alignment) const {
        xml_node const first = Child(alignment, "CoordGeom").first_child();
        xml_node const stating = alignment.attribute("staStart") ? alignment : first;
        return stating.attribute("staStart") ? m_values.Length(stating, "staStart") : 0;
    }

    void NoteOthers(xml_node parent, std::initializer_list<std::string_view> known,
                    Alignment& read) const {
        for (xml_node const child : parent.children()) {
            bool const isKnown =
                std::find(known.begin(), known.end(), LocalName(child)) != known.end();
            if (child.type() == pugi::node_element && !isKnown) {
                read.notes.push_back(m_values.Where(child) +
                                     ": has no place in a road file and is left out");
            }
        }
    }

    // 1 for a curve to the left.
    double Side(xml_node element) const {
        std::string_view const rot = element.attribute("rot").value();
        if (rot != "cw" && rot != "ccw") {
            m_values.Refuse(element,
                            "wanted cw or ccw as its rot, got " + Quoted(std::string(rot)));
        }
        return rot == "ccw" ? 1 : -1;
    }

    // A station equation says where stations jump; one at the start may only turn them.
    void ReadDirection(xml_node alignment, Alignment& read) const {
        for (xml_node const equation : Children(alignment, "StaEquation")) {
            bool const turns =
                std::string_view(equation.attribute("staIncrement").value()) == "decreasing";
            bool const jumps = m_values.Length(equation, "staAhead") != read.firstStation ||
                               (equation.attribute("staInternal") &&
                                m_values.Length(equation, "staInternal") != read.firstStation);
            if (jumps || !turns) {
                m_values.Refuse(equation,
                                "stations jump there; a road file has no station equations");
            }
            read.stationsDecrease = true;
            read.notes.push_back(m_values.Where(equation) + ": the stations decrease");
        }
    }

    void ReadPlan(xml_node alignment, Alignment& read) {
        double station = read.firstStation;
        for (xml_node const geometry : Children(alignment, "CoordGeom")) {
            for (xml_node const child : geometry.children()) {
                if (LocalName(child) == "Feature" || child.type() != pugi::node_element) {
                    continue;
                }
                PlanElement element = Element(child);
                element.where = m_values.Where(child);
                element.station =
                    child.attribute("staStart") ? m_values.Length(child, "staStart") : station;
                station =
                    *element.station + (read.stationsDecrease ? -1 : 1) * LengthOf(child, element);
                read.plan.push_back(std::move(element));
            }
        }
        if (!read.plan.empty()) {
            read.lastStation = station;
        } else if (xml_node const points = Child(alignment, "AlignPIs")) {
            m_values.Refuse(points,
                            "the alignment is given by its points of intersection alone, without a "
                            "CoordGeom");
        }
    }

    PlanElement Element(xml_node node) {
        std::string_view const name = LocalName(node);
        if (name == "Line") {
            return Line(node);
        }
        if (name == "Spiral") {
            return SpiralOf(node);
        }
        if (name != "Curve") {
            m_values.Refuse(node, "a road file has lines and curves alone");
        }
        return Curve(node);
    }

    double LengthOf(xml_node node, PlanElement const& element) const {
        if (element.spiral) {
            return element.spiral->length;
        }
        return node.attribute("length") ? m_values.Length(node, "length")
                                        : Segment(element.from, element.to, element.bulge).Length();
    }

    PlanElement Line(xml_node node) {
        return {.from = m_values.Point(node, "Start"), .to = m_values.Point(node, "End")};
    }

    PlanElement Curve(xml_node node) {
        RoadPoint const from = m_values.Point(node, "Start");
        RoadPoint const to = m_values.Point(node, "End");
        double const side = Side(node);
        if (from.x == to.x && from.y == to.y) {
            m_values.Refuse(node, "ends where it begins");
        }
        RoadPoint const centre = m_values.Point(node, "Center");
        return {.from = from, .to = to, .bulge = side * BulgeRound(node, centre, from, to, side)};
    }

    double BulgeRound(xml_node node, RoadPoint centre, RoadPoint from, RoadPoint to,
                      double side) const {
        RoadPoint const a = from - centre;
        RoadPoint const b = to - centre;
        double const radius = kvarn::Length(a);
        RequireSame(node, radius, "Start from Center", kvarn::Length(b), "End from Center");
        if (node.attribute("radius")) {
            RequireSame(node, radius, "Start from Center", m_values.Length(node, "radius"),
                        "its radius");
        }
        double turn = side * std::atan2(a.y * b.x - a.x * b.y, a.x * b.x + a.y * b.y);
        turn += turn < 0 ? 2 * std::numbers::pi : 0;
        return std::tan(turn / 4);
    }

    void RequireSame(xml_node node, double a, char const* what, double b, char const* other) const {
        if (!(std::fabs(a - b) <= m_choice.tolerance)) {
            m_values.Refuse(node,
                            Format("the distance of %s is %.4lf m and %s is %.4lf: they differ by "
                                   "%.4lf; --tolerance decides",
                                   what, a, other, b, std::fabs(a - b)));
        }
    }

    PlanElement SpiralOf(xml_node node) {
        constexpr std::array<std::pair<std::string_view, SpiralLaw>, 5> laws = {{
            {"clothoid", SpiralLaw::clothoid},
            {"bloss", SpiralLaw::bloss},
            {"cosine", SpiralLaw::cosine},
            {"sinusoid", SpiralLaw::sinusoid},
            {"biquadratic", SpiralLaw::biquadratic},
        }};
        std::string_view const type = node.attribute("spiType").value();
        auto const* const law = std::find_if(
            laws.begin(), laws.end(), [&](auto const& known) { return known.first == type; });
        if (law == laws.end()) {
            m_values.Refuse(node,
                            "a spiral of the kind " + Quoted(std::string(type)) + " is not known");
        }
        double const side = Side(node);
        double const length = m_values.Length(node, "length");
        if (!(length > 0)) {
            m_values.Refuse(node, Format("its length is %.4lf m", length));
        }
        return {.from = m_values.Point(node, "Start"),
                .to = m_values.Point(node, "End"),
                .spiral = Spiral{law->second, length, side * Curvature(node, "radiusStart"),
                                 side * Curvature(node, "radiusEnd")}};
    }

    double Curvature(xml_node node, char const* attribute) const {
        std::string_view const text = node.attribute(attribute).value();
        if (text == "INF" || text == "inf" || text == "Infinity") {
            return 0;
        }
        double const radius = m_values.Length(node, attribute);
        if (radius < 0) {
            m_values.Refuse(node, Format("its %s is %.4lf", attribute, radius));
        }
        return radius == 0 ? 0 : 1 / radius; // old programs write 0 for a straight
    }

    void ReadProfile(xml_node alignment, Alignment& read) {
        std::vector<xml_node> profiles;
        std::vector<std::string> names;
        for (xml_node const profile : Children(alignment, "Profile")) {
            NoteOthers(profile, {"ProfAlign", "Feature"}, read);
            for (xml_node const align : Children(profile, "ProfAlign")) {
                std::string const name = align.attribute("name").value();
                if (m_choice.profile.empty() || name == m_choice.profile) {
                    profiles.push_back(align);
                }
                names.push_back(name);
            }
        }
        if (profiles.empty() && !m_choice.profile.empty()) {
            m_values.Refuse(alignment, "there is no profile " + Quoted(m_choice.profile) +
                                           (names.empty() ? "" : "; there are " + Listed(names)));
        }
        if (profiles.size() > 1) {
            m_values.Refuse(alignment, "there are " + std::to_string(profiles.size()) +
                                           " profiles: " + Listed(names) +
                                           "; --profile chooses one, --no-profile none");
        }
        if (!profiles.empty()) {
            for (xml_node const point : profiles.front().children()) {
                if (LocalName(point) != "Feature" && point.type() == pugi::node_element) {
                    read.profile.push_back(PointOfProfile(point));
                }
            }
        }
    }

    ProfilePoint PointOfProfile(xml_node node) const {
        std::string_view const name = LocalName(node);
        if (name != "PVI" && name != "ParaCurve" && name != "UnsymParaCurve" &&
            name != "CircCurve") {
            m_values.Refuse(node,
                            "a profile has PVI, ParaCurve, UnsymParaCurve and CircCurve alone");
        }
        RoadPoint const at = m_values.Pair(node);
        ProfilePoint point{.station = at.x, .height = at.y, .where = m_values.Where(node)};
        if (name == "UnsymParaCurve") {
            point.lengthBefore = m_values.Length(node, "lengthIn");
            point.lengthAfter = m_values.Length(node, "lengthOut");
        } else if (name == "ParaCurve" || node.attribute("length")) {
            point.lengthBefore = point.lengthAfter = m_values.Length(node, "length") / 2;
        }
        if (name == "CircCurve") {
            point.radius = m_values.Length(node, "radius");
        }
        if (!(point.lengthBefore >= 0) || !(point.lengthAfter >= 0) ||
            (point.radius && *point.radius == 0)) {
            m_values.Refuse(node, "its length or radius is nothing or less");
        }
        return point;
    }

    LandXmlValues m_values;
    LandXmlChoice const& m_choice;
};

std::vector<xml_node> AlignmentsIn(LandXmlDocument const& document) {
    std::vector<xml_node> found;
    for (xml_node const group : Children(document.Root(), "Alignments")) {
        for (xml_node const alignment : Children(group, "Alignment")) {
            found.push_back(alignment);
        }
    }
    return found;
}

LandXmlAlignment Summary(xml_node alignment) {
    LandXmlAlignment summary;
    summary.name = alignment.attribute("name").value();
    for (xml_node const geometry : Children(alignment, "CoordGeom")) {
        summary.lines += Children(geometry, "Line").size();
        summary.curves += Children(geometry, "Curve").size();
        summary.spirals += Children(geometry, "Spiral").size();
    }
    for (xml_node const profile : Children(alignment, "Profile")) {
        for (xml_node const align : Children(profile, "ProfAlign")) {
            summary.profiles.emplace_back(align.attribute("name").value());
        }
    }
    return summary;
}

xml_node Chosen(std::vector<xml_node> const& alignments, std::string const& name) {
    std::vector<xml_node> fitting;
    std::vector<std::string> names;
    for (xml_node const alignment : alignments) {
        names.emplace_back(alignment.attribute("name").value());
        if (name.empty() || names.back() == name) {
            fitting.push_back(alignment);
        }
    }
    if (names.empty()) {
        throw NotTaken("the file holds no alignment");
    }
    if (fitting.empty()) {
        throw NotTaken("there is no alignment " + Quoted(name) + "; there are " + Listed(names));
    }
    if (fitting.size() > 1) {
        throw NotTaken("there are " + std::to_string(fitting.size()) +
                       " alignments: " + Listed(names) + "; --name chooses one");
    }
    return fitting.front();
}

} // namespace

bool IsLandXml(std::string_view text) {
    constexpr std::size_t enough = 4096; // for what stands before the root element
    return text.substr(0, enough).find("<LandXML") != std::string_view::npos;
}

std::vector<LandXmlAlignment> ListLandXml(std::string_view text) {
    LandXmlDocument const document(text);
    std::vector<LandXmlAlignment> list;
    for (xml_node const alignment : AlignmentsIn(document)) {
        list.push_back(Summary(alignment));
    }
    return list;
}

Alignment ReadLandXml(std::string_view text, LandXmlChoice const& choice) {
    LandXmlDocument const document(text);
    return Reader(document, choice).Read(Chosen(AlignmentsIn(document), choice.name));
}

} // namespace kvarnio
