#include "roadsegment.h"

namespace kvarn {

namespace {

// The bearing of a vector, from the y axis towards the x axis, in [0, 2 pi).
double Bearing(Point vector) {
    double const angle = std::atan2(vector.x, vector.y);
    return angle < 0 ? angle + twoPi : angle;
}

} // namespace

Foot FootOnStraight(kovltype const& p, kovltype const& q, Point point) {
    LineFoot const foot = StraightFoot(p, q, point);
    if (foot.IsTooShort() || !foot.IsOnSegment()) {
        return {};
    }
    return {.isWithin = true, .along = foot.Along(), .offset = foot.Distance()};
}

Foot FootOnSegment(kovltype const& p, kovltype const& q, Point point) {
    return IsArc(p.bulge) ? ArcOf(p, q).FootOf(point) : FootOnStraight(p, q, point);
}

bool IsOnNegativeSide(kovltype const& p, kovltype const& q, Point point) {
    LineFoot const foot = StraightFoot(p, q, point);
    return !foot.IsTooShort() && foot.Distance() < 0;
}

PlanSegment::Straight::Straight(kovltype const& p, kovltype const& q)
    : x{p.x, q.x - p.x}, y{p.y, q.y - p.y} {
    double const bearing = std::atan2(p.x - q.x, q.y - p.y) - halfPi;
    across = {std::sin(bearing), std::cos(bearing)};
}

// Of the two arcs through both points the shorter one is followed. Its bearings grow from p to q
// when it turns clockwise; where it crosses bearing 0 they grow after a turn is taken off one.
PlanSegment::Bend::Bend(kovltype const& p, kovltype const& q)
    : circle(CircleThrough(PlaceOf(p), PlaceOf(q), p.bulge)) {
    double from = Bearing(PlaceOf(p) - circle.centre);
    double to = Bearing(PlaceOf(q) - circle.centre);
    isClockwise = from <= to;
    if (!(std::fabs(to - from) < pi)) {
        isClockwise = from > to;
        (isClockwise ? from : to) -= twoPi;
    }
    bearing = {from, to - from};
}

PlanSegment::PlanSegment(kovltype const& p, kovltype const& q)
    : m_from(p.sektion), m_length(q.sektion - p.sektion),
      m_shape(IsArc(p.bulge) ? Shape(Bend(p, q)) : Shape(Straight(p, q))) {}

Point PlanSegment::At(double sektion, double offset) const {
    double const along = sektion - m_from;
    if (auto const* const straight = std::get_if<Straight>(&m_shape)) {
        return {straight->x.At(along, m_length) + straight->across.x * offset,
                straight->y.At(along, m_length) - straight->across.y * offset};
    }
    Bend const& bend = std::get<Bend>(m_shape);
    double const radius = bend.circle.radius + (bend.isClockwise ? offset : -offset);
    double const bearing = bend.bearing.At(along, m_length);
    return {bend.circle.centre.x + radius * std::sin(bearing),
            bend.circle.centre.y + radius * std::cos(bearing)};
}

// On a curve the angle is interpolated by station, which is exact at the ends alone.
ProfileSegment::ProfileSegment(kovltype const& p, kovltype const& q)
    : m_from(p.sektion), m_length(q.sektion - p.sektion),
      m_isCurve(IsArc(p.bulge)), m_change{p.x, q.x - p.x}, m_circle{PlaceOf(p), 0} {
    if (!m_isCurve) {
        return;
    }
    if (!(Length(PlaceOf(q) - PlaceOf(p)) <= 0)) {
        m_circle = CircleThrough(PlaceOf(p), PlaceOf(q), p.bulge);
    }
    Point const towardsP = PlaceOf(p) - m_circle.centre;
    Point const towardsQ = PlaceOf(q) - m_circle.centre;
    double const from = std::atan2(towardsP.x, towardsP.y);
    m_change = {from, std::atan2(towardsQ.x, towardsQ.y) - from};
}

double ProfileSegment::HeightAt(double sektion) const {
    double const value = m_change.At(sektion - m_from, m_length);
    return m_isCurve ? m_circle.centre.x + m_circle.radius * std::sin(value) : value;
}

} // namespace kvarn
