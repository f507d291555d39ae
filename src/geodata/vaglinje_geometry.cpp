// CVaglinje: straights, arcs and vertical curves, and the points on them.
#include "../core/messageout.h"
#include "../text/format.h"
#include "segments.h"
#include "vaglinje.h"

namespace {

constexpr double noCoordinate = 999999.9; // what clients compare with

// The value at a station between two that are known at the ends of a segment.
double Interpolate(double from, double to, double sektion, kovltype const& p, kovltype const& q) {
    return from + (sektion - p.sektion) * (to - from) / (q.sektion - p.sektion);
}

// The bearing of a vector, from the y axis towards the x axis, in [0, 2 pi).
double Bearing(kvarn::Point vector) {
    double const angle = std::atan2(vector.x, vector.y);
    return angle < 0 ? angle + kvarn::twoPi : angle;
}

kvarn::Point PointOnArc(kovltype const& p, kovltype const& q, double sektion, double offset) {
    kvarn::Circle const circle = kvarn::CircleThrough({p.x, p.y}, {q.x, q.y}, p.bulge);
    double from = Bearing(kvarn::Point{p.x, p.y} - circle.centre);
    double to = Bearing(kvarn::Point{q.x, q.y} - circle.centre);
    // Of the two arcs through both points the shorter one is followed. Its bearings grow from p to
    // q when it turns clockwise; where it crosses bearing 0 they grow after a turn is taken off
    // one.
    bool isClockwise = from <= to;
    if (!(std::fabs(to - from) < kvarn::pi)) {
        isClockwise = from > to;
        (isClockwise ? from : to) -= kvarn::twoPi;
    }
    double const radius = circle.radius + (isClockwise ? offset : -offset);
    double const angle = Interpolate(from, to, sektion, p, q);
    return {circle.centre.x + radius * std::sin(angle), circle.centre.y + radius * std::cos(angle)};
}

kvarn::Point PointOnStraight(kovltype const& p, kovltype const& q, double sektion, double offset) {
    // The bearing of the segment; (sin, -cos) of it is the unit vector across, to positive offsets.
    double const angle = std::atan2(p.x - q.x, q.y - p.y) - kvarn::halfPi;
    return {Interpolate(p.x, q.x, sektion, p, q) + std::sin(angle) * offset,
            Interpolate(p.y, q.y, sektion, p, q) - std::cos(angle) * offset};
}

// The height is a vertex's x here, and the station its y. The angle on the circle is interpolated
// by station, which is exact at the ends alone.
double HeightOnCurve(kovltype const& p, kovltype const& q, double sektion) {
    kvarn::Point const from = {p.x, p.y};
    kvarn::Point const to = {q.x, q.y};
    kvarn::Circle const circle = kvarn::Length(to - from) <= 0
                                     ? kvarn::Circle{from, 0}
                                     : kvarn::CircleThrough(from, to, p.bulge);
    kvarn::Point const towardsP = from - circle.centre;
    kvarn::Point const towardsQ = to - circle.centre;
    double const angle = Interpolate(std::atan2(towardsP.x, towardsP.y),
                                     std::atan2(towardsQ.x, towardsQ.y), sektion, p, q);
    return circle.centre.x + circle.radius * std::sin(angle);
}

} // namespace

int CVaglinje::Bulge_r(kokotype* p1, kokotype* p2, double* radius, double* centreA, double* centreB,
                       int mode) {
    if (mode != 0) { // the centre of the mirrored plane
        kvarn::Circle const circle =
            kvarn::CircleThrough({p1->y, p1->x}, {p2->y, p2->x}, p1->bulge);
        *radius = circle.radius;
        *centreA = circle.centre.y;
        *centreB = circle.centre.x;
        return 0;
    }
    double const r = *radius;
    double const chord = kvarn::Length({p2->x - p1->x, p2->y - p1->y});
    double const rest = r * r - chord * chord / 4;
    // The arc's height is h = r - t, where t is the distance from the centre to the chord, and the
    // bulge is h / (chord / 2).
    if (rest >= 0 && chord > 0) {
        double const t = std::sqrt(rest);
        p1->bulge = (r > 0 ? -(r - t) : -(t + r)) / chord * 2;
    } else {
        StatusText(kvarn::ToMessageBuffer(kvarn::Format("%s %.2lf (%.2lf,%.2lf - %.2lf,%.2lf)",
                                                        "Fel (bulge->radie) radie:", r, p1->x,
                                                        p1->y, p2->x, p2->y)));
        p1->bulge = 0;
    }
    return 0;
}

int CVaglinje::Pldist(double a1, double b1, double a2, double b2, double pa, double pb,
                      double* dist, double* along) {
    if (typ == kvarn::vagtypProfil) {
        return -1;
    }
    kvarn::LineFoot const foot({a1, b1}, {a2, b2}, {pa, pb});
    if (foot.IsTooShort()) {
        return 0;
    }
    *dist = foot.Distance();
    *along = foot.Along();
    return foot.IsOnSegment() ? 1 : 2;
}

int CVaglinje::Padist(kovltype* p1, kovltype* p2, double px, double py, double* along,
                      double* offset) {
    if (typ == kvarn::vagtypProfil) {
        return -1;
    }
    kvarn::Foot const foot = kvarn::FootOnArc({p1->x, p1->y}, {p2->x, p2->y}, p1->bulge, {px, py});
    if (!foot.isWithin) {
        return 2;
    }
    *along = foot.along;
    *offset = foot.offset;
    return 1;
}

int CVaglinje::Vag2xy(double sektion, double offset, double* x, double* y) {
    *x = noCoordinate;
    *y = noCoordinate;
    if (typ == kvarn::vagtypProfil || SokSegment(sektion) != 0) {
        return -1;
    }
    kovltype const& p = *m_markpost;
    kovltype const& q = *m_aktpost;
    kvarn::Point const point = kvarn::IsArc(p.bulge) ? PointOnArc(p, q, sektion, offset)
                                                     : PointOnStraight(p, q, sektion, offset);
    *x = point.x;
    *y = point.y;
    return 0;
}

int CVaglinje::Vagprofz(double sektion, double* z) {
    *z = noCoordinate;
    if (typ == kvarn::vagtypPlan || Home() != 0 || m_forsta->post.y > sektion) {
        return -1;
    }
    nod* from = m_forsta;
    nod* to = from->nasta;
    int position = 2;
    for (; to != nullptr && to->post.y <= sektion; from = to, to = to->nasta) {
        ++position;
    }
    if (to == nullptr) {
        StallSegment(from, from, position - 1);
        return -1;
    }
    StallSegment(from, to, position);
    kovltype const& p = from->post;
    kovltype const& q = to->post;
    *z =
        kvarn::IsArc(p.bulge) ? HeightOnCurve(p, q, sektion) : Interpolate(p.x, q.x, sektion, p, q);
    return 0;
}
