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

struct Punkt {
    double x;
    double y;
};

inline Punkt operator-(Punkt a, Punkt b) {
    return {a.x - b.x, a.y - b.y};
}

inline double Langd(Punkt vektor) {
    return std::sqrt(vektor.x * vektor.x + vektor.y * vektor.y);
}

inline bool ArBage(double bulge) {
    constexpr double rakaste = 1e-6;
    return std::fabs(bulge) > rakaste;
}

struct Cirkel {
    Punkt mitt;
    double radie;
};

// The circle of the arc from one point to another. Not a number where the points coincide.
Cirkel CirkelGenom(Punkt fran, Punkt till, double bulge);

// The foot of a point on a straight segment.
class Linjefot {
  public:
    Linjefot(Punkt fran, Punkt till, Punkt p)
        : m_d(till - fran), m_p(p - fran), m_langd2(m_d.x * m_d.x + m_d.y * m_d.y) {}

    bool ForKort() const { return m_langd2 < 0.0001; }
    bool PaStrackan() const {
        double const t = Del();
        return !(t < -0.0001 || t > 1.0001);
    }
    double Avstand() const; // signed: negative on the left where x points right and y up
    double Langs() const { return Del() * std::sqrt(m_langd2); }

  private:
    double Del() const { return (m_p.x * m_d.x + m_p.y * m_d.y) / m_langd2; }

    Punkt m_d;
    Punkt m_p;
    double m_langd2;
};

// A direction from a circle's centre: a bearing, from the y axis towards the x axis, by its
// quadrant and the tangent of half the angle within it.
class Riktning {
  public:
    explicit Riktning(Punkt franMitten);

    // From 0 up to 4, growing with the angle: what directions are compared by.
    double Matt() const { return m_matt; }
    double Vinkel() const {
        constexpr std::array<double, 4> borjan = {0, halfPi, pi, threeHalfPi};
        return 2 * std::atan(m_matt - m_kvadrant) + borjan[static_cast<unsigned>(m_kvadrant)];
    }

  private:
    Riktning(int kvadrant, bool langsKanten, double t);

    int m_kvadrant;
    double m_matt;
};

struct Bagfot {
    bool inom; // the others are 0 where it is not
    double langs;
    double offset;
};

// The foot of a point on the arc from one point to another.
Bagfot FotPaBage(Punkt fran, Punkt till, double bulge, Punkt p);

} // namespace kvarn
