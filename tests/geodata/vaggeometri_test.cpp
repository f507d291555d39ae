// Single operations of the road line, at their limits.
#include <cmath>
#include <iomanip>
#include <sstream>

#include <gtest/gtest.h>

#include "geodata/vaglinje.h"
#include "support/statusbar.h"
#include "support/vertices.h"

namespace {

constexpr double noCoordinate = 999999.9;
double const sin60 = std::sqrt(0.75);
double const tan30 = std::sqrt(1.0 / 3);

// A result and what was written, to the nanometre.
template <class... Values> std::string Text(int result, Values... values) {
    std::ostringstream text;
    text << std::setprecision(16) << result;
    ((text << ' ' << std::round(values * 1e9) / 1e9 + 0.0), ...);
    return text.str();
}

struct Line : CVaglinje {
    explicit Line(Vertices const& vertices, int type = 1) {
        typ = type;
        Append(*this, vertices);
    }
};

std::string const offTheLine = Text(-1, noCoordinate, noCoordinate);
std::string const notFound = Text(-1, CVaglinje::Seknoll, 0);

// A corner of two straights: north, then east.
Vertices const corner = {{0, 0, 0, 100}, {100, 0, 0, 200}, {100, 100, 0, 300}};
Vertices const falling = {{0, 0, 0, 300}, {100, 0, 0, 200}, {100, 100, 0, 100}};

TEST(Vag2xy, TheEndsAreTolerantAndWhatLiesBeyondFails) {
    std::tuple<Vertices, double, double, std::string> const cases[] = {
        {corner, 100 - 0.00005, 0, Text(0, -0.00005, 0)},
        {corner, 100 - 0.0001, 0, offTheLine},
        {corner, 200.00005, 5, Text(0, 100.00005, 5)}, // at every vertex
        {corner, 300.00005, 0, Text(0, 100, 100.00005)},
        {corner, 300.0001, 0, offTheLine},
        {corner, std::nan(""), 0, offTheLine},
        {falling, 300.00005, 0, Text(0, -0.00005, 0)},
        {falling, 300.0001, 0, offTheLine},
        {falling, 99.9999, 0, offTheLine},
        {{{1, 2, 0, 3}}, 3, 0, offTheLine},
        {{}, 3, 0, offTheLine},
        // Beyond a half circle the other arc is followed.
        {{{0, 10, -3, 0}, {10, 0, 0, 1}}, 0.5, 0, Text(0, 20.0 / 3, 20.0 / 3)},
        // An exact half circle goes over the bearing zero, whichever side it bows to.
        {{{8, 6, 1, 0}, {-8, -6, 0, 30}}, 15, 0, "0 -6 8"},
        {{{8, 6, -1, 0}, {-8, -6, 0, 30}}, 15, 0, "0 -6 8"},
        // Coincident vertices of a straight have no direction but a place.
        {{{1, 2, 0, 0}, {1, 2, 0, 10}}, 5, 3, "0 -2 2"},
    };
    for (auto const& [vertices, station, offset, text] : cases) {
        double x = 0;
        double y = 0;
        int const result = Line(vertices).Vag2xy(station, offset, &x, &y);
        EXPECT_EQ(Text(result, x, y), text)
            << testing::PrintToString(vertices) << " at " << station;
    }
}

TEST(Vagprofz, TheFirstStationHasAHeightAndTheLastHasNone) {
    // A rise of 1 in 10, then a vertical curve that sags 0.1 m under its chord.
    Vertices const profile = {{10, 100, 0, 100}, {20, 200, 0.002, 200}, {20, 300, 0, 300}};
    std::tuple<Vertices, double, double, int, int> const cases[] = {
        {profile, 100, 10, 10, 0},
        {profile, 99.9999999, noCoordinate, 10, -1},
        {profile, 150, 15, 10, 0},
        {profile, 200, 20, 0, 0},
        {profile, 250, 19.9, 10, 0},
        {{{20, 200, -0.002, 200}, {20, 300, 0, 300}}, 250, 20.1, 10, 0}, // a crest
        {profile, 300, noCoordinate, 10, -1},
        {profile, 150, noCoordinate, 1, -1},
        // Too near for a chord: the height of the first.
        {{{3, 0, 1, 0}, {3, 1e-200, 0, 1}}, 0, 3, 10, 0},
        {{{10, 100, 0, 100}}, 100, noCoordinate, 10, -1},
        {{}, 100, noCoordinate, 10, -1},
    };
    for (auto const& [vertices, station, wanted, type, result] : cases) {
        double z = 0;
        EXPECT_EQ(Line(vertices, type).Vagprofz(station, &z), result) << station;
        EXPECT_NEAR(z, wanted, 1e-9) << station;
    }
}

TEST(Vagstv, ModesCornersAndSides) {
    Vertices const tiny = {
        {0, 0, 0, 0}, {100, 0, 0, 100}, {100.009, 0, 0, 100.009}, {100.009, 50, 0, 150}};
    Vertices const hook = {{0, 9, 0, 0}, {0, 0, 0, 9}, {10, 0, 0, 19}, {10, 10, 0, 29}};
    Vertices const loop = {{0, 0, 0, 0},     {10, 0, 0, 10},    {20, 0, 0, 20},
                           {100, 0, 0, 100}, {100, 90, 0, 190}, {1, 90, 0, 289}};
    std::tuple<Vertices, double, double, int, std::string> const cases[] = {
        {corner, 50, 50, 2, "0 150 50"}, // equal offsets: the first
        {corner, 103, -4, 0, "0 200 -5"},
        {corner, 103, -4, 1, "0 200 -5"},
        {corner, 103, -4, 2, notFound},
        {corner, -1, -1, 0, notFound},              // before the line
        {corner, -0.005, 3, 0, Text(0, 99.995, 3)}, // a ten-thousandth of the segment is
        {corner, 50, 5e8, 2, Text(0, 150, 5e8)},
        {corner, 50, 1.05e9, 2, Text(-1, 150, 1.05e9)},
        {falling, 103, -4, 0, "0 200 -5"}, // the sign of a vertex does not turn
        // A segment of 9 mm is not seen; a vertex after it lies on the positive side.
        {tiny, 101, -3, 0, Text(0, 100.009, std::hypot(0.991, 3))},
        {{{0, 0, 0, 0}, {0.0101, 0, 0, 0.0101}}, 0.005, 3, 2, Text(0, 0.005, 3)}, // one of 1 cm is
        // The last vertex is nearer than the inner one, and none is given.
        {{{0, 0, 0, 0}, {10, 0, 0, 10}, {20, 0, 0, 20}}, 23, 1, 0, notFound},
        // Mode 1 is content with a foot, though a vertex is nearer; without one it looks at the
        // vertices, from its start on.
        {{{0, 0, 0, 0}, {30, 0, 0, 30}, {30, 3, 0, 33}, {0, 3, 0, 63}}, 40, 1, 1, "0 31 -10"},
        {hook, 11, -1, 1, Text(0, 19, -std::sqrt(2.0))},
        // From 95 m the narrowed search begins two vertices before it and finds nothing nearer.
        {loop, 1, 89, 1, "0 289 1"},
        {{{1, 2, 0, 0}}, 1, 2, 0, notFound},
        {{}, 1, 2, 0, notFound},
    };
    for (auto const& [vertices, x, y, mode, text] : cases) {
        SCOPED_TRACE(testing::PrintToString(vertices) + Text(mode, x, y));
        Line line(vertices);
        double station = 1;
        double offset = 1;
        int const result = line.Vagstv(x, y, &station, &offset, mode);
        EXPECT_EQ(Text(result, station, offset), text);
        line.typ = 10;
        EXPECT_EQ(line.Vagstv(x, y, &station, &offset, mode), -1);
        EXPECT_EQ(station, CVaglinje::Seknoll);
    }
}

TEST(PktIomr, TheAreasLimitsBelongToIt) {
    Line line(corner);
    line.Reset();
    // text: 7 is not written
    std::tuple<double, double, std::string> const cases[] = {
        {50, 30.001, "-1 7 7"},          {-0.005, 0, "-1 7 7"}, // found, 5 mm before the area
        {-0.0005, -30, "0 99.9995 -30"}, {100, 100.0005, "0 300.0005 0"}, {100, 100.002, "-1 7 7"},
    };
    for (auto const& [x, y, text] : cases) {
        double station = 7;
        double offset = 7;
        int const result = line.PktIomr(x, y, &station, &offset, 0);
        EXPECT_EQ(Text(result, station, offset), text);
    }
    EXPECT_EQ(line.PktIomr(50, 30, nullptr, nullptr, 0), 0);
    line.omrAvstMin = std::nan("");
    EXPECT_EQ(line.PktIomr(50, 30, nullptr, nullptr, 0), -1);
}

TEST(Pldist, SignFootAndLimits) {
    auto const pldist = [](int type, double a2, double b2, double pa, double pb) {
        double dist = 7;
        double along = 7;
        int const result = Line({}, type).Pldist(0, 0, a2, b2, pa, pb, &dist, &along);
        return Text(result, dist, along);
    };
    EXPECT_EQ(pldist(1, 0.0099, 0, 1, 1), "0 7 7");
    EXPECT_EQ(pldist(1, 3, 4, 3 - 4, 4 + 3), "1 -5 5"); // at the end, to the left
    EXPECT_EQ(pldist(1, 10, 0, 10.002, -3), "2 3 10.002");
    EXPECT_EQ(pldist(1, 10, 0, -0.0009, 0), "1 0 -0.0009");
    EXPECT_EQ(pldist(10, 10, 0, 5, 0), "-1 7 7");
}

// The circle around the origin from (-3, -4) by the north-west to (3, 4).
TEST(Padist, DirectionsAlongAQuadrantsEdge) {
    double const beyondQuarter = M_PI / 2 + std::atan(0.75);
    // text: 7 is not written
    std::tuple<double, double, double, std::string> const cases[] = {
        {1, -8, 6, Text(1, 5 * M_PI / 2, 5)}, // opposite (8, -6)
        {-1, -8, 6, "2 7 7"},
        {-1, 8, -6, Text(1, 5 * M_PI / 2, -5)},
        {1, 0, 10, "2 7 7"},  // no number, though it lies beside the arc
        {1, -10, 0, "2 7 7"}, // counts as south, though it lies beside the arc
        // East counts as north, from which the arc is far.
        {1, 10, 0, Text(1, 5 * (1.5 * M_PI - beyondQuarter), 5)},
        {1, 9, 2e-5, "2 7 7"},                        // beyond 0.01 mm it has its own direction
        {-1, 0, -10, Text(1, 5 * beyondQuarter, -5)}, // south counts as east
    };
    for (auto const& [bulge, x, y, text] : cases) {
        SCOPED_TRACE(Text(0, x, y));
        Line line({});
        kovltype from = {-3, -4, bulge, 0};
        kovltype to = {3, 4, 0, 0};
        double along = 7;
        double offset = 7;
        int const result = line.Padist(&from, &to, x, y, &along, &offset);
        EXPECT_EQ(Text(result, along, offset), text);
        line.typ = 10;
        EXPECT_EQ(line.Padist(&from, &to, x, y, &along, &offset), -1);
    }
}

TEST(BulgeR, BothWaysAndARadiusThatIsTooShort) {
    Line line({}, 10); // no type is refused
    StatusBar status;
    kokotype from = {5, -10 * sin60, 0};
    kokotype to = {5, 10 * sin60, 0};
    double centre[2] = {};
    for (double r : {10.0, -10.0}) {
        double const expected = r > 0 ? 10 : 0;
        EXPECT_EQ(line.Bulge_r(&from, &to, &r, nullptr, nullptr, 0), 0);
        EXPECT_NEAR(from.bulge, r > 0 ? -tan30 : tan30, 1e-12);
        int const result = line.Bulge_r(&from, &to, &r, &centre[0], &centre[1], 1);
        EXPECT_EQ(Text(result, r, centre[0], centre[1]), Text(0, 10, expected, 0));
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
    EXPECT_EQ(Line({{0, 0, 0, 10}}).SektKorr(0, 0.001, 0), 0); // the limit is included
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
    std::tuple<Vertices, double, double, int, Vertices> const cases[] = {
        {straight, 10, 0, 0, {{-5.7, -7.6, 0, 90}, {0, 0, 0, 100}, {60, 80, 0.5, 200}}},
        {straight, -1, 10, 0, {{0, 0, 0, 100}, {60, 80, 0, 200}, {65.7, 87.6, 0, 210}}},
        {straight, 0, std::nan(""), 0, straight},
        {falling, 10, 0, -1, falling},
        {{{0, 0, 0, 0}, {0.3, 0, 0.5, 0.3}}, 5, 5, -1, {{0, 0, 0, 0}, {0.3, 0, 0.5, 0.3}}},
        {{{0, 0, 0, 0}, {0.3, 0, 0.5, 0.3}}, 0, 5, -1, {{0, 0, 0, 0}, {0.3, 0, 0, 0.3}}},
        {{{1, 2, 0, 0}, {1, 2, 0, 9}}, 5, 0, -1, {{1, 2, 0, 0}, {1, 2, 0, 9}}}, // no direction
        {{}, 0, 0, 0, {}},
        {{}, 1, 0, -1, {}},
    };
    for (auto const& [vertices, before, after, result, extended] : cases) {
        Line line(vertices);
        EXPECT_EQ(line.Extend(before, after), result);
        Vertices now = VerticesOf(line);
        for (kovltype& vertex : now) { // to the nanometre
            vertex.x = std::round(vertex.x * 1e9) / 1e9;
            vertex.y = std::round(vertex.y * 1e9) / 1e9;
        }
        EXPECT_EQ(now, extended) << testing::PrintToString(vertices) << before;
    }
    EXPECT_EQ(Line(straight, 10).Extend(0, 0), -1);
}

// Where a walk ends is where list work goes on.
TEST(Vaglinje, WalksLeaveTheCurrentVertexAndTheMarkWhereTheyEnd) {
    Line line(corner);
    double x = 0;
    double y = 0;
    // Position, and the stations of the current vertex and the mark.
    auto const ends = [&] {
        double const current = line.Get_aktel()->sektion;
        int const position = line.Where(nullptr);
        EXPECT_EQ(line.Goto_mark(), 0);
        return Text(position, current, line.Get_aktel()->sektion);
    };
    line.Vag2xy(150, 0, &x, &y);
    EXPECT_EQ(ends(), "2 200 100");
    line.Vag2xy(250, 0, &x, &y);
    EXPECT_EQ(ends(), "3 300 200");
    line.Vag2xy(350, 0, &x, &y);
    EXPECT_EQ(ends(), "3 300 300");
    line.Vagstv(50, 5, &x, &y, 1);
    EXPECT_EQ(ends(), "3 300 200"); // one segment after the foot
    line.SektBerak(100);
    EXPECT_EQ(ends(), "3 300 300");
    line.typ = 10;
    EXPECT_EQ(line.Vagprofz(1000, &x), -1);
    EXPECT_EQ(ends(), "3 300 300");
}

} // namespace
