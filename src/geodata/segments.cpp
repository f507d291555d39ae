#include "segments.h"

namespace kvarn {

// The arc's height is h = |bulge| * chord / 2. With half the chord, c / 2, and the part r - h of
// the radius up to the chord, Pythagoras gives r = (c * c / 4 + h * h) / (2 * h). From the middle
// of the chord the centre lies r - h along the chord's normal, on the right of it for a positive
// bulge.
Circle CircleThrough(Point from, Point to, double bulge) {
    Point const d = to - from;
    double const chord = Length(d);
    double const height = std::fabs(bulge * chord / 2);
    double const radius = (chord * chord / 4 + height * height) / (2 * height);
    double const toCentre = (bulge >= 0 ? 1 : -1) * (radius - height);
    return {{(from.x + to.x) / 2 + toCentre * d.y / chord,
             (from.y + to.y) / 2 - toCentre * d.x / chord},
            radius};
}

// The part of p across the line is p * d^2 - d * (p . d), divided by d^2; the products are arranged
// so that p . d need not be made. The cross product d x p tells the side.
double LineFoot::Distance() const {
    double const dxdy = m_d.x * m_d.y;
    Point const across = {m_p.x * (m_d.y * m_d.y) - dxdy * m_p.y,
                          m_p.y * (m_d.x * m_d.x) - dxdy * m_p.x};
    double const distance = Length(across) / m_length2;
    return Cross() > 0 ? -distance : distance;
}

// With t = tan(a), a being the angle within the quadrant, (sqrt(t * t + 1) - 1) / t = tan(a / 2):
// it grows with a from 0 to 1, and the quadrant's number makes one scale of four of them. Known
// quirk, kept on purpose: along a quadrant's edge the direction is the quadrant's first, also at
// the far edge.
Direction::Direction(int quadrant, bool isOnEdge, double t)
    : m_quadrant(quadrant),
      m_measure(isOnEdge ? quadrant : (std::sqrt(t * t + 1) - 1) / t + quadrant) {}

Direction::Direction(Point p)
    : Direction(p.y >= 0 && p.x >= 0   ? Direction(0, p.y <= quadrantEdge, p.x / p.y)
                : p.y <= 0 && p.x >= 0 ? Direction(1, p.x <= quadrantEdge, -p.y / p.x)
                : p.y <= 0 && p.x <= 0 ? Direction(2, p.y >= -quadrantEdge, p.x / p.y)
                                       : Direction(3, p.x >= -quadrantEdge, -p.y / p.x)) {}

namespace {

// Between the directions of an arc that turns with the bearing, from the first to the last. False
// when one of them is not a number.
bool IsBetween(double first, double last, double measure) {
    return first > last ? measure >= first || measure <= last : first <= measure && measure <= last;
}

} // namespace

Arc::Arc(Point from, Point to, double bulge)
    : m_bulge(bulge), m_circle(CircleThrough(from, to, bulge)),
      m_towardsFrom(from - m_circle.centre), m_towardsTo(to - m_circle.centre) {}

// A positive bulge turns clockwise where x points right and y up.
bool Arc::IsWithin(double measure) const {
    return m_bulge > 0 ? IsBetween(m_towardsFrom.Measure(), m_towardsTo.Measure(), measure)
                       : IsBetween(m_towardsTo.Measure(), m_towardsFrom.Measure(), measure);
}

// The foot is where the ray from the centre to p meets the arc. Its distance along is the angle
// from the arc's start times the radius, and the offset is how far p is outside the circle.
Foot Arc::FootOf(Point p) const {
    Direction const towardsP(p - m_circle.centre);
    if (!IsWithin(towardsP.Measure())) {
        return {};
    }
    double angleP = towardsP.Angle();
    double angleFrom = m_towardsFrom.Angle();
    if (m_bulge > 0 && angleFrom > angleP) {
        angleFrom -= twoPi;
    } else if (m_bulge < 0 && angleP > angleFrom) {
        angleP -= twoPi;
    }
    return {.isWithin = true,
            .along = std::fabs((angleP - angleFrom) * m_circle.radius),
            .offset = (Length(p - m_circle.centre) - m_circle.radius) * (m_bulge > 0 ? 1 : -1)};
}

} // namespace kvarn
