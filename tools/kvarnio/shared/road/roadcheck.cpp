#include "roadcheck.h"

#include <algorithm>
#include <cmath>
#include <string>

#include <formats/checks/checkvagfil.h>
#include <kvarnprog.h>
#include <text/format.h>

#include <neighbours/road/roadgeometry.h>

namespace kvarnio {
namespace {

using kvarn::Format;

// A vertex and the number of its line.
struct Place {
    kovltype const& vertex;
    std::size_t line;
};

class Checker {
  public:
    Checker(kvarn::VagfilPart const& part, std::vector<Finding>& findings)
        : m_vertices(part.vertices), m_lines(part.lines), m_findings(findings) {}

    void Plan(double tolerance) {
        Alone("plan", "coordinates");
        Finiteness();
        Axes();
        bool const decreasing =
            m_vertices.size() > 1 && m_vertices[1].sektion < m_vertices[0].sektion;
        if (decreasing) {
            Add(m_lines[0], Rule::fallingStations,
                "the stations decrease along the line: a search for the station of a "
                "point gives the offset with the opposite sign");
        }
        EachSegment([&](Place p, Place q) {
            bool const coincident = Coincidence(p, q);
            bool const ordered = Order(p, q, decreasing ? -1 : 1);
            Bulge(p);
            if (!coincident) {
                QuadrantAxes(p, q);
            }
            if (!coincident && ordered) {
                Gap(p, q, tolerance);
            }
        });
    }

    void Profile() {
        Alone("profile", "heights");
        Finiteness();
        for (std::size_t i = 0; i < m_vertices.size(); ++i) {
            StationTwice({m_vertices[i], m_lines[i]});
        }
        EachSegment([&](Place p, Place q) {
            bool const ordered = Order(p, q, 1);
            Bulge(p);
            if (ordered) {
                Steepness(p, q);
            }
        });
    }

  private:
    void Add(std::size_t line, Rule rule, std::string what) {
        m_findings.push_back({line, rule, std::move(what)});
    }

    // Those whose ends are numbers.
    template <class Look> void EachSegment(Look look) {
        for (std::size_t i = 1; i < m_vertices.size(); ++i) {
            if (IsFinite(m_vertices[i - 1]) && IsFinite(m_vertices[i])) {
                look(Place{m_vertices[i - 1], m_lines[i - 1]}, Place{m_vertices[i], m_lines[i]});
            }
        }
    }

    void Alone(char const* part, char const* what) {
        if (m_vertices.size() == 1) {
            Add(m_lines[0], Rule::oneVertex,
                std::string("the ") + part + " has one vertex alone: it gives no " + what);
        }
    }

    void Finiteness() {
        for (std::size_t i = 0; i < m_vertices.size(); ++i) {
            if (!IsFinite(m_vertices[i])) {
                Add(m_lines[i], Rule::notFinite,
                    "the vertex holds a value that is not a number or is infinite");
            }
        }
    }

    // x is north. A line of which all of y is as far north as the Nordic countries are, and all of
    // x as far east, was typed with the two the other way round.
    void Axes() {
        constexpr double leastNorth = 6.0e6; // metres from the equator, of every grid there
        constexpr double mostNorth = 8.0e6;
        constexpr double mostEast = 2.0e6; // with the false easting
        bool const swapped =
            std::all_of(m_vertices.begin(), m_vertices.end(), [](kovltype const& p) {
                return p.y >= leastNorth && p.y <= mostNorth && p.x > 0 && p.x <= mostEast;
            });
        if (swapped && !m_vertices.empty()) {
            Add(m_lines[0], Rule::swappedAxes,
                "x and y look swapped: x, the first number, is the northing");
        }
    }

    // Below that distance the station search passes a straight over.
    bool Coincidence(Place p, Place q) {
        kvarn::Point const from = {p.vertex.x, p.vertex.y};
        kvarn::Point const to = {q.vertex.x, q.vertex.y};
        double const distance = kvarn::Length(to - from);
        if (!kvarn::LineFoot(from, to, to).IsTooShort()) {
            return false;
        }
        Add(q.line, Rule::coincident,
            "the vertex coincides with that of line " + std::to_string(p.line) +
                Format(": they are %.4lf m apart", distance));
        return true;
    }

    bool Order(Place p, Place q, double direction) {
        double const step = direction * (q.vertex.sektion - p.vertex.sektion);
        if (step > 0) {
            return true;
        }
        Add(q.line, Rule::stationOrder,
            Format("station %.4lf ", q.vertex.sektion) +
                (step == 0       ? "equals that"
                 : direction > 0 ? "is smaller than that"
                                 : "is greater than that") +
                " of line " + std::to_string(p.line) +
                (step == 0 ? "" : Format(", %.4lf", p.vertex.sektion)));
        return false;
    }

    void Bulge(Place p) {
        double const size = std::fabs(p.vertex.bulge);
        if (size >= 1) {
            Add(p.line, Rule::wideBulge,
                Format("bulge %.4lf: ", p.vertex.bulge) +
                    (size > 1 ? "beyond a half circle the other arc is followed"
                              : "a half circle that does not cross the bearing zero is followed "
                                "the other way round"));
        }
    }

    void Gap(Place p, Place q, double tolerance) {
        double const length = Segment(p.vertex, q.vertex).Length();
        double const stations = std::fabs(q.vertex.sektion - p.vertex.sektion);
        if (!(std::fabs(length - stations) <= tolerance)) {
            Add(p.line, Rule::stationJump,
                Format("the segment is %.4lf m long, its stations differ by %.4lf", length,
                       stations));
        }
    }

    // The station search compares directions by quadrants, and takes one along a quadrant's edge
    // for the quadrant's first.
    void QuadrantAxes(Place p, Place q) {
        Segment const arc(p.vertex, q.vertex);
        if (!arc.IsArc()) {
            return;
        }
        auto const onAxis = [&](RoadPoint end) {
            RoadPoint const out = end - arc.Centre();
            return std::fabs(out.x) <= kvarn::quadrantEdge ||
                   std::fabs(out.y) <= kvarn::quadrantEdge;
        };
        bool const start = onAxis(arc.From());
        bool const end = onAxis(arc.To());
        if (start || end) {
            Add(p.line, Rule::missedArc,
                std::string("the arc ") +
                    (start && end ? "starts and ends"
                     : start      ? "starts"
                                  : "ends") +
                    " straight north, east, south or west of its centre: a search for the "
                    "station of a point may miss points beside it, and accept others");
        }
    }

    // A profile has its stations in two columns, and each is used.
    void StationTwice(Place p) {
        constexpr double printed = 0.0001;
        if (std::fabs(p.vertex.y - p.vertex.sektion) > printed) {
            Add(p.line, Rule::twoStations,
                Format("the second column, %.4lf, and the fourth, %.4lf, are both the "
                       "station and differ",
                       p.vertex.y, p.vertex.sektion));
        }
    }

    // How far the heights between the ends of a vertical curve are from the circle.
    void Steepness(Place p, Place q) {
        constexpr double worthTelling = 0.001;
        Segment const curve(p.vertex, q.vertex);
        if (!curve.IsArc()) {
            return;
        }
        CVaglinje profile; // of the curve alone
        profile.typ = kvarn::vagtypProfil;
        for (kovltype end : {p.vertex, q.vertex}) {
            profile.Ny(1, &end);
        }
        constexpr int steps = 32;
        double most = 0;
        for (int i = 1; i < steps; ++i) {
            RoadPoint const on = curve.At(static_cast<double>(i) / steps);
            double z = 0;
            if (profile.Vagprofz(on.y, &z) == 0) {
                most = std::max(most, std::fabs(z - on.x));
            }
        }
        if (most > worthTelling) {
            Add(p.line, Rule::steepCurve,
                Format("the vertical curve is steep: heights differ from its circle by up "
                       "to %.4lf m between its ends",
                       most));
        }
    }

    std::vector<kovltype> const& m_vertices;
    std::vector<std::size_t> const& m_lines;
    std::vector<Finding>& m_findings;
};

} // namespace

std::vector<Finding> CheckRoad(std::string_view content, double tolerance) {
    kvarn::VagfilContent const road = kvarn::ReadVagfil(content);
    std::vector<Finding> findings = kvarn::CheckVagfil(content);
    Checker(road.plan, findings).Plan(tolerance);
    Checker(road.profile, findings).Profile();
    if (road.plan.vertices.empty() && road.profile.vertices.empty()) {
        findings.push_back({1, Rule::noVertex, "the file holds no vertex"});
    }
    std::stable_sort(findings.begin(), findings.end(),
                     [](Finding const& a, Finding const& b) { return a.line < b.line; });
    return findings;
}

} // namespace kvarnio
