// CVaglinje: the search for the station and the offset of a point.
#include "roadsearch.h"
#include "vaglinje.h"

namespace {

// Modes of the search.
constexpr int allWithVertices = 0;
constexpr int narrowed = 1;

// Whether a segment has no foot nearer than the root of a square for sure.
bool IsRuledOut(kovltype const& p, kovltype const& q, kvarn::Point point, double toP, double toQ,
                double square) {
    return kvarn::IsArc(p.bulge)
               ? kvarn::IsPlainArc(p, q) && kvarn::IsArcRuledOut(p, q, toP, toQ, square)
               : kvarn::IsStraightRuledOut(p, q, point, toP, toQ, square);
}

} // namespace

// What a walk comes by.
struct CVaglinje::Fynd {
    kvarn::RoadHit foot;
    nod* vertex;
    double distance; // of the vertex
};

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

// Feet and vertices in one walk: it is the links that take the time.
CVaglinje::Fynd CVaglinje::Sok(nod* from, double x, double y, int mode) {
    kvarn::Point const point = {x, y};
    double const sign = Vaxande() ? 1 : -1;
    kvarn::RoadHit foot = kvarn::NoFoot();
    double footSquare = kvarn::farAway * kvarn::farAway;
    nod* vertex = nullptr;
    double vertexSquare = footSquare;
    nod* to = from;
    int position = m_position;
    double toSquare = kvarn::Square(kvarn::PlaceOf(to->post) - point);
    if (kvarn::IsNearer(toSquare, vertexSquare)) {
        vertex = to;
        vertexSquare = toSquare;
    }
    bool last = false;
    while (!last && to->nasta != nullptr) {
        last = mode == narrowed && foot.sektion < Sekkoll; // one segment after the first foot
        from = to;
        to = to->nasta;
        ++position;
        double const fromSquare = toSquare;
        toSquare = kvarn::Square(kvarn::PlaceOf(to->post) - point);
        if (kvarn::IsNearer(toSquare, vertexSquare)) {
            vertex = to;
            vertexSquare = toSquare;
        }
        if (IsRuledOut(from->post, to->post, point, fromSquare, toSquare, footSquare)) {
            continue;
        }
        kvarn::Foot const found = kvarn::FootOnSegment(from->post, to->post, point);
        if (found.isWithin && std::fabs(found.offset) < foot.distance) {
            foot = kvarn::HitOn(from->post, found, sign);
            footSquare = found.offset * found.offset;
        }
    }
    StallSegment(from, to, position);
    return {foot, vertex, std::sqrt(vertexSquare)};
}

int CVaglinje::Vagstv(double x, double y, double* sektion, double* offset, int mode) {
    *sektion = Seknoll;
    *offset = 0;
    if (typ == kvarn::vagtypProfil || Home() != 0) {
        return -1;
    }
    nod* const start = mode == narrowed ? SokStart(x, y) : m_forsta;
    Fynd found = Sok(start, x, y, mode);
    kvarn::RoadHit const foot = found.foot;
    kvarn::RoadHit vertex = kvarn::NoVertex();
    if (mode == allWithVertices || (mode == narrowed && foot.sektion > Sekkoll)) {
        if (mode == narrowed) { // it may have ended early
            found = Sok(start, x, y, allWithVertices);
        }
        StallSegment(m_sista->forra, m_sista, m_antal);
        nod* const n = found.vertex;
        // An inner vertex alone counts: the line's ends are only in the way of others.
        if (n != nullptr && n != m_forsta && n != m_sista) {
            vertex = kvarn::HitAt(n->forra->post, n->post, found.distance, {x, y});
        }
    }
    return kvarn::WriteNearer(foot, vertex, sektion, offset);
}

int CVaglinje::PktIomr(double x, double y, double* sektion, double* offset, int mode) {
    double s = 0;
    double o = 0;
    if (Vagstv(x, y, &s, &o, mode) != 0) {
        return -1;
    }
    kvarn::RoadArea const area = {omrSekFran, omrSekTill, omrAvstMin, omrAvstMax};
    return area.Write(s, o, sektion, offset);
}
