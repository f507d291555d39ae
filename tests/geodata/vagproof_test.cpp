// The geometry of road lines against a road that is laid out by curvature alone: a heading that
// turns evenly along each element, and a place that is the integral of the heading.
// Random lines, with a fixed seed.
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "geodata/vaglinje.h"
#include "support/vertices.h"

namespace {

struct Place {
    double x;
    double y;
    double heading; // from x towards y

    Place Beside(double offset) const {
        return {x - offset * std::sin(heading), y + offset * std::cos(heading), heading};
    }
};

double Distance(Place const& a, Place const& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// A straight or an arc that begins in the direction in which the one before it ends.
struct Element {
    Place start;
    double length;
    double curvature; // positive: turns from x towards y

    Place At(double distance) const {
        double const heading = start.heading + curvature * distance;
        if (curvature == 0) {
            return {start.x + distance * std::cos(heading), start.y + distance * std::sin(heading),
                    heading};
        }
        return {start.x + (std::sin(heading) - std::sin(start.heading)) / curvature,
                start.y - (std::cos(heading) - std::cos(start.heading)) / curvature, heading};
    }
    double Bulge() const { return -std::tan(curvature * length / 4); }
};

class Road {
  public:
    Road(Place start, double station, bool increasing)
        : m_end(start), m_station(station), m_sign(increasing ? 1 : -1) {}

    void Straight(double length) { Add({m_end, length, 0}); }
    // The angle is positive for a turn from x towards y.
    void Arc(double radius, double angle) {
        Add({m_end, radius * std::fabs(angle), (angle > 0 ? 1 : -1) / radius});
    }

    double Sign() const { return m_sign; }
    double Station(double distance) const { return m_station + m_sign * distance; }
    double Length() const { return m_length; }
    Place At(double distance) const {
        std::size_t i = 0;
        for (; i + 1 < m_elements.size() && distance > m_elements[i].length; ++i) {
            distance -= m_elements[i].length;
        }
        return m_elements[i].At(distance);
    }
    void Fill(CVaglinje& line) const {
        double distance = 0;
        for (Element const& e : m_elements) {
            Append(line, {{e.start.x, e.start.y, e.Bulge(), Station(distance)}});
            distance += e.length;
        }
        Append(line, {{m_end.x, m_end.y, 0, Station(distance)}});
    }
    // To the nearest place, which is looked for everywhere.
    double DistanceTo(Place const& p) const {
        double const step = 0.05;
        double nearest = Distance(m_end, p);
        for (int i = 0; i * step < m_length; ++i) {
            nearest = std::min(nearest, Distance(At(i * step), p));
        }
        return nearest;
    }

  private:
    void Add(Element const& element) {
        m_elements.push_back(element);
        m_end = element.At(element.length);
        m_length += element.length;
    }

    std::vector<Element> m_elements;
    Place m_end;
    double m_station;
    double m_sign;
    double m_length = 0;
};

using Random = std::mt19937;

double Between(Random& random, double from, double to) {
    return std::uniform_real_distribution<double>(from, to)(random);
}

// Winding, in both directions, in any direction of the compass.
Road RandomRoad(Random& random, bool gentle) {
    Road road({Between(random, 6.5e6, 6.6e6), Between(random, 1e5, 2e5), Between(random, -3, 3)},
              Between(random, -1e3, 1e5), random() % 2 == 0);
    for (int i = 2 + static_cast<int>(random() % 6); i > 0; --i) {
        double const turn = Between(random, 0.05, gentle ? 0.3 : 3) * (random() % 2 == 0 ? 1 : -1);
        random() % 3 == 0 ? road.Straight(Between(random, 5, 300))
                          : road.Arc(Between(random, 50, 900), turn);
    }
    return road;
}

constexpr double exact = 1e-6; // metres, at coordinates of 6,500 km

TEST(RoadProof, StationAndOffsetBecomeThePointAndComeBack) {
    Random random(20261121);
    int returned = 0;
    for (int n = 0; n < 3000; ++n) {
        SCOPED_TRACE(n);
        bool const gentle = n % 2 == 0;
        Road const road = RandomRoad(random, gentle);
        CVaglinje line;
        road.Fill(line);
        for (int i = 0; i < 5; ++i) {
            double const distance = Between(random, 0, road.Length());
            double const offset = Between(random, -40, 40);
            Place const wanted = road.At(distance).Beside(offset);
            double x = 0;
            double y = 0;
            ASSERT_EQ(line.Vag2xy(road.Station(distance), offset, &x, &y), 0);
            ASSERT_LT(Distance({x, y, 0}, wanted), exact);

            // The foot that is found may be another, on a road that turns back upon itself, but
            // none that is farther away, and it leads back to the same point.
            double station = 0;
            double found = 0;
            ASSERT_EQ(line.Vagstv(x, y, &station, &found, 2), 0);
            ASSERT_LT(std::fabs(found), std::fabs(offset) + exact);
            if (std::fabs(found) > std::fabs(offset) - exact) {
                ASSERT_NEAR(station, road.Station(distance), exact);
                ASSERT_NEAR(found, road.Sign() * offset, exact); // the sign turns with the stations
                ++returned;
            }
            double backX = 0;
            double backY = 0;
            ASSERT_EQ(line.Vag2xy(station, road.Sign() * found, &backX, &backY), 0);
            ASSERT_LT(Distance({x, y, 0}, {backX, backY, 0}), exact);
            if (gentle) {
                double narrowed = 0;
                EXPECT_EQ(line.Vagstv(x, y, &narrowed, &found, 1), 0);
                EXPECT_NEAR(narrowed, station, exact);
            }
            if (n < 20) { // it takes long
                ASSERT_EQ(line.Vagstv(x, y, &station, &found, 0), 0);
                ASSERT_NEAR(std::fabs(found), road.DistanceTo({x, y, 0}), 0.001);
            }
        }
    }
    EXPECT_GT(returned, 13000);
}

} // namespace
