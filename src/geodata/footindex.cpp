#include "footindex.h"

#include <limits>

namespace kvarn {

namespace {

constexpr std::size_t segmentsOfLeaf = 8;

bool IsFinite(Circle const& circle) {
    return std::isfinite(circle.centre.x) && std::isfinite(circle.centre.y) &&
           std::isfinite(circle.radius);
}

double Magnitude(Point p) {
    return std::fabs(p.x) + std::fabs(p.y);
}

// Whether the feet of points that lie off the axes about the centre are where geometry has them:
// near an axis a direction errs by 4e-8, which with a radius of 2,500 chords is 0.0001 of one.
bool IsPlainOffAxes(kovltype const& p, kovltype const& q, Arc const& arc) {
    double const b = std::fabs(p.bulge);
    double const chord = Square(PlaceOf(q) - PlaceOf(p));
    return b >= 1e-4 && b <= 1 && chord > 1e-4 && !arc.TowardsFrom().IsAtQuadrantsStart() &&
           !arc.TowardsTo().IsAtQuadrantsStart() && Square(PlaceOf(p)) < 1e18 * chord;
}

} // namespace

// The search for one point: what was found, and how far away something may be and still win.
class FootIndex::Search {
  public:
    Search(FootIndex const& index, Point point)
        : m_index(index), m_vertices(index.m_vertices), m_point(point) {
        OfferVertex(0, SquareTo(0));
        OfferVertex(m_vertices.size() - 1, SquareTo(m_vertices.size() - 1));
    }

    double Limit() const { return m_limit; }
    NearestOnLine Found() const { return {m_foot, m_segment, m_vertex, std::sqrt(m_vertexSquare)}; }

    // A leaf of the tree.
    void Look(std::size_t leaf) {
        std::size_t const first = leaf * segmentsOfLeaf;
        std::size_t const end = std::min(first + segmentsOfLeaf, m_vertices.size() - 1);
        double toP = SquareTo(first);
        OfferVertex(first, toP);
        for (std::size_t i = first; i < end; ++i) {
            double const toQ = SquareTo(i + 1);
            OfferVertex(i + 1, toQ);
            if (!IsRuledOut(i, toP, toQ)) {
                LookAt(i);
            }
            toP = toQ;
        }
    }

    void LookAt(std::size_t segment) {
        kovltype const& p = m_vertices[segment];
        Foot const foot = IsArc(p.bulge)
                              ? m_index.m_bends[m_index.m_bendOf[segment]].arc.FootOf(m_point)
                              : FootOnStraight(p, m_vertices[segment + 1], m_point);
        double const distance = std::fabs(foot.offset);
        if (foot.isWithin &&
            (distance < m_footDistance || (distance == m_footDistance && segment < m_segment))) {
            m_foot = foot;
            m_footDistance = distance;
            m_segment = segment;
            SetLimit();
        }
    }

  private:
    double SquareTo(std::size_t vertex) const {
        return Square(PlaceOf(m_vertices[vertex]) - m_point);
    }

    bool IsRuledOut(std::size_t segment, double toP, double toQ) const {
        kovltype const& p = m_vertices[segment];
        kovltype const& q = m_vertices[segment + 1];
        if (!IsArc(p.bulge)) {
            return IsStraightRuledOut(p, q, m_point, toP, toQ, m_limit);
        }
        Feet const feet = m_index.m_bends[m_index.m_bendOf[segment]].feet;
        return feet == Feet::none ||
               (feet == Feet::ruledOut && IsArcRuledOut(p, q, toP, toQ, m_limit));
    }

    // The roots may be equal where the squares are not.
    void OfferVertex(std::size_t vertex, double square) {
        if (!(square <= (1 + 1e-12) * m_vertexSquare)) {
            return;
        }
        double const distance = std::sqrt(square);
        double const best = std::sqrt(m_vertexSquare);
        if (distance < best || (distance == best && vertex < m_vertex)) {
            m_vertex = vertex;
            m_vertexSquare = square;
            SetLimit();
        }
    }

    // The first and the last vertex came first: one between them that is found is the answer,
    // unless there is a foot, or another vertex, as near. An end is no answer, but leaves the foot
    // to be one, however far it is. The room is more than rounding takes, also of squares that come
    // to nothing.
    void SetLimit() {
        bool const isInner = m_vertex != 0 && m_vertex != m_vertices.size() - 1;
        double const footSquare = m_footDistance * m_footDistance;
        m_limit =
            1e-300 + (1 + 1e-9) * (isInner ? std::min(footSquare, m_vertexSquare) : footSquare);
    }

    FootIndex const& m_index;
    std::vector<kovltype> const& m_vertices;
    Point m_point;
    Foot m_foot{};
    double m_footDistance = farAway;
    std::size_t m_segment = 0;
    std::size_t m_vertex = 0;
    double m_vertexSquare = farAway * farAway;
    double m_limit = (1 + 1e-9) * farAway * farAway;
};

FootIndex::FootIndex(std::vector<kovltype> const& vertices)
    : m_vertices(vertices), m_bendOf(vertices.size() - 1) {
    std::vector<Box> leaves((m_bendOf.size() + segmentsOfLeaf - 1) / segmentsOfLeaf);
    for (std::size_t i = 0; i < m_bendOf.size(); ++i) {
        if (IsArc(m_vertices[i].bulge)) {
            AddBend(i);
        }
        leaves[i / segmentsOfLeaf].Add(BoxOf(i));
    }
    auto const isLess = [](Strip const& a, Strip const& b) { return a.centre < b.centre; };
    std::sort(m_stripsX.begin(), m_stripsX.end(), isLess);
    std::sort(m_stripsY.begin(), m_stripsY.end(), isLess);
    m_tree = BoxTree(std::move(leaves));
}

void FootIndex::AddBend(std::size_t segment) {
    kovltype const& p = m_vertices[segment];
    kovltype const& q = m_vertices[segment + 1];
    Arc const arc = ArcOf(p, q);
    Circle const& circle = arc.OnCircle();
    auto feet = Feet::anywhere;
    if (!IsFinite(circle)) {
        feet = Feet::none; // nor are the offsets
    } else if (IsPlainArc(p, q)) {
        feet = Feet::ruledOut;
    } else if (IsPlainOffAxes(p, q, arc)) {
        feet = Feet::ruledOut;
        auto const number = static_cast<std::uint32_t>(segment);
        m_stripsX.push_back({circle.centre.x, number});
        m_stripsY.push_back({circle.centre.y, number});
    }
    m_bendOf[segment] = static_cast<std::uint32_t>(m_bends.size());
    m_bends.push_back({arc, feet});
}

// About the vertices and all feet: a foot lies within the arc's height from a place on the chord,
// and the thousandth of the chord is more than it may lie beyond an end. The last term is more than
// a coordinate is rounded by.
Box FootIndex::BoxOf(std::size_t segment) const {
    constexpr double rounding = 1e-9;
    constexpr double everywhere = std::numeric_limits<double>::infinity();
    kovltype const& p = m_vertices[segment];
    kovltype const& q = m_vertices[segment + 1];
    double const chord = Length(PlaceOf(q) - PlaceOf(p));
    double around = 0.001 * chord + rounding * (Magnitude(PlaceOf(p)) + Magnitude(PlaceOf(q)));
    Box box;
    if (!IsArc(p.bulge)) {
        around = std::isfinite(chord) ? around : everywhere;
    } else {
        Bend const& bend = m_bends[m_bendOf[segment]];
        Circle const& circle = bend.arc.OnCircle();
        around += std::fabs(p.bulge) * chord / 2;
        if (bend.feet == Feet::none) {
            around = 0;
        } else if (bend.feet == Feet::anywhere) {
            box.Add(circle.centre,
                    circle.radius + rounding * (circle.radius + Magnitude(circle.centre)));
        }
    }
    if (around == everywhere) {
        box.Add({0, 0}, everywhere);
    }
    box.Add(PlaceOf(p), around);
    box.Add(PlaceOf(q), around);
    return box;
}

NearestOnLine FootIndex::Find(Point point) const {
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
        return {{}, 0, 0, farAway};
    }
    Search search(*this, point);
    VisitStrip(m_stripsX, point.x, search);
    VisitStrip(m_stripsY, point.y, search);
    m_tree.Visit(point, search);
    return search.Found();
}

void FootIndex::VisitStrip(std::vector<Strip> const& strips, double coordinate,
                           Search& search) const {
    auto const isBefore = [=](Strip const& s) { return coordinate - s.centre > quadrantEdge; };
    for (auto s = std::partition_point(strips.begin(), strips.end(), isBefore);
         s != strips.end() && coordinate - s->centre >= -quadrantEdge; ++s) {
        search.LookAt(s->segment);
    }
}

} // namespace kvarn
