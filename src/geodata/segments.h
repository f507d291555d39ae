// Straight and arc segments of a road line, apart from the lines that they belong to. The plane and
// the signs are those of vaglinje.h.
#pragma once

#include <array>
#include <cmath>

namespace kvarn {

// With these digits every station in every old project has been computed.
constexpr double pi = 3.14159265359;
constexpr double twoPi = 6.28318530718;
constexpr double halfPi = 1.570796326795;
constexpr double threeHalfPi = 4.712388980385;

struct Point {
    double x;
    double y;
};

inline Point operator-(Point a, Point b) {
    return {a.x - b.x, a.y - b.y};
}

inline double Length(Point vector) {
    return std::sqrt(vector.x * vector.x + vector.y * vector.y);
}

inline bool IsArc(double bulge) {
    constexpr double straightest = 1e-6; // over 1 km the arc is 0.5 mm high
    return std::fabs(bulge) > straightest;
}

struct Circle {
    Point centre;
    double radius;
};

// The circle of the arc from one point to another. Not a number where the points coincide.
Circle CircleThrough(Point from, Point to, double bulge);

// The foot of a point on a straight segment.
class LineFoot {
  public:
    LineFoot(Point from, Point to, Point p)
        : m_d(to - from), m_p(p - from), m_length2(m_d.x * m_d.x + m_d.y * m_d.y) {}

    bool IsTooShort() const { return m_length2 < 0.0001; } // 0.01 m, squared
    // A foot may lie beyond an end by 0.0001 of the length: rounding loses no point beside the end.
    bool IsOnSegment() const {
        double const t = Fraction();
        return !(t < -0.0001 || t > 1.0001);
    }
    double Distance() const; // signed: negative on the left where x points right and y up
    double Along() const { return Fraction() * std::sqrt(m_length2); }

    // False where Distance is not smaller than the root of a square for sure: the cross product is
    // the distance times the length, and both ways to the distance err by less than 1e-10 |p|, or
    // 1e-150 where squares come to nothing.
    bool MayBeNearerThan(double square) const {
        double const rounding = 1e-20 * (m_p.x * m_p.x + m_p.y * m_p.y) + 1e-300;
        return !(Cross() * Cross() > (1.001 * square + rounding) * m_length2);
    }

  private:
    double Dot() const { return m_p.x * m_d.x + m_p.y * m_d.y; }
    double Cross() const { return m_d.x * m_p.y - m_d.y * m_p.x; }
    double Fraction() const { return Dot() / m_length2; }

    Point m_d;
    Point m_p;
    double m_length2;
};

// Metres from a quadrant's edge within which a direction counts as one along it: nearer, the
// quotient of its coordinates grows out of bounds.
constexpr double quadrantEdge = 1e-5;

// A direction from a circle's centre: a bearing, from the y axis towards the x axis, by its
// quadrant and the tangent of half the angle within it.
class Direction {
  public:
    explicit Direction(Point fromCentre);

    // From 0 up to 4, growing with the angle: what directions are compared by.
    double Measure() const { return m_measure; }
    // Known to the quadrant alone; also of a direction that is no number.
    bool IsAtQuadrantsStart() const { return !(m_measure > m_quadrant); }
    double Angle() const {
        constexpr std::array<double, 4> beginnings = {0, halfPi, pi, threeHalfPi};
        return 2 * std::atan(m_measure - m_quadrant) +
               beginnings[static_cast<unsigned>(m_quadrant)];
    }

  private:
    Direction(int quadrant, bool isOnEdge, double t);

    int m_quadrant;
    double m_measure;
};

struct Foot {
    bool isWithin; // the others are 0 where it is not
    double along;
    double offset;
};

// An arc from one point to another, with what can be told before a point is known.
class Arc {
  public:
    Arc(Point from, Point to, double bulge);

    Foot FootOf(Point p) const;

    Circle const& OnCircle() const { return m_circle; }
    Direction TowardsFrom() const { return m_towardsFrom; }
    Direction TowardsTo() const { return m_towardsTo; }

  private:
    bool IsWithin(double measure) const;

    double m_bulge;
    Circle m_circle;
    Direction m_towardsFrom;
    Direction m_towardsTo;
};

} // namespace kvarn
