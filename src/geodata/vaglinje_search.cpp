// CVaglinje: the search for the station and the offset of a point.
#include <limits>

#include "segments.h"
#include "vaglinje.h"

// The nearest foot, or the nearest vertex, so far.
struct CVaglinje::Hit {
    double sektion;
    double offset;
    double distance; // from the point, without sign
};

namespace {

// Modes of the search.
constexpr int allWithVertices = 0;
constexpr int narrowed = 1;

constexpr double farthestHit = 1e9; // metres
constexpr double farAway = 1.1e9;   // beyond every hit

// With y first, which gives the signs of offsets.
kvarn::LineFoot StraightFoot(kovltype const& p, kovltype const& q, double x, double y) {
    return {{p.y, p.x}, {q.y, q.x}, {y, x}};
}

// The foot of a point on a segment; isWithin is false where it has none.
kvarn::Foot FootOnSegment(kovltype const& p, kovltype const& q, double x, double y) {
    if (kvarn::IsArc(p.bulge)) {
        return kvarn::FootOnArc({p.x, p.y}, {q.x, q.y}, p.bulge, {x, y});
    }
    kvarn::LineFoot const foot = StraightFoot(p, q, x, y);
    if (foot.IsTooShort() || !foot.IsOnSegment()) {
        return {};
    }
    return {.isWithin = true, .along = foot.Along(), .offset = foot.Distance()};
}

// Whether a vertex result lies on the negative side of the segment that ends at the vertex.
bool IsOnNegativeSide(kovltype const& p, kovltype const& q, double x, double y) {
    kvarn::LineFoot const foot = StraightFoot(p, q, x, y);
    return !foot.IsTooShort() && foot.Distance() < 0;
}

} // namespace

// Two vertices before the end of the segment that lies as far along the line as the point lies
// from the line's start: the point's foot seldom lies before it.
CVaglinje::nod* CVaglinje::SokStart(double x, double y) {
    kovltype const& first = m_forsta->post;
    double const straightWay = kvarn::Length({x - first.x, y - first.y});
    SokSegment(first.sektion + straightWay);
    (*this)--;
    (*this)--;
    return aktel;
}

CVaglinje::Hit CVaglinje::SokFot(nod* from, double x, double y, int mode) {
    double const sign = Vaxande() ? 1 : -1;
    Hit best = {Seknoll, 0, farAway};
    int position = m_position;
    bool isFound = false;
    bool last = false;
    nod* to = from;
    while (!last && to->nasta != nullptr) {
        from = to;
        to = to->nasta;
        ++position;
        kvarn::Foot const foot = FootOnSegment(from->post, to->post, x, y);
        if (foot.isWithin && std::fabs(foot.offset) < best.distance) {
            best = {from->post.sektion + sign * foot.along, sign * foot.offset,
                    std::fabs(foot.offset)};
        }
        last = mode == narrowed && isFound; // one segment after the first foot
        isFound = best.sektion < Sekkoll;
    }
    StallSegment(from, to, position);
    return best;
}

// An inner vertex, which alone counts: the line's ends are only in the way of others.
CVaglinje::Hit CVaglinje::SokHorn(nod* from, double x, double y) {
    nod* nearest = nullptr;
    double distance = farAway;
    double square = farAway * farAway; // tells without a root which vertices are not nearer
    for (nod* n = from; n != nullptr; n = n->nasta) {
        kvarn::Point const to = {n->post.x - x, n->post.y - y};
        double const d2 = to.x * to.x + to.y * to.y;
        if (d2 < square && std::sqrt(d2) < distance) {
            distance = std::sqrt(d2);
            square = d2;
            nearest = n;
        }
    }
    StallSegment(m_sista->forra, m_sista, m_antal);
    if (nearest == nullptr || nearest == m_forsta || nearest == m_sista) {
        return {Seknoll, 0, std::numeric_limits<double>::infinity()};
    }
    bool const isNegative = IsOnNegativeSide(nearest->forra->post, nearest->post, x, y);
    return {nearest->post.sektion, isNegative ? -distance : distance, distance};
}

int CVaglinje::Vagstv(double x, double y, double* sektion, double* offset, int mode) {
    *sektion = Seknoll;
    *offset = 0;
    if (typ == kvarn::vagtypProfil || Home() != 0) {
        return -1;
    }
    nod* const start = mode == narrowed ? SokStart(x, y) : m_forsta;
    Hit const foot = SokFot(start, x, y, mode);
    *sektion = foot.sektion;
    *offset = foot.offset;
    if (mode == allWithVertices || (mode == narrowed && foot.sektion > Sekkoll)) {
        Hit const vertex = SokHorn(start, x, y);
        if (vertex.distance < foot.distance) {
            *sektion = vertex.sektion;
            *offset = vertex.offset;
            return 0;
        }
    }
    return foot.distance <= farthestHit ? 0 : -1;
}

int CVaglinje::PktIomr(double x, double y, double* sektion, double* offset, int mode) {
    constexpr double tolerance = 0.001; // metres along the line
    double s = 0;
    double o = 0;
    if (Vagstv(x, y, &s, &o, mode) != 0) {
        return -1;
    }
    bool const isWithin = s >= omrSekFran - tolerance && s <= omrSekTill + tolerance &&
                          o >= omrAvstMin && o <= omrAvstMax;
    if (!isWithin) {
        return -1;
    }
    if (sektion != nullptr) {
        *sektion = s;
    }
    if (offset != nullptr) {
        *offset = o;
    }
    return 0;
}
