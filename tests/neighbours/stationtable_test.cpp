#include <neighbours/lists/stationtable.h>

#include <cmath>
#include <sstream>

#include <geodata/vaglinje.h>

#include <gtest/gtest.h>

#include "refused.h"
#include "roads.h"

namespace {

using kvarnio::Road;
using kvarnio::StationTable;
using kvarnio::ToCsv;

std::vector<std::string> Lines(std::string const& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string Refusal(Road const& road, StationTable const& table) {
    return RefusalOf([&] { ToCsv(road, table); });
}

TEST(StationTableTest, RowsAreOfKnownPoints) {
    Road road = ArcsWithProfile();
    road.plan[2].sektion = 124.35011088;
    auto const lines = Lines(ToCsv(road, {.interval = 30}));
    ASSERT_EQ(lines.size(), 1U + 10);
    EXPECT_EQ(lines[0], "station;x;y;bearing;radius;height;gradient");
    EXPECT_EQ(lines[1], "0.0000;10.0000;240.0000;0.0000;;100.0000;2.0000");
    EXPECT_EQ(lines[2], "30.0000;40.0000;240.0000;0.0000;;100.6000;2.0000");
    // At 60 the arc begins: to the left, from north-east by asin(0.6).
    EXPECT_EQ(lines[3], "60.0000;70.0000;240.0000;40.9666;50.0000;101.2000;2.0000");
    // At 240 a turn to the right; the profile has ended.
    EXPECT_EQ(lines[9].substr(0, 9), "240.0000;");
    EXPECT_NE(lines[9].find(";-50.0000;;"), std::string::npos) << lines[9];
    EXPECT_EQ(lines[10].substr(0, 27), "248.7002;250.0000;240.0000;");
}

TEST(StationTableTest, GradientsAreThoseOfTheCurve) {
    auto const lines = Lines(ToCsv(ArcsWithProfile(), {.interval = 10}));
    // At 100 the curve begins: the tangent of 2 * atan(0.01) downwards. It is lowest at 160.
    EXPECT_NE(lines[11].find(";102.0000;-2.0002"), std::string::npos) << lines[11];
    EXPECT_NE(lines[17].find(";101.4000;0.0000"), std::string::npos) << lines[17];
    // The last station of the profile has a height, and is the curve's end.
    EXPECT_NE(lines[23].find(";102.0000;2.0002"), std::string::npos) << lines[23];
    EXPECT_EQ(lines[24].substr(lines[24].size() - 2), ";;");
}

TEST(StationTableTest, CoordinatesAreTheLibrarys) {
    Road const road = ArcsWithProfile();
    CVaglinje line;
    for (kovltype v : road.plan) {
        line.Ny(1, &v);
    }
    auto const lines = Lines(ToCsv(road, {.interval = 7}));
    for (std::size_t i = 1; i < lines.size(); ++i) {
        std::istringstream row(lines[i]);
        std::array<double, 4> values{};
        for (double& value : values) {
            std::string field;
            std::getline(row, field, ';');
            value = std::stod(field);
        }
        double x = 0;
        double y = 0;
        ASSERT_EQ(line.Vag2xy(values[0], 0, &x, &y), 0) << lines[i];
        EXPECT_NEAR(values[1], x, 0.00005001);
        EXPECT_NEAR(values[2], y, 0.00005001);
        // The bearing is that of the line: a step along it.
        if (i + 1 < lines.size()) {
            double xNext = 0;
            double yNext = 0;
            line.Vag2xy(values[0] + 0.001, 0, &xNext, &yNext);
            double const bearing = std::atan2(yNext - y, xNext - x) * 200 / std::acos(-1);
            EXPECT_NEAR(std::remainder(values[3] - bearing, 400), 0, 0.01) << lines[i];
        }
    }
}

TEST(StationTableTest, StationsBeginAndEndTheTable) {
    // Multiples, not steps from the first station; an end that is a multiple comes once.
    Road road{"", {{0, 0, 0, 990}, {50, 0, 0, 1040}}, {}};
    auto const stations = [&](double interval) {
        std::string text;
        for (std::string const& line : Lines(ToCsv(road, {.interval = interval}))) {
            text += line.substr(0, line.find(';')) + ' ';
        }
        return text;
    };
    EXPECT_EQ(stations(20), "station 990.0000 1000.0000 1020.0000 1040.0000 ");
    EXPECT_EQ(stations(1000), "station 990.0000 1000.0000 1040.0000 ");
    EXPECT_EQ(stations(1e6), "station 990.0000 1040.0000 ");
    std::swap(road.plan[0].sektion, road.plan[1].sektion);
    EXPECT_EQ(stations(20), "station 1040.0000 1020.0000 1000.0000 990.0000 ");
    road.plan[0].sektion = -15;
    road.plan[1].sektion = 35;
    EXPECT_EQ(stations(20), "station -15.0000 0.0000 20.0000 35.0000 ");
    // Where two vertices share a station the segment behind them counts.
    road.plan = {{0, 0, 0, 0}, {20, 0, 0, 20}, {20, 5, 0, 20}, {20, 25, 0, 40}};
    EXPECT_EQ(Lines(ToCsv(road, {.interval = 20}))[2], "20.0000;20.0000;5.0000;100.0000;;;");
}

TEST(StationTableTest, SeparatorAndDecimalCommaAreChosen) {
    auto const lines =
        Lines(ToCsv(Arcs(), {.interval = 30, .separator = '\t', .decimalComma = true}));
    EXPECT_EQ(lines[0], "station\tx\ty\tbearing\tradius\theight\tgradient");
    EXPECT_EQ(lines[2], "30,0000\t40,0000\t240,0000\t0,0000\t\t\t");
    EXPECT_NE(Refusal(Arcs(), {.separator = ',', .decimalComma = true}).find("comma"),
              std::string::npos);
}

TEST(StationTableTest, AbsurdIntervalsAreRefused) {
    for (double const bad : {0.0, -20.0, static_cast<double>(NAN), static_cast<double>(INFINITY)}) {
        EXPECT_NE(Refusal(Arcs(), {.interval = bad}).find("interval"), std::string::npos);
    }
    EXPECT_NE(Refusal(Arcs(), {.interval = 1e-300}).find("more than 10000000 stations"),
              std::string::npos);
    EXPECT_NE(Refusal({}, {}).find("no plan"), std::string::npos);
    Road road = Arcs();
    for (kovltype& v : road.plan) {
        v.sektion = 5;
    }
    EXPECT_NE(Refusal(road, {}).find("all vertices have the station 5.0000"), std::string::npos);
}

} // namespace
