#include "landxml.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <numbers>

#include <pugixml.hpp>
#include <text/format.h>

#include "letters.h"

namespace kvarnio {
namespace {

using kvarn::Format;
using pugi::xml_node;

constexpr int deepest = 64; // levels of elements; files of road programs have about twenty

std::string_view LocalName(xml_node node) {
    std::string_view const name = node.name();
    std::size_t const colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

// The child elements of a name, wherever they stand among the others.
std::vector<xml_node> Children(xml_node node, std::string_view name) {
    std::vector<xml_node> found;
    for (xml_node const child : node.children()) {
        if (LocalName(child) == name) {
            found.push_back(child);
        }
    }
    return found;
}

xml_node Child(xml_node node, std::string_view name) {
    for (xml_node const child : node.children()) {
        if (LocalName(child) == name) {
            return child;
        }
    }
    return {};
}

std::string Quoted(std::string const& text) {
    return '"' + OnOneLine(text) + '"';
}

std::string Listed(std::vector<std::string> const& names) {
    std::string list;
    for (std::string const& name : names) {
        list += (list.empty() ? "" : ", ") + Quoted(name);
    }
    return list;
}

// The text's lines, by the positions that the parser tells.
class LineNumbers {
  public:
    explicit LineNumbers(std::string_view text) {
        for (std::size_t at = text.find('\n'); at != std::string_view::npos;
             at = text.find('\n', at + 1)) {
            m_ends.push_back(at);
        }
    }
    std::size_t Of(std::ptrdiff_t position) const {
        auto const end =
            std::lower_bound(m_ends.begin(), m_ends.end(), static_cast<std::size_t>(position));
        return 1 + static_cast<std::size_t>(end - m_ends.begin());
    }

  private:
    std::vector<std::size_t> m_ends;
};

// What stands before the root element. A document type could define entities.
void RequireNoDoctype(std::string_view text) {
    std::size_t const at = text.find("<!DOCTYPE");
    std::size_t const root = text.find("<LandXML");
    if (at != std::string_view::npos && at < root) {
        throw NotTaken(
            "line " +
            std::to_string(LineNumbers(text.substr(0, at)).Of(static_cast<std::ptrdiff_t>(at))) +
            ": a document type (DOCTYPE), which LandXML has none of");
    }
}

class Document {
  public:
    explicit Document(std::string_view text) : m_lines(text) {
        RequirePlainText(text);
        RequireNoDoctype(text);
        pugi::xml_parse_result const result = m_document.load_buffer(
            text.data(), text.size(),
            pugi::parse_cdata | pugi::parse_escapes | pugi::parse_wconv_attribute |
                pugi::parse_eol | pugi::parse_embed_pcdata,
            EncodingOf(text));
        if (!result) {
            throw NotTaken("line " + std::to_string(m_lines.Of(result.offset)) +
                           ": this is no XML, or the file is not whole: " + result.description());
        }
        m_root = m_document.first_child();
        if (LocalName(m_root) != "LandXML") {
            throw NotTaken("this is no LandXML: its root element is " + Quoted(m_root.name()));
        }
        RequireShallow();
    }

    xml_node Root() const { return m_root; }

    // For messages.
    std::string Where(xml_node node) const {
        std::string where = "line " + std::to_string(m_lines.Of(node.offset_debug())) + ", " +
                            std::string(LocalName(node));
        if (char const* const name = node.attribute("name").value(); *name != '\0') {
            where += " " + Quoted(name);
        }
        return where;
    }

  private:
    static pugi::xml_encoding EncodingOf(std::string_view text) {
        std::string_view const declaration = text.substr(0, text.find("?>"));
        return declaration.starts_with("<?xml") &&
                       declaration.find("8859-1") != std::string_view::npos
                   ? pugi::encoding_latin1
                   : pugi::encoding_utf8;
    }

    void RequireShallow() const {
        int depth = 1;
        for (xml_node node = m_root; node;) {
            if (xml_node const child = node.first_child()) {
                if (++depth > deepest) {
                    throw NotTaken(Where(child) + ": elements are nested more than " +
                                   std::to_string(deepest) + " deep");
                }
                node = child;
                continue;
            }
            while (node && !node.next_sibling()) {
                node = node.parent();
                --depth;
            }
            node = node.next_sibling();
        }
    }

    LineNumbers m_lines;
    pugi::xml_document m_document;
    xml_node m_root;
};

// Metres in the file's unit.
struct Unit {
    double metres = 1;
    std::string note;
};

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

Unit UnitOf(Document const& document) {
    xml_node const units = Child(document.Root(), "Units");
    xml_node const system = units.first_child();
    if (!system) {
        return {1, "the file states no unit: its numbers were taken as metres"};
    }
    std::string const name = system.attribute("linearUnit").value();
    auto const* const found =
        std::find_if(knownUnits.begin(), knownUnits.end(),
                     [&](KnownUnit const& unit) { return unit.name == name; });
    if (found == knownUnits.end()) {
        throw NotTaken(document.Where(system) + ": the unit of length " + Quoted(name) +
                       " is not known");
    }
    if (found->metres == 1) {
        return {};
    }
    return {found->metres, "the file's unit is " + name + ": its numbers were multiplied by " +
                               Format("%.12lf", found->metres)};
}

class Reader {
  public:
    Reader(Document const& document, LandXmlChoice const& choice)
        : m_document(document), m_choice(choice), m_unit(UnitOf(document)) {}

    Alignment Read(xml_node alignment) {
        Alignment read;
        read.name = alignment.attribute("name").value();
        if (!m_unit.note.empty()) {
            read.notes.push_back(m_unit.note);
        }
        read.firstStation = alignment.attribute("staStart") ? Length(alignment, "staStart") : 0;
        ReadDirection(alignment, read);
        ReadPlan(alignment, read);
        if (!m_choice.planAlone) {
            ReadProfile(alignment, read);
        }
        return read;
    }

  private:
    [[noreturn]] void Refuse(xml_node node, std::string const& why) const {
        throw NotTaken(m_document.Where(node) + ": " + why);
    }

    std::optional<double> NumberIn(std::string_view text) const {
        text.remove_prefix(text.starts_with('+') ? 1 : 0);
        double number = 0;
        auto const parsed = std::from_chars(text.data(), text.data() + text.size(), number);
        bool const isNumber = parsed.ec == std::errc() && parsed.ptr == text.data() + text.size() &&
                              std::isfinite(number);
        return isNumber ? std::optional(number) : std::nullopt;
    }

    double Number(xml_node node, char const* attribute) const {
        std::optional<double> const number = NumberIn(node.attribute(attribute).value());
        if (!number) {
            Refuse(node, std::string("wanted a number as its ") + attribute + ", got " +
                             Quoted(node.attribute(attribute).value()));
        }
        return *number;
    }
    double Length(xml_node node, char const* attribute) const {
        return Number(node, attribute) * m_unit.metres;
    }

    // Two numbers or more between blanks, in metres.
    RoadPoint Pair(xml_node node, std::string_view text) const {
        std::array<double, 2> numbers{};
        constexpr std::string_view blanks = " \t\r\n";
        for (double& number : numbers) {
            text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
            std::string_view const word = text.substr(0, text.find_first_of(blanks));
            std::optional<double> const read = NumberIn(word);
            if (!read) {
                Refuse(node, "wanted two numbers, got " + Quoted(node.child_value()));
            }
            number = *read * m_unit.metres;
            text.remove_prefix(word.size());
        }
        return {numbers[0], numbers[1]};
    }

    // The point that stands in a child, or that it refers to.
    std::optional<RoadPoint> PointIn(xml_node element, char const* name) {
        xml_node const child = Child(element, name);
        if (!child) {
            return std::nullopt;
        }
        pugi::xml_attribute const reference = child.attribute("pntRef");
        if (!reference) {
            return Pair(child, child.child_value());
        }
        if (m_points.empty()) {
            for (xml_node const points : Children(m_document.Root(), "CgPoints")) {
                for (xml_node const point : Children(points, "CgPoint")) {
                    m_points.emplace(point.attribute("name").value(), point);
                }
            }
        }
        auto const found = m_points.find(reference.value());
        if (found == m_points.end()) {
            Refuse(child, "there is no point " + Quoted(reference.value()));
        }
        return Pair(found->second, found->second.child_value());
    }
    RoadPoint Point(xml_node element, char const* name) {
        std::optional<RoadPoint> const point = PointIn(element, name);
        if (!point) {
            Refuse(element, std::string("has no ") + name);
        }
        return *point;
    }

    // 1 for a curve to the left.
    double Side(xml_node element) const {
        std::string_view const rot = element.attribute("rot").value();
        if (rot != "cw" && rot != "ccw") {
            Refuse(element, "wanted cw or ccw as its rot, got " + Quoted(std::string(rot)));
        }
        return rot == "ccw" ? 1 : -1;
    }

    // A station equation says where stations jump; one at the start may only turn them.
    void ReadDirection(xml_node alignment, Alignment& read) const {
        for (xml_node const equation : Children(alignment, "StaEquation")) {
            bool const turns =
                std::string_view(equation.attribute("staIncrement").value()) == "decreasing";
            bool const jumps = Length(equation, "staAhead") != read.firstStation ||
                               (equation.attribute("staInternal") &&
                                Length(equation, "staInternal") != read.firstStation);
            if (jumps || !turns) {
                Refuse(equation, "stations jump there; a road file has no station equations");
            }
            read.stationsDecrease = true;
            read.notes.push_back(m_document.Where(equation) + ": the stations decrease");
        }
    }

    void ReadPlan(xml_node alignment, Alignment& read) {
        double station = read.firstStation;
        for (xml_node const geometry : Children(alignment, "CoordGeom")) {
            for (xml_node const child : geometry.children()) {
                std::string_view const name = LocalName(child);
                if (name == "Feature" || child.type() != pugi::node_element) {
                    continue;
                }
                PlanElement element = name == "Line"     ? Line(child)
                                      : name == "Curve"  ? Curve(child)
                                      : name == "Spiral" ? SpiralOf(child)
                                                         : NoElement(child);
                element.where = m_document.Where(child);
                element.station = child.attribute("staStart") ? Length(child, "staStart") : station;
                station =
                    *element.station + (read.stationsDecrease ? -1 : 1) * LengthOf(child, element);
                read.plan.push_back(std::move(element));
            }
        }
        if (!read.plan.empty()) {
            read.lastStation = station;
        } else if (xml_node const points = Child(alignment, "AlignPIs")) {
            Refuse(points, "the alignment is given by its points of intersection alone, without a "
                           "CoordGeom");
        }
    }

    [[noreturn]] PlanElement NoElement(xml_node node) const {
        Refuse(node, "a road file has lines and curves alone");
    }

    double LengthOf(xml_node node, PlanElement const& element) const {
        if (element.spiral) {
            return element.spiral->length;
        }
        return node.attribute("length") ? Length(node, "length")
                                        : Segment(element.from, element.to, element.bulge).Length();
    }

    PlanElement Line(xml_node node) {
        return {.from = Point(node, "Start"), .to = Point(node, "End")};
    }

    PlanElement Curve(xml_node node) {
        RoadPoint const from = Point(node, "Start");
        RoadPoint const to = Point(node, "End");
        double const side = Side(node);
        if (from.x == to.x && from.y == to.y) {
            Refuse(node, "ends where it begins");
        }
        std::optional<RoadPoint> const centre = PointIn(node, "Center");
        return {.from = from,
                .to = to,
                .bulge = side * (centre ? BulgeRound(node, *centre, from, to, side)
                                        : BulgeByRadius(node, from, to))};
    }

    double BulgeRound(xml_node node, RoadPoint centre, RoadPoint from, RoadPoint to,
                      double side) const {
        RoadPoint const a = from - centre;
        RoadPoint const b = to - centre;
        double const radius = kvarn::Length(a);
        RequireSame(node, radius, "Start from Center", kvarn::Length(b), "End from Center");
        if (node.attribute("radius")) {
            RequireSame(node, radius, "Start from Center", Length(node, "radius"), "its radius");
        }
        double turn = side * std::atan2(a.y * b.x - a.x * b.y, a.x * b.x + a.y * b.y);
        turn += turn < 0 ? 2 * std::numbers::pi : 0;
        return std::tan(turn / 4);
    }

    void RequireSame(xml_node node, double a, char const* what, double b, char const* other) const {
        if (!(std::fabs(a - b) <= m_choice.tolerance)) {
            Refuse(node, Format("the distance of %s is %.4lf m and %s is %.4lf: they differ by "
                                "%.4lf; --tolerance decides",
                                what, a, other, b, std::fabs(a - b)));
        }
    }

    // Of the shorter of the two arcs.
    double BulgeByRadius(xml_node node, RoadPoint from, RoadPoint to) const {
        double const radius = Length(node, "radius");
        double const half = kvarn::Length(to - from) / 2;
        if (!(radius >= half - m_choice.tolerance) || !(radius > 0)) {
            Refuse(node, Format("its radius, %.4lf m, is less than half the distance of its ends, "
                                "%.4lf",
                                radius, half));
        }
        return std::tan(std::asin(std::min(half / radius, 1.0)) / 2);
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
            Refuse(node, "a spiral of the kind " + Quoted(std::string(type)) + " is not known");
        }
        double const side = Side(node);
        double const length = Length(node, "length");
        if (!(length > 0)) {
            Refuse(node, Format("its length is %.4lf m", length));
        }
        return {.from = Point(node, "Start"),
                .to = Point(node, "End"),
                .spiral = Spiral{law->second, length, side * Curvature(node, "radiusStart"),
                                 side * Curvature(node, "radiusEnd")}};
    }

    double Curvature(xml_node node, char const* attribute) const {
        std::string_view const text = node.attribute(attribute).value();
        if (text == "INF" || text == "inf" || text == "Infinity") {
            return 0;
        }
        double const radius = Length(node, attribute);
        if (radius < 0) {
            Refuse(node, Format("its %s is %.4lf", attribute, radius));
        }
        return radius == 0 ? 0 : 1 / radius; // old programs write 0 for a straight
    }

    void ReadProfile(xml_node alignment, Alignment& read) {
        std::vector<xml_node> profiles;
        std::vector<std::string> names;
        for (xml_node const profile : Children(alignment, "Profile")) {
            for (xml_node const align : Children(profile, "ProfAlign")) {
                std::string const name = align.attribute("name").value();
                if (m_choice.profile.empty() || name == m_choice.profile) {
                    profiles.push_back(align);
                }
                names.push_back(name);
            }
        }
        if (profiles.empty() && !m_choice.profile.empty()) {
            Refuse(alignment, "there is no profile " + Quoted(m_choice.profile) +
                                  (names.empty() ? "" : "; there are " + Listed(names)));
        }
        if (profiles.size() > 1) {
            Refuse(alignment, "there are " + std::to_string(profiles.size()) + " profiles: " +
                                  Listed(names) + "; --profile chooses one, --no-profile none");
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
            Refuse(node, "a profile has PVI, ParaCurve, UnsymParaCurve and CircCurve alone");
        }
        RoadPoint const at = Pair(node, node.child_value());
        ProfilePoint point{.station = at.x, .height = at.y, .where = m_document.Where(node)};
        if (name == "UnsymParaCurve") {
            point.lengthBefore = Length(node, "lengthIn");
            point.lengthAfter = Length(node, "lengthOut");
        } else if (name == "ParaCurve" || node.attribute("length")) {
            point.lengthBefore = point.lengthAfter = Length(node, "length") / 2;
        }
        if (name == "CircCurve") {
            point.radius = Length(node, "radius");
        }
        if (!(point.lengthBefore >= 0) || !(point.lengthAfter >= 0) ||
            (point.radius && *point.radius == 0)) {
            Refuse(node, "its length or radius is nothing or less");
        }
        return point;
    }

    Document const& m_document;
    LandXmlChoice const& m_choice;
    Unit m_unit;
    std::map<std::string, xml_node> m_points; // by their names
};

std::vector<xml_node> AlignmentsIn(Document const& document) {
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
    Document const document(text);
    std::vector<LandXmlAlignment> list;
    for (xml_node const alignment : AlignmentsIn(document)) {
        list.push_back(Summary(alignment));
    }
    return list;
}

Alignment ReadLandXml(std::string_view text, LandXmlChoice const& choice) {
    Document const document(text);
    return Reader(document, choice).Read(Chosen(AlignmentsIn(document), choice.name));
}

} // namespace kvarnio
