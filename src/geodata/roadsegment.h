// A segment of a road line, from a vertex p to the next, q: the feet on it, the points at its
// stations, its heights. One place for the formulas of the line and of its index.
#pragma once

#include <cmath>
#include <variant>

#include "../formats/vertex.h"
#include "segments.h"

namespace kvarn {

constexpr double noCoordinate = 999999.9;   // what clients compare with
constexpr double stationTolerance = 0.0001; // metres along the line; files have four decimals

inline Point PlaceOf(kovltype const& vertex) {
    return {vertex.x, vertex.y};
}

inline double Square(Point vector) {
    return vector.x * vector.x + vector.y * vector.y;
}

// The foot on a straight, with y first, which gives the signs of offsets.
inline LineFoot StraightFoot(kovltype const& p, kovltype const& q, Point point) {
    return {{p.y, p.x}, {q.y, q.x}, {point.y, point.x}};
}

inline Arc ArcOf(kovltype const& p, kovltype const& q) {
    return {PlaceOf(p), PlaceOf(q), p.bulge};
}

// The foot of a point on a segment; isWithin is false where it has none.
Foot FootOnStraight(kovltype const& p, kovltype const& q, Point point);
Foot FootOnSegment(kovltype const& p, kovltype const& q, Point point);

// Whether a vertex result at q lies on the negative side of the segment.
bool IsOnNegativeSide(kovltype const& p, kovltype const& q, Point point);

// A value that changes evenly with the station between two that are known at the ends of a segment.
struct EvenChange {
    double from;
    double change;

    double At(double along, double length) const { return from + along * change / length; }
};

// A segment of a plan, with what can be told before a station is known.
class PlanSegment {
  public:
    PlanSegment(kovltype const& p, kovltype const& q);

    Point At(double sektion, double offset) const;

  private:
    struct Straight {
        Straight(kovltype const& p, kovltype const& q);
        EvenChange x;
        EvenChange y;
        Point across; // (sin, -cos) of it is the unit vector to positive offsets
    };
    struct Bend {
        Bend(kovltype const& p, kovltype const& q);
        Circle circle;
        EvenChange bearing;
        bool isClockwise; // so that positive offsets lie outside the circle
    };

    using Shape = std::variant<Straight, Bend>;

    double m_from; // station
    double m_length;
    Shape m_shape;
};

// A segment of a profile, likewise. The height is a vertex's x, and the station its y.
class ProfileSegment {
  public:
    ProfileSegment(kovltype const& p, kovltype const& q);

    double HeightAt(double sektion) const;

  private:
    double m_from; // station
    double m_length;
    bool m_isCurve;
    EvenChange m_change; // of the height; on a curve of the angle about the circle's centre
    Circle m_circle;
};

} // namespace kvarn
