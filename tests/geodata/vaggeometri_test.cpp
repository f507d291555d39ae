// Single operations of the road line, at their limits.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "geodata/vaglinje.h"
#include "support/statusbar.h"
#include "support/vertices.h"

namespace {

constexpr double noCoordinate = 999999.9;
double const sin60 = std::sqrt(0.75);
double const tan30 = std::sqrt(1.0 / 3);

struct Line : CVaglinje {
    explicit Line(Vertices const& vertices, int type = 1) {
        typ = type;
        Append(*this, vertices);
    }
};

// A corner of two straights: north, then east.
Vertices const corner = {{0, 0, 0, 100}, {100, 0, 0, 200}, {100, 100, 0, 300}};
Vertices const falling = {{0, 0, 0, 300}, {100, 0, 0, 200}, {100, 100, 0, 100}};

TEST(Vag2xy, TheEndsAreTolerantAndWhatLiesBeyondFails) {
    struct {
        Vertices line;
        double station;
        double offset;
        int result;
        double x;
        double y;
    } const cases[] = {
        {corner, 100, 0, 0, 0, 0},
        {corner, 100 - 0.00005, 0, 0, -0.00005, 0},
        {corner, 100 - 0.0001, 0, -1, noCoordinate, noCoordinate},
        {corner, 150, 5, 0, 50, 5}, // to the right, x being north
        {corner, 150, -5, 0, 50, -5},
        {corner, 200.00005, 5, 0, 100.00005, 5}, // at every vertex
        {corner, 250, 5, 0, 95, 50},
        {corner, 300.00005, 0, 0, 100, 100.00005},
        {corner, 300.0001, 0, -1, noCoordinate, noCoordinate},
        {corner, std::nan(""), 0, -1, noCoordinate, noCoordinate},
        {falling, 300.00005, 0, 0, -0.00005, 0},
        {falling, 300.0001, 0, -1, noCoordinate, noCoordinate},
        {falling, 150, 5, 0, 95, 50},
        {falling, 99.99995, 0, 0, 100, 100.00005},
        {falling, 99.9999, 0, -1, noCoordinate, noCoordinate},
        {{{1, 2, 0, 3}}, 3, 0, -1, noCoordinate, noCoordinate},
        {{}, 3, 0, -1, noCoordinate, noCoordinate},
        // Across bearing zero: outside the circle for a positive bulge, inside for a negative.
        {{{-10 * sin60, 5, tan30, 0}, {10 * sin60, 5, 0, 40}}, 20, 2, 0, 0, 12},
        {{{10 * sin60, 5, -tan30, 0}, {-10 * sin60, 5, 0, 40}}, 20, 2, 0, 0, 8},
        // Beyond a half circle the other arc is followed.
        {{{0, 10, -3, 0}, {10, 0, 0, 1}}, 0.5, 0, 0, 20.0 / 3, 20.0 / 3},
        // An exact half circle goes over the bearing zero, whichever side it bows to.
        {{{8, 6, 1, 0}, {-8, -6, 0, 30}}, 15, 0, 0, -6, 8},
        {{{8, 6, -1, 0}, {-8, -6, 0, 30}}, 15, 0, 0, -6, 8},
        // Coincident vertices of a straight have no direction but a place.
        {{{1, 2, 0, 0}, {1, 2, 0, 10}}, 5, 3, 0, -2, 2},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.line) + " at " + std::to_string(c.station));
        double x = 0;
        double y = 0;
        EXPECT_EQ(Line(c.line).Vag2xy(c.station, c.offset, &x, &y), c.result);
        EXPECT_NEAR(x, c.x, 1e-9);
        EXPECT_NEAR(y, c.y, 1e-9);
    }
}

TEST(Vagprofz, TheFirstStationHasAHeightAndTheLastHasNone) {
    // A rise of 1 in 10, then a vertical curve that sags 0.1 m under its chord.
    Vertices const profile = {{10, 100, 0, 100}, {20, 200, 0.002, 200}, {20, 300, 0, 300}};
    struct {
        Vertices line;
        double station;
        double z;
        int type;
        int result;
    } const cases[] = {
        {profile, 100, 10, 10, 0},
        {profile, 99.9999999, noCoordinate, 10, -1},
        {profile, 150, 15, 10, 0},
        {profile, 200, 20, 0, 0},
        {profile, 250, 19.9, 10, 0},
        {{{20, 200, -0.002, 200}, {20, 300, 0, 300}}, 250, 20.1, 10, 0}, // a crest
        {profile, 299.9999999, 20, 10, 0},
        {profile, 300, noCoordinate, 10, -1},
        {profile, 150, noCoordinate, 1, -1},
        // Too near for a chord: the height of the first.
        {{{3, 0, 1, 0}, {3, 1e-200, 0, 1}}, 0, 3, 10, 0},
        {{{10, 100, 0, 100}}, 100, noCoordinate, 10, -1},
        {{}, 100, noCoordinate, 10, -1},
    };
    for (auto const& c : cases) {
        double z = 0;
        EXPECT_EQ(Line(c.line, c.type).Vagprofz(c.station, &z), c.result) << c.station;
        EXPECT_NEAR(z, c.z, 1e-9) << c.station;
    }
}

TEST(Vagstv, ModesCornersAndSides) {
    Vertices const tiny = {
        {0, 0, 0, 0}, {100, 0, 0, 100}, {100.009, 0, 0, 100.009}, {100.009, 50, 0, 150}};
    Vertices const hook = {{0, 9, 0, 0}, {0, 0, 0, 9}, {10, 0, 0, 19}, {10, 10, 0, 29}};
    Vertices const loop = {{0, 0, 0, 0},     {10, 0, 0, 10},    {20, 0, 0, 20},
                           {100, 0, 0, 100}, {100, 90, 0, 190}, {1, 90, 0, 289}};
    struct {
        Vertices line;
        double x;
        double y;
        int mode;
        int result;
        double station;
        double offset;
    } const cases[] = {
        {corner, 50, 5, 0, 0, 150, 5},
        {corner, 50, -5, 1, 0, 150, -5},
        {corner, 50, 50, 2, 0, 150, 50}, // equal offsets: the first
        {corner, 103, -4, 0, 0, 200, -5},
        {corner, 103, -4, 1, 0, 200, -5},
        {corner, 103, -4, 2, -1, CVaglinje::Seknoll, 0},
        {corner, -1, -1, 0, -1, CVaglinje::Seknoll, 0}, // before the line
        {corner, -0.005, 3, 0, 0, 99.995, 3},           // a ten-thousandth of the segment is
        {corner, 50, 5e8, 2, 0, 150, 5e8},
        {corner, 50, 1.05e9, 2, -1, 150, 1.05e9},
        // The foot that turns its sign with the stations, and the vertex that does not.
        {falling, 50, 5, 0, 0, 250, -5},
        {falling, 103, -4, 0, 0, 200, -5},
        // A segment of 9 mm is not seen; a vertex after it lies on the positive side.
        {tiny, 101, -3, 0, 0, 100.009, std::hypot(0.991, 3)},
        {{{0, 0, 0, 0}, {0.0101, 0, 0, 0.0101}}, 0.005, 3, 2, 0, 0.005, 3}, // one of 1 cm is
        // The last vertex is nearer than the inner one, and none is given.
        {{{0, 0, 0, 0}, {10, 0, 0, 10}, {20, 0, 0, 20}}, 23, 1, 0, -1, CVaglinje::Seknoll, 0},
        // Mode 1 is content with a foot, though a vertex is nearer; without one it looks at the
        // vertices, from its start on.
        {{{0, 0, 0, 0}, {30, 0, 0, 30}, {30, 3, 0, 33}, {0, 3, 0, 63}}, 40, 1, 1, 0, 31, -10},
        {hook, 11, -1, 1, 0, 19, -std::sqrt(2.0)},
        // From 95 m the narrowed search begins two vertices before it and finds nothing nearer.
        {loop, 1, 89, 1, 0, 289, 1},
        {{{1, 2, 0, 0}}, 1, 2, 0, -1, CVaglinje::Seknoll, 0},
        {{}, 1, 2, 0, -1, CVaglinje::Seknoll, 0},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.line) + " " + std::to_string(c.x) + " mode " +
                     std::to_string(c.mode));
        Line line(c.line);
        double station = 1;
        double offset = 1;
        EXPECT_EQ(line.Vagstv(c.x, c.y, &station, &offset, c.mode), c.result);
        EXPECT_NEAR(station, c.station, 1e-9);
        EXPECT_NEAR(offset, c.offset, 1e-9);
        line.typ = 10;
        EXPECT_EQ(line.Vagstv(c.x, c.y, &station, &offset, c.mode), -1);
        EXPECT_EQ(station, CVaglinje::Seknoll);
    }
}

TEST(PktIomr, TheAreasLimitsBelongToIt) {
    Line line(corner);
    line.Reset();
    double station = 7;
    double offset = 7;
    EXPECT_EQ(line.PktIomr(50, 30.001, &station, &offset, 0), -1);
    EXPECT_EQ(line.PktIomr(-0.005, 0, &station, &offset, 0), -1); // found, 5 mm before the area
    EXPECT_EQ(station, 7);
    EXPECT_EQ(line.PktIomr(50, 30, nullptr, nullptr, 0), 0);
    EXPECT_EQ(line.PktIomr(-0.0005, -30, &station, &offset, 0), 0);
    EXPECT_EQ(offset, -30);
    EXPECT_EQ(line.PktIomr(100, 100.0005, &station, &offset, 0), 0);
    EXPECT_EQ(line.PktIomr(100, 100.002, &station, &offset, 0), -1);
    line.omrAvstMin = std::nan("");
    EXPECT_EQ(line.PktIomr(50, 30, nullptr, nullptr, 0), -1);
}

TEST(Pldist, SignFootAndLimits) {
    Line line({});
    double dist = 7;
    double along = 7;
    EXPECT_EQ(line.Pldist(0, 0, 0.0099, 0, 1, 1, &dist, &along), 0);
    EXPECT_EQ(dist, 7);
    EXPECT_EQ(line.Pldist(0, 0, 3, 4, 3 - 4, 4 + 3, &dist, &along), 1); // at the end, to the left
    EXPECT_DOUBLE_EQ(dist, -5);
    EXPECT_DOUBLE_EQ(along, 5);
    EXPECT_EQ(line.Pldist(0, 0, 10, 0, 10.002, -3, &dist, &along), 2);
    EXPECT_DOUBLE_EQ(dist, 3);
    EXPECT_DOUBLE_EQ(along, 10.002);
    EXPECT_EQ(line.Pldist(0, 0, 10, 0, -0.0009, 0, &dist, &along), 1);
    EXPECT_FALSE(std::signbit(dist));
    line.typ = 10;
    EXPECT_EQ(line.Pldist(0, 0, 10, 0, 5, 0, &dist, &along), -1);
}

// The circle around the origin from (-3, -4) by the north-west to (3, 4).
TEST(Padist, DirectionsAlongAQuadrantsEdge) {
    constexpr double unwritten = 7;
    struct {
        double bulge;
        double x;
        double y;
        int result;
        double along;
        double offset;
    } const cases[] = {
        {1, -8, 6, 1, 5 * M_PI / 2, 5}, // opposite (8, -6)
        {-1, -8, 6, 2, unwritten, unwritten},
        {-1, 8, -6, 1, 5 * M_PI / 2, -5},
        {1, 0, 10, 2, unwritten, unwritten},  // no number, though it lies beside the arc
        {1, -10, 0, 2, unwritten, unwritten}, // counts as south, though it lies beside the arc
        // East counts as north, from which the arc is far.
        {1, 10, 0, 1, 5 * (2 * M_PI - (M_PI + std::atan(0.75))), 5},
        {1, 9, 2e-5, 2, unwritten, unwritten}, // beyond 0.01 mm it has its own direction
        {-1, 0, -10, 1, 5 * (M_PI / 2 + std::atan(0.75) - 0), -5}, // south counts as east
    };
    kovltype from = {-3, -4, 0, 0};
    kovltype to = {3, 4, 0, 0};
    for (auto const& c : cases) {
        Line line({});
        from.bulge = c.bulge;
        double along = unwritten;
        double offset = unwritten;
        EXPECT_EQ(line.Padist(&from, &to, c.x, c.y, &along, &offset), c.result)
            << c.x << ' ' << c.y;
        EXPECT_NEAR(along, c.along, 1e-9) << c.x << ' ' << c.y;
        EXPECT_NEAR(offset, c.offset, 1e-9) << c.x << ' ' << c.y;
        line.typ = 10;
        EXPECT_EQ(line.Padist(&from, &to, c.x, c.y, &along, &offset), -1);
    }
}

TEST(BulgeR, BothWaysAndARadiusThatIsTooShort) {
    Line line({}, 10); // no type is refused
    StatusBar status;
    kokotype from = {5, -10 * sin60, 0}; // (y, x) of the first arc above
    kokotype to = {5, 10 * sin60, 0};
    double centre[2] = {};
    for (double const radius : {10.0, -10.0}) {
        double r = radius;
        EXPECT_EQ(line.Bulge_r(&from, &to, &r, nullptr, nullptr, 0), 0);
        EXPECT_NEAR(from.bulge, radius > 0 ? -tan30 : tan30, 1e-12);
        EXPECT_EQ(line.Bulge_r(&from, &to, &r, &centre[0], &centre[1], 1), 0);
        EXPECT_NEAR(r, 10, 1e-12);
        EXPECT_NEAR(centre[0], radius > 0 ? 10 : 0, 1e-12);
        EXPECT_NEAR(centre[1], 0, 1e-12);
    }
    double r = 8.66;
    EXPECT_EQ(line.Bulge_r(&from, &to, &r, nullptr, nullptr, 0), 0);
    EXPECT_EQ(from.bulge, 0);
    EXPECT_EQ(status.Text(), "Fel (bulge->radie) radie: 8.66 (5.00,-8.66 - 5.00,8.66)");
    EXPECT_EQ(status.Text(), MessageBuffer());
    from.bulge = 1;
    EXPECT_EQ(line.Bulge_r(&from, &from, &r, nullptr, nullptr, 0), 0);
    EXPECT_EQ(from.bulge, 0);
    EXPECT_EQ(line.Bulge_r(&from, &from, &r, &centre[0], &centre[1], 1), 0);
    EXPECT_TRUE(std::isnan(r));
}

TEST(SektKorr, MovesAllStationsByTheLastVertexAtThePoint) {
    Line line({{1, 2, 0, 10}, {3, 4, 0, 20}, {1.0005, 2, 0, 30}});
    EXPECT_EQ(line.SektKorr(1, 2.0011, 0), -1);
    EXPECT_EQ(line.SektKorr(1, 2, 100), 0);
    EXPECT_EQ(VerticesOf(line), (Vertices{{1, 2, 0, 80}, {3, 4, 0, 90}, {1.0005, 2, 0, 100}}));
    EXPECT_EQ(Line({{1, 2, 0, 10}}).SektKorr(1, 2, 0), 0);
    EXPECT_EQ(Line({}).SektKorr(1, 2, 0), -1);
    EXPECT_EQ(Line({{1, 2, 0, 10}}, 10).SektKorr(1, 2, 0), -1);
}

TEST(SektBerak, AStraightIsMeasuredUnlessTheLaterVertexHasABulge) {
    Line line({{0, 0, 1, 9}, {3, 4, 0, 9}, {9, 12, -0.25, 9}, {17, 6, 0.25, 9}, {17, 6, 1, 9}});
    double const arc = 4 * std::atan(0.25) * 10.625; // on a chord of 10
    EXPECT_EQ(line.SektBerak(100), 0);
    Vertices const result = VerticesOf(line);
    EXPECT_EQ(result[0].sektion, 100);
    EXPECT_EQ(result[1].sektion, 105);
    EXPECT_NEAR(result[2].sektion, 105 + arc, 1e-9);
    EXPECT_NEAR(result[3].sektion, 105 + 2 * arc, 1e-9);
    EXPECT_EQ(result[4].sektion, result[3].sektion); // no chord, no length
    EXPECT_EQ(Line({}).SektBerak(0), 0);
    EXPECT_EQ(Line({{1, 2, 0, 10}}).SektBerak(5), 0);
    EXPECT_EQ(Line({{1, 2, 0, 10}}, 10).SektBerak(5), -1);
}

TEST(Extend, TheNewFirstVertexIsMeasuredFromHalfAMetreInside) {
    Vertices const straight = {{0, 0, 0, 100}, {60, 80, 0.5, 200}};
    struct {
        Vertices line;
        double before;
        double after;
        int result;
        Vertices extended;
    } const cases[] = {
        {straight, 10, 0, 0, {{-5.7, -7.6, 0, 90}, {0, 0, 0, 100}, {60, 80, 0.5, 200}}},
        {straight, -1, 10, 0, {{0, 0, 0, 100}, {60, 80, 0, 200}, {65.7, 87.6, 0, 210}}},
        {straight, 0, std::nan(""), 0, straight},
        {falling, 10, 0, -1, falling},
        {{{0, 0, 0, 0}, {0.3, 0, 0.5, 0.3}}, 5, 5, -1, {{0, 0, 0, 0}, {0.3, 0, 0.5, 0.3}}},
        {{{0, 0, 0, 0}, {0.3, 0, 0.5, 0.3}}, 0, 5, -1, {{0, 0, 0, 0}, {0.3, 0, 0, 0.3}}},
        {{{1, 2, 0, 0}, {1, 2, 0, 9}}, 5, 0, -1, {{1, 2, 0, 0}, {1, 2, 0, 9}}}, // no direction
        {{}, 0, 0, 0, {}},
        {{}, 1, 0, -1, {}},
        {{}, 0, 1, -1, {}},
    };
    for (auto const& c : cases) {
        Line line(c.line);
        EXPECT_EQ(line.Extend(c.before, c.after), c.result);
        Vertices result = VerticesOf(line);
        for (kovltype& vertex : result) { // to the nanometre
            vertex.x = std::round(vertex.x * 1e9) / 1e9;
            vertex.y = std::round(vertex.y * 1e9) / 1e9;
        }
        EXPECT_EQ(result, c.extended) << testing::PrintToString(c.line) << c.before;
    }
    EXPECT_EQ(Line(straight, 10).Extend(0, 0), -1);
}

// Where a walk ends is where list work goes on.
TEST(Vaglinje, WalksLeaveTheCurrentVertexAndTheMarkWhereTheyEnd) {
    Line line(corner);
    double x = 0;
    double y = 0;
    auto const stations = [&] {
        double const current = line.Get_aktel()->sektion;
        EXPECT_EQ(line.Where(nullptr), static_cast<int>(current / 100));
        EXPECT_EQ(line.Goto_mark(), 0);
        return std::pair(line.Get_aktel()->sektion, current);
    };
    line.Vag2xy(150, 0, &x, &y);
    EXPECT_EQ(stations(), std::pair(100.0, 200.0));
    line.Vag2xy(250, 0, &x, &y);
    EXPECT_EQ(stations(), std::pair(200.0, 300.0));
    line.Vag2xy(350, 0, &x, &y);
    EXPECT_EQ(stations(), std::pair(300.0, 300.0));
    line.Vagstv(50, 5, &x, &y, 1);
    EXPECT_EQ(stations(), std::pair(200.0, 300.0)); // one segment after the foot
    line.SektBerak(100);
    EXPECT_EQ(stations(), std::pair(300.0, 300.0));
}

} // namespace
