// The bare limit of a search through all segments: everything that can be computed before is, and
// lies in flat arrays. Only what the answer to these points needs is done: no tests for odd lines.
#include <cmath>
#include <cstring>
#include <limits>

#include "roadline.h"

namespace {

constexpr double farAway = std::numeric_limits<double>::infinity();

// Several at a time, as every x86-64 can.
class FlatStraightsImpl : public RoadLine {
  public:
    explicit FlatStraightsImpl(RoadVertices const& vertices) : m_vertices(vertices) {
        for (RoadVertex const& v : vertices) {
            m_x.push_back(v.point.x);
            m_y.push_back(v.point.y);
        }
        for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
            double const dx = m_x[i + 1] - m_x[i];
            double const dy = m_y[i + 1] - m_y[i];
            m_inverse.push_back(1 / (dx * dx + dy * dy));
        }
        m_inverse.resize((m_inverse.size() + lanes - 1) / lanes * lanes, 0); // far from all points
        m_x.resize(m_inverse.size() + 1, 1e150);
        m_y.resize(m_inverse.size() + 1, 1e150);
    }
    RoadPoint ToRoad(Point point) override {
        std::size_t const s = Nearest(point);
        RoadVertex const& from = m_vertices[s];
        RoadVertex const& to = m_vertices[s + 1];
        double const dx = m_x[s + 1] - m_x[s];
        double const dy = m_y[s + 1] - m_y[s];
        double const t = ((point.x - m_x[s]) * dx + (point.y - m_y[s]) * dy) * m_inverse[s];
        double const ex = point.x - m_x[s] - t * dx;
        double const ey = point.y - m_y[s] - t * dy;
        return {from.station + t * (to.station - from.station),
                SignedOffset(from.point, to.point, point, std::sqrt(ex * ex + ey * ey))};
    }

  private:
    static constexpr std::size_t lanes = 2;
    using Lanes __attribute__((vector_size(lanes * sizeof(double)))) = double;

    static Lanes Load(double const* from) {
        Lanes loaded;
        std::memcpy(&loaded, from, sizeof loaded);
        return loaded;
    }

    std::size_t Nearest(Point point) const {
        Lanes const none{};
        Lanes const one = none + 1;
        Lanes least = none + farAway;
        Lanes at = none;
        for (std::size_t i = 0; i < m_inverse.size(); i += lanes) {
            Lanes const x = Load(&m_x[i]);
            Lanes const y = Load(&m_y[i]);
            Lanes const dx = Load(&m_x[i + 1]) - x;
            Lanes const dy = Load(&m_y[i + 1]) - y;
            Lanes const px = point.x - x;
            Lanes const py = point.y - y;
            Lanes t = (px * dx + py * dy) * Load(&m_inverse[i]);
            t = t > none ? t : none;
            t = t < one ? t : one;
            Lanes const ex = px - t * dx;
            Lanes const ey = py - t * dy;
            Lanes const square = ex * ex + ey * ey;
            at = square < least ? none + static_cast<double>(i) : at;
            least = square < least ? square : least;
        }
        std::size_t nearest = 0;
        for (std::size_t lane = 1; lane < lanes; ++lane) {
            nearest = least[lane] < least[nearest] ? lane : nearest;
        }
        return static_cast<std::size_t>(at[nearest]) + nearest;
    }

    RoadVertices m_vertices;
    std::vector<double> m_x;
    std::vector<double> m_y;
    std::vector<double> m_inverse; // of the length squared
};

// The sector by cross products with its two limits.
class FlatArcsImpl : public RoadLine {
  public:
    explicit FlatArcsImpl(RoadVertices const& vertices) {
        for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
            m_arcs.push_back(ArcOf(vertices[i], vertices[i + 1]));
        }
    }
    RoadPoint ToRoad(Point point) override {
        double best = farAway;
        Arc const* nearest = m_arcs.data();
        for (Arc const& arc : m_arcs) {
            double const px = point.x - arc.centre.x;
            double const py = point.y - arc.centre.y;
            bool const isAfter = arc.from.x * py - arc.from.y * px >= 0;
            bool const isBefore = px * arc.to.y - py * arc.to.x >= 0;
            double const offset = std::fabs(std::sqrt(px * px + py * py) - arc.radius);
            if (isAfter && isBefore && offset < best) {
                best = offset;
                nearest = &arc;
            }
        }
        return OnArc(*nearest, point);
    }

  private:
    // Counterclockwise from one to the other; side is -1 where the line goes clockwise.
    struct Arc {
        Point centre;
        Point from;
        Point to;
        double radius;
        double side;
        double station;
    };

    static Arc ArcOf(RoadVertex const& p, RoadVertex const& q) {
        double const dx = q.point.x - p.point.x;
        double const dy = q.point.y - p.point.y;
        double const chord = std::sqrt(dx * dx + dy * dy);
        double const height = std::fabs(p.bulge) * chord / 2;
        double const radius = (chord * chord / 4 + height * height) / (2 * height);
        double const side = p.bulge > 0 ? -1 : 1;
        Point const centre = {(p.point.x + q.point.x) / 2 - side * (radius - height) * dy / chord,
                              (p.point.y + q.point.y) / 2 + side * (radius - height) * dx / chord};
        Point const from = {p.point.x - centre.x, p.point.y - centre.y};
        Point const to = {q.point.x - centre.x, q.point.y - centre.y};
        return {centre, side > 0 ? from : to, side > 0 ? to : from, radius, side, p.station};
    }
    static RoadPoint OnArc(Arc const& arc, Point point) {
        double const px = point.x - arc.centre.x;
        double const py = point.y - arc.centre.y;
        Point const start = arc.side > 0 ? arc.from : arc.to;
        double const angle = std::atan2(start.x * py - start.y * px, start.x * px + start.y * py);
        double const outside = std::sqrt(px * px + py * py) - arc.radius;
        return {arc.station + std::fabs(angle) * arc.radius, -arc.side * outside};
    }

    std::vector<Arc> m_arcs;
};

} // namespace

std::unique_ptr<RoadLine> FlatStraights(RoadVertices const& vertices) {
    return std::make_unique<FlatStraightsImpl>(vertices);
}

std::unique_ptr<RoadLine> FlatArcs(RoadVertices const& vertices) {
    return std::make_unique<FlatArcsImpl>(vertices);
}
