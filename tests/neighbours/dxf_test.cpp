#include <neighbours/dxf/dxf.h>

#include <cmath>
#include <map>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "refused.h"
#include "roads.h"

namespace {

using kvarnio::Alignment;
using kvarnio::DxfChoice;
using kvarnio::ListDxf;
using kvarnio::PlanElement;
using kvarnio::ReadDxf;
using kvarnio::Road;
using kvarnio::ToDxf;

std::string Drawing(std::string const& entities, std::string const& header = "") {
    return header + "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

std::string InUnit(int unit) {
    return "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n" + std::to_string(unit) + "\n0\nENDSEC\n";
}

std::string Groups(std::initializer_list<std::pair<int, double>> groups) {
    std::string text;
    for (auto const& [code, value] : groups) {
        text += std::to_string(code) + '\n' + kvarnio::Metres(value) + '\n';
    }
    return text;
}

std::string Line(double fromX, double fromY, double toX, double toY,
                 std::string const& layer = "A") {
    return "0\nLINE\n8\n" + layer + '\n' + Groups({{10, fromX}, {20, fromY}, {11, toX}, {21, toY}});
}

std::string Arc(double x, double y, double radius, double from, double to,
                std::string const& rest = "") {
    return "0\nARC\n8\nA\n" + Groups({{10, x}, {20, y}, {40, radius}, {50, from}, {51, to}}) + rest;
}

// Of two straights along X and an arc to the left between them, on the layer A.
std::string const polyline = "0\nLWPOLYLINE\n8\nA\n90\n4\n70\n0\n10\n0\n20\n0\n10\n10\n20\n0\n"
                             "42\n0.41421356237\n10\n20\n20\n10\n10\n20\n20\n30\n";

std::string Refusal(std::string const& text, DxfChoice const& choice = {}) {
    return RefusalOf([&] { ReadDxf(text, choice); });
}

std::string Notes(Alignment const& alignment) {
    std::string notes;
    for (std::string const& note : alignment.notes) {
        notes += note + '\n';
    }
    return notes;
}

::testing::AssertionResult Holds(std::string const& text, std::string const& part) {
    return text.find(part) != std::string::npos
               ? ::testing::AssertionSuccess()
               : ::testing::AssertionFailure() << '"' << part << "\" is not in: " << text;
}

void ExpectElement(PlanElement const& element, std::array<double, 5> const& expected) {
    EXPECT_NEAR(element.from.x, expected[0], 1e-9) << element.where;
    EXPECT_NEAR(element.from.y, expected[1], 1e-9) << element.where;
    EXPECT_NEAR(element.to.x, expected[2], 1e-9) << element.where;
    EXPECT_NEAR(element.to.y, expected[3], 1e-9) << element.where;
    EXPECT_NEAR(element.bulge, expected[4], 1e-9) << element.where;
}

void ExpectSame(Road const& road, Alignment const& alignment) {
    ASSERT_EQ(alignment.plan.size() + 1, road.plan.size()) << Notes(alignment);
    EXPECT_EQ(alignment.name, road.name);
    EXPECT_EQ(Notes(alignment), "");
    for (std::size_t i = 0; i + 1 < road.plan.size(); ++i) {
        kovltype const& from = road.plan[i];
        kovltype const& to = road.plan[i + 1];
        ExpectElement(alignment.plan[i], {from.x, from.y, to.x, to.y, from.bulge});
        EXPECT_NEAR(alignment.plan[i].station.value_or(NAN), from.sektion, 1e-9);
    }
    EXPECT_NEAR(alignment.firstStation, road.plan.front().sektion, 1e-9);
    EXPECT_NEAR(alignment.lastStation.value_or(NAN), road.plan.back().sektion, 1e-9);
    EXPECT_EQ(alignment.stationsDecrease, road.plan.back().sektion < road.plan.front().sektion);
}

// The first entity of a type on a layer: the values of its groups by their codes, the first of
// each.
std::map<int, std::string> Entity(std::string const& text, std::string const& type,
                                  std::string const& layer, int which = 0) {
    std::map<int, std::string> groups;
    std::istringstream lines(text);
    std::string code;
    std::string value;
    while (std::getline(lines, code) && std::getline(lines, value)) {
        if (code == "0") {
            if (groups[0] == type && groups[8] == layer && which-- == 0) {
                return groups;
            }
            groups.clear();
        }
        groups.try_emplace(std::stoi(code), value);
    }
    return {};
}

TEST(DxfTest, EastIsXAndTurnsToTheLeftArePositive) {
    // From (0, 0) east, round (X 10, Y 10) to the left, and north.
    Alignment const alignment = ReadDxf(Drawing(polyline));
    ASSERT_EQ(alignment.plan.size(), 3U);
    double const quarter = 0.41421356237;
    ExpectElement(alignment.plan[0], {0, 0, 0, 10, 0});
    ExpectElement(alignment.plan[1], {0, 10, 10, 20, quarter});
    ExpectElement(alignment.plan[2], {10, 20, 30, 20, 0});
    EXPECT_EQ(alignment.plan[1].where, "line 18, LWPOLYLINE vertex 2");
    EXPECT_EQ(Notes(alignment), "");
    // The library's point in the middle of the arc is where the drawing has it.
    kvarnio::Segment const arc({0, 10}, {10, 20}, quarter);
    EXPECT_NEAR(arc.At(0.5).x, 10 - 10 * std::sqrt(0.5), 1e-6);
    EXPECT_NEAR(arc.At(0.5).y, 10 + 10 * std::sqrt(0.5), 1e-6);
}

TEST(DxfTest, RoadIsWrittenWithEastAsX) {
    std::string const text = ToDxf(Arcs(), {20, kvarnio::Area{0, 60, -10, 5}});
    auto const line = Entity(text, "LWPOLYLINE", "VAGLINJE");
    EXPECT_EQ(line.at(90), "5");
    EXPECT_EQ(line.at(10), "240.0000");
    EXPECT_EQ(line.at(20), "10.0000");
    EXPECT_EQ(line.at(42), "0.333333333333"); // the first bulge, round a centre to the west

    // Station 20 is at (30, 240): a tick from west to east, and the text to the right.
    auto const tick = Entity(text, "LINE", "VAGLINJE_STRECK", 1);
    EXPECT_EQ(tick.at(10), "239.2500");
    EXPECT_EQ(tick.at(11), "240.7500");
    EXPECT_EQ(tick.at(20), "30.0000");
    auto const station = Entity(text, "TEXT", "VAGLINJE_STATION", 1);
    EXPECT_EQ(station.at(1), "0/020");
    EXPECT_EQ(station.at(11), "241.3500");
    EXPECT_EQ(station.at(50), "0.0000");
    // The end, behind 12 multiples.
    EXPECT_EQ(Entity(text, "TEXT", "VAGLINJE_STATION", 13).at(1), "0/248.700");

    // 10 m to the left and 5 m to the right of the first straight.
    auto const area = Entity(text, "LWPOLYLINE", "VAGLINJE_OMRADE");
    EXPECT_EQ(area.at(90), "4");
    EXPECT_EQ(area.at(70), "1");
    EXPECT_EQ(area.at(10), "230.0000");
    EXPECT_EQ(area.at(20), "10.0000");
}

TEST(DxfTest, TextsAreReadFromBelowOrFromTheRight) {
    // Where the road goes south its right side is in the west: the texts end at the line.
    Road const south = {"", {{100, 0, 0, 0}, {0, 0, 0, 100}}, {}};
    auto const text = Entity(ToDxf(south, {50.0, {}}), "TEXT", "VAGLINJE_STATION", 1);
    EXPECT_EQ(text.at(50), "0.0000");
    EXPECT_EQ(text.at(72), "2");
    EXPECT_LT(std::stod(text.at(11)), 0);
    EXPECT_EQ(text.at(20), "49.8000"); // the letters' foot
    // Going east it is in the south: the text reads upwards.
    Road const east = {"", {{0, 0, 0, 0}, {0, 100, 0, 100}}, {}};
    EXPECT_EQ(Entity(ToDxf(east), "TEXT", "VAGLINJE_STATION").at(50), "90.0000");
}

TEST(DxfTest, RoadComesBackFromItsDrawing) {
    ExpectSame(Arcs(), ReadDxf(ToDxf(Arcs())));
    ExpectSame(Arcs(), ReadDxf(ToDxf(Arcs(), {7, kvarnio::Area{0, 200, -30, 30}})));

    std::mt19937 numbers(27);
    auto const decimal = [&](double from, double to) {
        double const value = std::uniform_real_distribution<double>(from, to)(numbers);
        return std::round(value * 1e4) / 1e4;
    };
    for (int i = 0; i < 200; ++i) {
        Road road{"\xF0\x9F\x9B\xA3 " + std::string(static_cast<std::size_t>(i), 'n'), {}, {}};
        double station = decimal(-1000, 90000);
        double const direction = i % 5 == 0 ? -1 : 1;
        for (int vertex = 0; vertex < 2 + i % 9; ++vertex) {
            kovltype const v = {decimal(6e6, 6.002e6), decimal(1e5, 1.02e5),
                                i % 2 == 0 ? decimal(-1.5, 1.5) : 0, station};
            road.plan.push_back(v);
            station += direction * decimal(0.0001, 500); // of any length: measured on the ground
        }
        SCOPED_TRACE(i);
        ExpectSame(road, ReadDxf(ToDxf(road)));
    }
}

TEST(DxfTest, StationsOfAnEditedLineAreLeft) {
    std::string const text = ToDxf(Arcs());
    auto const edited = [&](std::string const& from, std::string const& to) {
        std::string copy = text;
        copy.replace(copy.find(from, copy.find("AcDbPolyline")), from.size(), to);
        return ReadDxf(copy);
    };
    // A vertex moved by 0.02 m, and by no more than what is rounding.
    Alignment const moved = edited("70.0000", "70.0200");
    EXPECT_FALSE(moved.plan[0].station);
    EXPECT_FALSE(moved.lastStation);
    EXPECT_TRUE(Holds(Notes(moved), "edited"));
    EXPECT_EQ(moved.name, Arcs().name);
    EXPECT_TRUE(edited("70.0000", "70.0050").plan[0].station);
    // One vertex fewer.
    EXPECT_TRUE(Holds(Notes(edited("90\n5\n70\n0\n10\n240.0000\n20\n10.0000\n", "90\n4\n70\n0\n")),
                      "edited"));
}

TEST(DxfTest, ChainIsPutInOrder) {
    // East, a left turn round (X 10, Y 10), north: the arc is in the middle, whatever the file
    // says.
    std::string const first = Line(0, 0, 10, 0);
    std::string const arc = Arc(10, 10, 10, 270, 360);
    std::string const last = Line(20, 10, 20, 30);
    std::string const lastBackwards = Line(20, 30, 20, 10);
    std::string const orders[] = {first + arc + last, arc + last + first, last + arc + first,
                                  first + lastBackwards + arc};
    for (std::string const& entities : orders) {
        Alignment const alignment = ReadDxf(Drawing(entities));
        ASSERT_EQ(alignment.plan.size(), 3U);
        ExpectElement(alignment.plan[0], {0, 0, 0, 10, 0});
        ExpectElement(alignment.plan[1], {0, 10, 10, 20, std::sqrt(2) - 1});
        ExpectElement(alignment.plan[2], {10, 20, 30, 20, 0});
    }
    // The other way round where the file's first LINE goes that way.
    Alignment const back = ReadDxf(Drawing(arc + lastBackwards + first));
    ASSERT_EQ(back.plan.size(), 3U);
    ExpectElement(back.plan[0], {30, 20, 10, 20, 0});
    ExpectElement(back.plan[1], {10, 20, 0, 10, 1 - std::sqrt(2)});
    EXPECT_EQ(back.plan[1].where, "line 6, ARC");
    // Arcs alone go as the first one turns: counter-clockwise.
    Alignment const arcs = ReadDxf(Drawing(Arc(30, 10, 10, 90, 180) + arc));
    ASSERT_EQ(arcs.plan.size(), 2U);
    ExpectElement(arcs.plan[0], {20, 30, 10, 20, std::sqrt(2) - 1});
    ExpectElement(arcs.plan[1], {10, 20, 0, 10, 1 - std::sqrt(2)});
}

TEST(DxfTest, ALineThatIsDrawnTwiceIsTakenOnce) {
    Alignment const alignment =
        ReadDxf(Drawing(Line(0, 0, 10, 0) + Line(10, 0, 20, 0) + Line(20, 0, 10, 0)));
    EXPECT_EQ(alignment.plan.size(), 2U);
    EXPECT_TRUE(Holds(Notes(alignment), "drawn twice: 1 LINE or ARC"));
}

TEST(DxfTest, ChainHoldsTogetherWithinTheTolerance) {
    std::string const text = Drawing(Line(0, 0, 10, 0) + Line(10.0008, 0, 20, 0));
    Alignment const alignment = ReadDxf(text);
    EXPECT_EQ(alignment.plan.size(), 2U);
    EXPECT_EQ(alignment.plan[1].from.y, 10.0008);
    std::string const refusal = Refusal(text, {"", 0.0005, ""});
    EXPECT_TRUE(Holds(refusal, "more than one line"));
    EXPECT_TRUE(Holds(refusal, "0.0008 m to the nearest other"));
    EXPECT_TRUE(Holds(refusal, "line 18, from N 0.0000 E 10.0008 to N 0.0000 E 20.0000"));
}

TEST(DxfTest, LongChainsTakeNoLongTime) {
    // Shuffled, and in one place as near as can be: neither order nor crowds make it quadratic.
    constexpr int count = 30'000;
    std::string entities;
    for (int i = 0; i < count; ++i) {
        int const k = static_cast<int>(i * 7919LL % count);
        entities += Line(k, 0, k + 1, 0);
    }
    EXPECT_EQ(ReadDxf(Drawing(entities)).plan.size(), static_cast<std::size_t>(count));
    std::string star;
    for (int i = 0; i < count; ++i) {
        star += Line(0, 0, i + 1, 7);
    }
    EXPECT_TRUE(Holds(Refusal(Drawing(star)), "branch"));
    EXPECT_TRUE(Holds(Refusal(Drawing(star), {"", 1e6, ""}), "could be an alignment"));
}

TEST(DxfTest, ClosedLinesGoBackToTheirBeginning) {
    std::string closed = polyline;
    closed.replace(closed.find("70\n0"), 4, "70\n1");
    Alignment const alignment = ReadDxf(Drawing(closed));
    ASSERT_EQ(alignment.plan.size(), 4U);
    ExpectElement(alignment.plan[3], {30, 20, 0, 0, 0});
    EXPECT_TRUE(Holds(Notes(alignment), "closed"));

    Alignment const triangle =
        ReadDxf(Drawing(Line(0, 0, 10, 0) + Line(0, 0, 5, 5) + Line(10, 0, 5, 5)));
    ASSERT_EQ(triangle.plan.size(), 3U);
    ExpectElement(triangle.plan[0], {0, 0, 0, 10, 0});
    ExpectElement(triangle.plan[2], {5, 5, 0, 0, 0});
    EXPECT_TRUE(Holds(Notes(triangle), "closed"));
}

TEST(DxfTest, OldPolylinesAreRead) {
    std::string const old =
        "0\nPOLYLINE\n8\nA\n66\n1\n10\n0\n20\n0\n30\n12.5\n70\n4\n"
        "0\nVERTEX\n8\nA\n10\n0\n20\n0\n"
        "0\nVERTEX\n8\nA\n10\n5\n20\n5\n70\n16\n" // of the frame beside the line
        "0\nVERTEX\n8\nA\n10\n10\n20\n0\n42\n1\n"
        "0\nVERTEX\n8\nA\n10\n20\n20\n0\n0\nSEQEND\n8\nA\n";
    Alignment const alignment = ReadDxf(Drawing(old));
    ASSERT_EQ(alignment.plan.size(), 2U);
    ExpectElement(alignment.plan[1], {0, 10, 0, 20, 1});
    EXPECT_TRUE(Holds(Notes(alignment), "height"));
    EXPECT_TRUE(Holds(Refusal(Drawing(old + Line(0, 0, 1, 1, "B"))), "POLYLINE of 3 vertices"));
    std::string const inSpace = "0\nPOLYLINE\n8\nA\n70\n8\n0\nVERTEX\n8\nA\n0\nSEQEND\n";
    EXPECT_TRUE(Holds(Refusal(Drawing(inSpace)), "1 POLYLINE in space"));
    EXPECT_TRUE(Holds(Refusal(Drawing(old.substr(0, old.find("0\nSEQEND")))), "no SEQEND"));
}

TEST(DxfTest, WhatIsSeenFromBelowIsTurned) {
    std::string const below = "210\n0\n220\n0\n230\n-1\n";
    Alignment const alignment = ReadDxf(Drawing(polyline + below));
    ASSERT_EQ(alignment.plan.size(), 3U);
    ExpectElement(alignment.plan[1], {0, -10, 10, -20, -0.41421356237});
    // An ARC is, too; the points of a LINE are never.
    Alignment const arc = ReadDxf(Drawing(Line(0, 0, -10, 0) + Arc(10, 10, 10, 270, 360, below)));
    ASSERT_EQ(arc.plan.size(), 2U);
    ExpectElement(arc.plan[1], {0, -10, 10, -20, 1 - std::sqrt(2)});
    EXPECT_TRUE(Holds(Refusal(Drawing(polyline + "210\n0.6\n230\n0.8\n")), "does not lie flat"));
}

TEST(DxfTest, UnitsAreConvertedWhenTheUserSaysSo) {
    for (int const metres : {0, 6}) {
        EXPECT_EQ(ReadDxf(Drawing(polyline, InUnit(metres))).plan[2].to.x, 30);
    }
    std::string const inches = Drawing(polyline, InUnit(1));
    EXPECT_EQ(Refusal(inches), "the drawing is in inches: --unit m takes its numbers as metres, "
                               "--unit in converts them");
    Alignment const converted = ReadDxf(inches, {"", 0.001, "in"});
    EXPECT_NEAR(converted.plan[2].to.x, 0.762, 1e-12);
    EXPECT_NEAR(converted.plan[1].bulge, 0.41421356237, 1e-12);
    EXPECT_TRUE(Holds(Notes(converted), "by the factor 0.0254"));
    Alignment const taken = ReadDxf(inches, {"", 0.001, "m"});
    EXPECT_EQ(taken.plan[2].to.x, 30);
    EXPECT_TRUE(Holds(Notes(taken), "states inches"));
    EXPECT_NEAR(ReadDxf(Drawing(polyline, InUnit(21)), {"", 0.001, "us-ft"}).plan[2].to.x,
                30 * 1200.0 / 3937, 1e-12);
    EXPECT_TRUE(Holds(Refusal(Drawing(polyline, InUnit(9))), "$INSUNITS 9"));
    EXPECT_TRUE(Holds(Refusal(inches, {"", 0.001, "ell"}), "\"ell\" is none of in, ft"));
    // The tolerance is in metres: ends that are 2 mm apart.
    std::string const millimetres = Drawing(Line(0, 0, 10, 0) + Line(12, 0, 20, 0), InUnit(4));
    EXPECT_EQ(ReadDxf(millimetres, {"", 0.003, "mm"}).plan.size(), 2U);
    EXPECT_EQ(ListDxf(millimetres, {"", 0.003, ""}).size(), 1U);
}

TEST(DxfTest, LayerChoosesTheLine) {
    // In capitals or not; in code page 1252, in UTF-8, and with its letters written out.
    for (char const* const name : {"V\xC4G", "V\xC3\xA4g", "v\\U+00C4g"}) {
        std::string const text = Drawing(polyline + Line(0, 0, 7, 7, name));
        EXPECT_TRUE(Holds(Refusal(text), "layer A: LWPOLYLINE of 4 vertices, line 6"));
        EXPECT_EQ(ReadDxf(text, {"v\xC3\xA4g", 0.001, ""}).plan.size(), 1U) << name;
        EXPECT_EQ(ReadDxf(text, {"a", 0.001, ""}).plan.size(), 3U);
        EXPECT_TRUE(Holds(Refusal(text, {"B", 0.001, ""}), "layers with lines: A, "));
    }
    // That of a road's own drawing is taken unless another is asked for.
    EXPECT_EQ(ReadDxf(Drawing(polyline + Line(0, 0, 7, 7, "VAGLINJE"))).plan.size(), 1U);

    auto const list = ListDxf(Drawing(polyline + Line(0, 0, 7, 7, "B") + Line(9, 9, 7, 7, "B")));
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1].layer, "B");
    EXPECT_EQ(list[1].what, "chain of 2 LINE");
    EXPECT_EQ(list[1].where, "line 32, from N 0.0000 E 0.0000 to N 9.0000 E 9.0000");
}

TEST(DxfTest, BranchIsToldWithItsPlace) {
    std::string const text = Drawing(Line(0, 0, 10, 0) + Line(10, 0, 20, 0) + Line(10, 0, 10, 5));
    EXPECT_TRUE(Holds(Refusal(text), "3 LINE and ARC that branch"));
    EXPECT_TRUE(Holds(Refusal(text), "N 0.0000 E 10.0000"));
}

TEST(DxfTest, BadDrawingsAreRefusedWithTheLine) {
    using namespace std::string_literals;
    std::string const good = Drawing(polyline);
    auto const without = [&](std::string const& part) {
        std::string text = good;
        return text.erase(text.find(part), part.size());
    };
    auto const with = [&](std::string const& part, std::string const& other) {
        std::string text = good;
        return text.replace(text.find(part), part.size(), other);
    };
    std::pair<std::string, char const*> const cases[] = {
        {"", "the drawing is empty"},
        {good.substr(0, good.find("0.41421") + 4), "line 22: the drawing ends in the middle"},
        {good.substr(0, 40), "line 9: the drawing ends in the middle"},
        {without("0\nENDSEC\n"), "line 32: the section before it has no ENDSEC"},
        {without("0\nEOF\n"), "line 32: the drawing ends in the middle"},
        {"Some Binary DXF\r\n\x1a\0\x01"s, "binary DXF"},
        {"\xff\xfe" + good, "UTF-16"},
        {good + "\0"s, "zero"},
        {"6580412.36 153207.85 0 0\n1 2 3 4\n", "line 1: wanted a DXF drawing"},
        {with("10\n10\n", "10\nten\n"), "line 18: wanted a number, got \"ten\""},
        {with("10\n10\n", "10\n1e999\n"), "line 18: wanted a number, got \"1e999\""},
        {with("10\n10\n", "10\nnan\n"), "line 18: wanted a number, got \"nan\""},
        {with("10\n10\n", "10\n1e30\n"), "line 18: wanted a coordinate"},
        {with("10\n10\n20\n0\n", "10\n10\n"), "has no Y"},
        {with("0.41421356237", "1e7"), "full circle"},
        {with("90\n4", "90\n4000000000"), "states 4000000000 vertices and has 4"},
        {with("70\n0", "70\n\xC3\xA5"), "wanted a whole number, got \"\xC3\xA5\""},
        {Drawing("0\nLINE\n8\nA\n10\n0\n20\n0\n11\n1\n"), "line 6, LINE: group 21 is missing"},
        {Drawing(Arc(0, 0, 0, 0, 90)), "line 6, ARC: its radius is not above 0"},
        {Drawing(Arc(0, 0, -1, 0, 90)), "line 6, ARC: its radius is not above 0"},
        {Drawing(Arc(0, 0, 1, 90, 90)), "full circle"},
        {Drawing("0\nTEXT\n8\nA\n0\nTEXT\n8\nA\n0\nINSERT\n8\nA\n"), "there is 1 INSERT, 2 TEXT"},
        {Drawing("67\n1\n"), "wanted"},
        {Drawing(polyline + "67\n1\n"), "1 in paper space"},
        {Drawing("0\nLWPOLYLINE\n10\n0\n20\n0\n"), "could be an alignment"},
        {Drawing("0\nLWPOLYLINE\n10\n0\n20\n0\n10\n0\n20\n0\n"), "in one point"},
    };
    for (auto const& [text, expected] : cases) {
        EXPECT_TRUE(Holds(Refusal(text), expected)) << text;
    }
    EXPECT_TRUE(Holds(Refusal(good, {"", -1, ""}), "tolerance"));
    // Ends of lines as Windows has them, comments and blanks change nothing.
    std::string windows;
    for (char const c : "999\nmade by hand\n" + good) {
        windows += c == '\n' ? " \r\n" : std::string(1, c);
    }
    EXPECT_EQ(ReadDxf(windows).plan.size(), 3U);
}

TEST(DxfTest, RoadsThatAreNoLineAreNotWritten) {
    auto const refusal = [](Road const& road, double interval = 20) -> std::string {
        return RefusalOf([&] { ToDxf(road, {interval, {}}); });
    };
    auto const with = [](std::size_t vertex, double kovltype::*member, double value) {
        Road road = Arcs();
        road.plan[vertex].*member = value;
        return road;
    };
    EXPECT_TRUE(Holds(refusal({}), "no plan"));
    EXPECT_TRUE(Holds(refusal({"", {{0, 0, 0, 0}}, {}}), "one vertex alone"));
    EXPECT_TRUE(Holds(refusal(with(1, &kovltype::y, NAN)), "vertex 2"));
    EXPECT_TRUE(Holds(refusal(with(2, &kovltype::bulge, INFINITY)), "vertex 3"));
    EXPECT_TRUE(Holds(refusal(with(2, &kovltype::sektion, 50)), "vertex 3 has 50.0000"));
    EXPECT_TRUE(Holds(refusal(Arcs(), 0), "interval"));
    EXPECT_TRUE(Holds(refusal(Arcs(), NAN), "interval"));
    EXPECT_TRUE(Holds(refusal(Arcs(), 1e-9), "more than 100000 stations"));
}

} // namespace
