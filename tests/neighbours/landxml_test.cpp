// LandXML in and out. What a spiral is, is integrated here in small steps.
#include <cmath>
#include <random>

#include <gtest/gtest.h>
#include <neighbours/landxml/landxml.h>
#include <neighbours/road/makeroad.h>

#include "refused.h"

namespace {

using namespace kvarnio;

constexpr char const* head = "<?xml version=\"1.0\"?>\n"
                             "<LandXML xmlns=\"http://www.landxml.org/schema/LandXML-1.2\">\n"
                             "<Units><Metric linearUnit=\"meter\"/></Units>\n"
                             "<Alignments>\n";
constexpr char const* tail = "</Alignments></LandXML>\n";

std::string File(std::string const& alignments) {
    return head + alignments + tail;
}

std::string WithPlan(std::string const& elements) {
    return File("<Alignment name=\"A\" staStart=\"100\"><CoordGeom>" + elements +
                "</CoordGeom></Alignment>");
}

MadeRoad Made(std::string const& text, LandXmlChoice const& choice = {},
              MakingRoad const& how = {}) {
    return MakeRoad(ReadLandXml(text, choice), how);
}

void ExpectVertices(std::vector<kovltype> const& vertices,
                    std::vector<std::array<double, 4>> const& expected) {
    ASSERT_EQ(vertices.size(), expected.size());
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        EXPECT_NEAR(vertices[i].x, expected[i][0], 5e-5) << i;
        EXPECT_NEAR(vertices[i].y, expected[i][1], 5e-5) << i;
        EXPECT_NEAR(vertices[i].bulge, expected[i][2], 5e-5) << i;
        EXPECT_NEAR(vertices[i].sektion, expected[i][3], 5e-5) << i;
    }
}

// North from (1000, 2000), then round a centre to the west, by a quarter circle of radius 100.
constexpr char const* lineAndCurve =
    "<Line><Start>1000 2000</Start><End>1100 2000</End></Line>\n"
    "<Curve rot=\"ccw\" radius=\"100\"><Start>1100 2000</Start><Center>1100 1900</Center>"
    "<End>1200 1900</End></Curve>";

TEST(LandXmlTest, NorthingComesFirstAndCounterClockwiseIsToTheLeft) {
    double const bulge = std::tan(std::acos(-1.0) / 8);
    MadeRoad const made = Made(WithPlan(lineAndCurve), {}, {.tolerance = 0.01});
    ExpectVertices(
        made.road.plan,
        {{1000, 2000, 0, 100}, {1100, 2000, bulge, 200}, {1200, 1900, 0, 200 + 157.0796}});
    EXPECT_EQ(made.road.name, "A");
    std::string const out = ToLandXml(made.road, {"2026-11-23", "08:00:00"});
    EXPECT_NE(out.find("<Start>1000.0000 2000.0000</Start>"), std::string::npos);
    EXPECT_NE(out.find("<Curve rot=\"ccw\""), std::string::npos);
}

TEST(LandXmlTest, AnArcThatFourDecimalsWouldMoveIsDividedAndSaid) {
    MadeRoad const made =
        Made(WithPlan("<Curve rot=\"cw\" name=\"K1\"><Start>500 0</Start><Center>0 0</Center>"
                      "<End>0 500</End></Curve>"));
    ASSERT_EQ(made.road.plan.size(), 3U);
    EXPECT_LE(made.deviation, 0.001);
    EXPECT_NEAR(std::hypot(made.road.plan[1].x, made.road.plan[1].y), 500, 1e-4);
    ASSERT_EQ(made.notes.size(), 1U);
    EXPECT_NE(made.notes[0].find("line 5, Curve \"K1\": the arc was divided into 2"),
              std::string::npos)
        << made.notes[0];
}

// Numbers have four decimals, so that stations are off the lengths by what rounding does.
class Roads {
  public:
    Road Next() {
        Road road;
        road.name = "V\xc3\xa4g <27> & \"bro\"";
        kovltype vertex{6580000 + Number(1000), 150000 + Number(1000), 0, Number(5000)};
        for (int i = 0; i < 12; ++i) {
            bool const isArc = m_random() % 2 == 0;
            vertex.bulge = isArc ? Number(0.9) : 0;
            kovltype next = {vertex.x + Number(200) + 1, vertex.y + Number(200), 0, 0};
            next.sektion = Rounded(vertex.sektion + Segment(vertex, next).Length());
            road.plan.push_back(vertex);
            vertex = next;
        }
        road.plan.push_back(vertex);
        kovltype point{40 + Number(5), Number(100), 0, 0};
        for (int i = 0; i < 8; ++i) {
            point.sektion = point.y;
            point.bulge = i % 2 == 1 ? Number(0.02) : 0;
            road.profile.push_back(point);
            point.x = Rounded(point.x + Number(4));
            point.y = Rounded(point.y + 60 + Number(50));
        }
        road.profile.back().bulge = 0;
        return road;
    }

  private:
    static double Rounded(double value) { return std::round(value * 1e4) / 1e4 + 0.0; }
    double Number(double size) {
        return Rounded(std::uniform_real_distribution(-size, size)(m_random));
    }

    std::mt19937 m_random{27};
};

TEST(LandXmlTest, ThereAndBackGivesTheSameVertices) {
    Roads roads;
    for (int i = 0; i < 200; ++i) {
        Road road = roads.Next();
        if (i % 5 == 4) { // the stations decrease
            for (kovltype& vertex : road.plan) {
                vertex.sektion = -vertex.sektion;
            }
        }
        MadeRoad const back = Made(ToLandXml(road, {"2026-11-23", "08:00:00"}));
        EXPECT_EQ(RoadText(back.road), RoadText(road));
    }
}

// A point on a spiral from the origin, that begins northwards.
struct OnSpiral {
    RoadPoint at;
    double heading;
};
OnSpiral Integrated(double length, double curvature, double along, double (*shape)(double part)) {
    constexpr int steps = 4000;
    OnSpiral place{{0, 0}, 0};
    double const step = along / steps;
    for (int i = 0; i < steps; ++i) {
        double const middle = (i + 0.5) * step;
        double const before = place.heading;
        place.heading += step * curvature * shape(middle / length);
        double const heading = (before + place.heading) / 2;
        place.at.x += step * std::cos(heading);
        place.at.y -= step * std::sin(heading);
    }
    return place;
}

double EvenShape(double part) {
    return part;
}
double BlossShape(double part) {
    return part * part * (3 - 2 * part);
}
double CosineShape(double part) {
    return (1 - std::cos(std::acos(-1.0) * part)) / 2;
}

double DistanceTo(std::vector<kovltype> const& plan, RoadPoint p) {
    double nearest = 1e300;
    for (std::size_t i = 1; i < plan.size(); ++i) {
        Segment const segment(plan[i - 1], plan[i]);
        constexpr int parts = 400;
        for (int k = 0; k < parts; ++k) {
            Segment const piece = segment.Part(k / 400.0, (k + 1) / 400.0);
            RoadPoint const chord = piece.To() - piece.From();
            RoadPoint const off = p - piece.From();
            double const length = kvarn::Length(chord);
            double const along = (off.x * chord.x + off.y * chord.y) / length;
            if (along > -0.01 && along < length + 0.01) {
                nearest = std::min(nearest, std::fabs(chord.x * off.y - chord.y * off.x) / length);
            }
        }
    }
    return nearest;
}

TEST(LandXmlTest, SpiralsBecomeArcsWithCommonTangentsWithinTheTolerance) {
    struct Case {
        char const* type;
        double (*shape)(double part);
        double length;
        double radius; // positive to the left
    };
    for (Case const& c : {Case{"clothoid", EvenShape, 100, 300},
                          {"clothoid", EvenShape, 60, -3000},
                          {"clothoid", EvenShape, 150, -120},
                          {"bloss", BlossShape, 90, 400},
                          {"cosine", CosineShape, 90, -400}}) {
        auto const at = [&](double along) {
            OnSpiral place = Integrated(c.length, 1 / c.radius, along, c.shape);
            place.at.x += 6580000;
            place.at.y += 150000;
            return place;
        };
        RoadPoint const end = at(c.length).at;
        std::string const text = WithPlan(
            "<Spiral spiType=\"" + std::string(c.type) + "\" length=\"" + Metres(c.length) +
            "\" radiusStart=\"INF\" radiusEnd=\"" + Metres(std::fabs(c.radius)) + "\" rot=\"" +
            (c.radius > 0 ? "ccw" : "cw") + "\"><Start>6580000 150000</Start><End>" +
            Metres(end.x) + ' ' + Metres(end.y) + "</End></Spiral>");
        MadeRoad const made = Made(text);
        EXPECT_LE(made.deviation, 0.001);
        for (int i = 0; i <= 50; ++i) {
            EXPECT_LE(DistanceTo(made.road.plan, at(c.length * i / 50).at), 0.00105)
                << c.type << ' ' << c.radius << " at " << i;
        }
        std::vector<kovltype> const& plan = made.road.plan;
        for (std::size_t i = 2; i < plan.size(); ++i) {
            RoadPoint const before = Segment(plan[i - 2], plan[i - 1]).Across(1);
            RoadPoint const after = Segment(plan[i - 1], plan[i]).Across(0);
            EXPECT_LT(kvarn::Length(after - before), 5e-4) << c.type << ' ' << i;
        }
        EXPECT_NEAR(plan.back().sektion, 100 + c.length, 1e-4);
        EXPECT_LE(plan.size(), 25U) << c.type;
        ExpectRefused([&] { Made(text, {}, {.exact = true}); },
                      "line 5, Spiral: a road file has no spirals");
    }
}

constexpr char const* profile = "<Alignment name=\"P\"><Profile><ProfAlign name=\"p\">\n"
                                "<PVI>0 50</PVI>\n"
                                "%\n"
                                "<PVI>600 50</PVI></ProfAlign></Profile></Alignment>";

std::string WithProfile(std::string const& points) {
    std::string text = profile;
    return File(text.replace(text.find('%'), 1, points));
}

TEST(LandXmlTest, ParabolasBecomeCircularCurvesAndTheDifferenceIsSaid) {
    for (auto const& [points, before, after] :
         {std::tuple("<ParaCurve length=\"200\">300 41</ParaCurve>", 100.0, 100.0),
          std::tuple("<UnsymParaCurve lengthIn=\"150\" lengthOut=\"80\">300 41</UnsymParaCurve>",
                     150.0, 80.0)}) {
        std::string const text = WithProfile(points);
        MadeRoad const made = Made(text);
        CVaglinje line;
        line.typ = 10;
        for (kovltype vertex : made.road.profile) {
            line.Ny(1, &vertex);
        }
        // Of an unsymmetric curve: two parabolas that meet at the point's station.
        double const rise = before * after / (2 * (before + after)) * 0.06;
        for (int metre = 1; metre < 600; ++metre) {
            double const station = metre;
            double const side = station - 300;
            double expected = 41 + std::fabs(side) * 0.03;
            if (side < 0 && side > -before) {
                expected += rise * std::pow((side + before) / before, 2);
            } else if (side >= 0 && side < after) {
                expected += rise * std::pow((after - side) / after, 2);
            }
            double height = 0;
            ASSERT_EQ(line.Vagprofz(station, &height), 0);
            EXPECT_NEAR(height, expected, 0.00105) << points << ' ' << station;
        }
        ASSERT_EQ(made.notes.size(), 1U);
        EXPECT_NE(made.notes[0].find("the largest difference in height is 0.000"),
                  std::string::npos)
            << made.notes[0];
        ExpectRefused([&] { Made(text, {}, {.exact = true}); }, "a road file has no parabolas");
    }
}

TEST(LandXmlTest, WideArcsAreDividedAsProgramsFollowThem) {
    // Three quarters of a circle round (1100, 1900), to the right from its northern point.
    MadeRoad const made =
        Made(WithPlan("<Curve rot=\"cw\"><Start>1200 1900</Start><Center>1100 1900</Center>"
                      "<End>1100 1800</End></Curve>"),
             {}, {.tolerance = 0.02});
    double const bulge = -std::tan(3 * std::acos(-1.0) / 16);
    double const half = 100 * std::sqrt(0.5);
    ExpectVertices(made.road.plan, {{1200, 1900, bulge, 100},
                                    {1100 - half, 1900 + half, bulge, 100 + 235.6194},
                                    {1100, 1800, 0, 100 + 471.2389}});
    EXPECT_NE(made.notes.at(0).find("was divided into 2"), std::string::npos);
}

TEST(LandXmlTest, FeetAreConvertedByTheUnitsOwnFactor) {
    std::string text = WithPlan("<Line><Start>1000 2000</Start><End>1100 2000</End></Line>");
    text.replace(text.find("Metric linearUnit=\"meter\""), 25,
                 "Imperial linearUnit=\"USSurveyFoot\"");
    MadeRoad const made = Made(text);
    double const foot = 1200.0 / 3937;
    ExpectVertices(made.road.plan, {{1000 * foot, 2000 * foot, 0, 100 * foot},
                                    {1100 * foot, 2000 * foot, 0, 200 * foot}});
    EXPECT_NE(made.notes.at(0).find("USSurveyFoot: its numbers were multiplied by 0.30480060"),
              std::string::npos)
        << made.notes[0];
}

TEST(LandXmlTest, AlignmentsAndProfilesAreChosenByName) {
    std::string const two = File("<Alignment name=\"A\"><CoordGeom>" + std::string(lineAndCurve) +
                                 "</CoordGeom><Profile><ProfAlign name=\"now\"/>"
                                 "<ProfAlign name=\"then\"><PVI>0 1</PVI><PVI>9 2</PVI></ProfAlign>"
                                 "</Profile></Alignment><Alignment name=\"B\"/>");
    std::vector<LandXmlAlignment> const list = ListLandXml(two);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].name, "A");
    EXPECT_EQ(list[0].lines, 1U);
    EXPECT_EQ(list[0].curves, 1U);
    EXPECT_EQ(list[0].profiles, (std::vector<std::string>{"now", "then"}));
    ExpectRefused([&] { Made(two); }, "there are 2 alignments: \"A\", \"B\"; --name chooses one");
    ExpectRefused([&] { Made(two, {.name = "C"}); }, "there is no alignment \"C\"; there are");
    ExpectRefused([&] { Made(two, {.name = "A"}); }, "there are 2 profiles: \"now\", \"then\"");
    EXPECT_EQ(Made(two, {.name = "A", .profile = "then"}).road.profile.size(), 2U);
    EXPECT_EQ(Made(two, {.name = "A", .planAlone = true}).road.profile.size(), 0U);
    std::string onePoint = two;
    onePoint.erase(onePoint.find("<PVI>9 2</PVI>"), 14);
    ExpectRefused([&] { Made(onePoint, {.name = "A", .profile = "then"}); },
                  "PVI: a profile of one point gives no heights; --no-profile leaves it out");
    ExpectRefused([&] { Made(two, {.name = "B"}); }, "neither a plan nor a profile");
}

TEST(LandXmlTest, WhatCannotBeTakenOverIsNamed) {
    std::string deep = head;
    for (int i = 0; i < 1000000; ++i) {
        deep += "<a>";
    }
    for (int i = 0; i < 1000000; ++i) {
        deep += "</a>";
    }
    deep += tail;
    std::string const line = "<Line name=\"L\"><Start>0 0</Start><End>100 0</End></Line>\n";
    std::pair<std::string, char const*> const cases[] = {
        {"", "this is no XML"},
        {"<html/>", "this is no LandXML: its root element is \"html\""},
        {File("").substr(0, 150), "line 5: this is no XML, or the file is not whole"},
        {"<!DOCTYPE x [<!ENTITY a \"b\">]>\n<LandXML/>", "line 1: a document type"},
        {"<!-- <LandXML> -->\n<!DOCTYPE x>\n<LandXML/>", "line 2: a document type"},
        {deep, "elements are nested more than 64 deep"},
        {File(""), "the file holds no alignment"},
        {WithPlan(line + "<Line><Start>100 0.0123</Start><End>200 0</End></Line>"),
         "line 6, Line: begins 0.0123 m from the end of the element before it, line 5, Line \"L\""},
        {WithPlan("<Line><Start>0 x</Start><End>1 1</End></Line>"),
         "wanted two or three numbers, got"},
        {WithPlan("<Line><Start>0 1e999</Start><End>1 1</End></Line>"),
         "wanted two or three numbers, got"},
        {WithPlan("<Line><Start>0 0 0 x</Start><End>1 1</End></Line>"), "two or three numbers"},
        {WithPlan("<Line><Start>0 2e11</Start><End>1 1</End></Line>"), "two or three numbers"},
        {WithPlan("<Line><Start>0 0</Start></Line>"), "line 5, Line: has no End"},
        {WithPlan("<Line><Start pntRef=\"7\"/><End>1 1</End></Line>"), "there is no point \"7\""},
        {WithPlan("<Chain>0 0 1 1</Chain>"), "line 5, Chain: a road file has lines and curves"},
        {WithPlan("<Curve rot=\"ccw\"><Start>0 0</Start><Center>0 -10</Center>"
                  "<End>10.02 -10</End></Curve>"),
         "they differ by 0.0200"},
        {WithPlan("<Curve rot=\"ccw\" radius=\"10.5\"><Start>0 0</Start><Center>0 -10</Center>"
                  "<End>10 -10</End></Curve>"),
         "they differ by 0.5000"},
        {WithPlan("<Spiral spiType=\"clothoid\" length=\"100\" radiusStart=\"INF\" "
                  "radiusEnd=\"300\" rot=\"cw\"><Start>0 0</Start><End>100 0</End></Spiral>"),
         "further apart than they are"},
        {WithPlan("<Spiral spiType=\"cubic\" length=\"100\" radiusStart=\"INF\" "
                  "radiusEnd=\"300\" rot=\"cw\"><Start>0 0</Start><End>100 0</End></Spiral>"),
         "a spiral of the kind \"cubic\" is not known"},
        {WithPlan(line + "<Line staStart=\"250\"><Start>100 0</Start><End>200 0</End></Line>"),
         "a road file has no station equations"},
        {File("<Alignment name=\"A\" staStart=\"0\"><CoordGeom>" + line +
              "</CoordGeom><StaEquation name=\"E\" staAhead=\"500\" staBack=\"50\" "
              "staInternal=\"50\"/></Alignment>"),
         "StaEquation \"E\": stations jump there"},
        {WithProfile("<PVI>700 50</PVI>"), "does not follow that of the point before it"},
        {WithProfile("<ParaCurve length=\"700\">300 41</ParaCurve>"), "reaches beyond"},
        {WithProfile("<CircCurve length=\"100\" radius=\"50\">300 41</CircCurve>"),
         "its radius makes it"},
    };
    for (auto const& [text, why] : cases) {
        ExpectRefused([&text = text] { Made(text); }, why);
    }
}

TEST(LandXmlTest, SpiralsGoOnInTheirNeighboursDirectionsAtAnyTolerance) {
    struct Case {
        double length;
        double radius; // of the end; the start is straight
        double tolerance;
    };
    for (Case const& c : {Case{7, 160, 0.001},
                          {12, 15, 0.1},
                          {80, 300, 0.1},
                          {436, 2071, 0.001},
                          {400, 20000, 0.001}}) {
        OnSpiral const end = Integrated(c.length, 1 / c.radius, c.length, EvenShape);
        std::string const text = WithPlan(
            "<Spiral spiType=\"clothoid\" rot=\"ccw\" radiusStart=\"INF\" radiusEnd=\"" +
            Metres(c.radius) + "\" length=\"" + Metres(c.length) + "\"><Start>0 0</Start><End>" +
            Metres(end.at.x) + ' ' + Metres(end.at.y) + "</End></Spiral>");
        std::vector<kovltype> const plan = Made(text, {}, {.tolerance = c.tolerance}).road.plan;
        double heading = 0;
        for (std::size_t i = 1; i < plan.size(); ++i) {
            kovltype const& from = plan[i - 1];
            double const half = 2 * std::atan(from.bulge);
            double const chord = std::atan2(from.y - plan[i].y, plan[i].x - from.x);
            double const length = std::hypot(plan[i].x - from.x, plan[i].y - from.y);
            EXPECT_NEAR(chord - half, heading, 4e-4 + 2e-4 / length) << c.length << ' ' << i;
            EXPECT_GT(length, c.length / 200) << i;
            heading = chord + half;
        }
        EXPECT_NEAR(heading, end.heading, 5e-4);
    }
}

TEST(LandXmlTest, ASpiralOfMoreThanAHalfCircleIsDivided) {
    // Nearly an arc of the radius 30, 150 m long.
    double const turn = 5;
    RoadPoint const end = {30 * std::sin(turn), -30 * (1 - std::cos(turn))};
    MadeRoad const made = Made(WithPlan(
        "<Spiral spiType=\"clothoid\" rot=\"ccw\" radiusStart=\"30\" radiusEnd=\"30.00001\" "
        "length=\"150\"><Start>0 0</Start><End>" +
        Metres(end.x) + ' ' + Metres(end.y) + "</End></Spiral>"));
    for (kovltype const& vertex : made.road.plan) {
        EXPECT_LT(vertex.bulge, 1);
    }
}

TEST(LandXmlTest, CurvesThatTurnLessThanADecimalTellsAreTakenOver) {
    EXPECT_LE(Made(WithProfile("<ParaCurve length=\"200\">300 49.98</ParaCurve>")).heightDifference,
              0.001);
    double const length = 3000;
    MadeRoad const made =
        Made(WithPlan("<Curve rot=\"cw\"><Start>0 0</Start><Center>0 1000000</Center>"
                      "<End>" +
                      Metres(1e6 * std::sin(length / 1e6)) + ' ' +
                      Metres(1e6 * (1 - std::cos(length / 1e6))) + "</End></Curve>"));
    EXPECT_LE(made.deviation, 0.001);
    EXPECT_NEAR(made.road.plan.back().sektion, 100 + length, 1e-4);
}

TEST(LandXmlTest, StationsBeginWhereTheFileSays) {
    std::string const line = "<Line staStart=\"1000\"><Start>0 0</Start><End>100 0</End></Line>";
    std::string const own =
        File("<Alignment name=\"A\"><CoordGeom>" + line + "</CoordGeom></Alignment>");
    EXPECT_EQ(ReadLandXml(own, {}).firstStation, 1000);
    EXPECT_EQ(Made(own).road.plan.back().sektion, 1100);
    ExpectRefused([&] { Made(WithPlan(line)); },
                  "its station is 1000.0000, that of the alignment's start 100.0000");
}

TEST(LandXmlTest, JointsThatDoNotFitAreTold) {
    // A gap that the tolerance closes, and a curve to the wrong side.
    MadeRoad const made = Made(
        WithPlan(
            "<Line><Start>0 0</Start><End>100 0</End></Line>"
            "<Line><Start>100.5 0</Start><End>200 0</End></Line>\n"
            "<Curve rot=\"cw\"><Start>200 0</Start><Center>200 -100</Center><End>300 -100</End>"
            "</Curve>"),
        {}, {.tolerance = 1});
    std::string notes;
    for (std::string const& note : made.notes) {
        notes += note + '\n';
    }
    EXPECT_NE(notes.find("elements that meet are up to 0.5000 m apart\n"), std::string::npos);
    EXPECT_NE(notes.find("1 bend between an arc or a spiral and what is beside it, the largest of "
                         "200.000 gon at line 6, Curve"),
              std::string::npos)
        << notes;
}

TEST(LandXmlTest, LettersAreReadInTheEncodingThatTheFileStates) {
    std::string text = WithPlan("<Line><Start>0 0</Start><End>100 0</End></Line>");
    text.replace(text.find("\"A\""), 3, "\"V\xE4g \x80\"");
    text.replace(0, text.find('\n'), "<?xml version=\"1.0\" encoding='Windows-1252'?>");
    EXPECT_EQ(ReadLandXml(text, {}).name, "V\xC3\xA4g \xE2\x82\xAC");
    text.replace(text.find("Windows-1252"), 12, "ISO-8859-5");
    ExpectRefused([&] { Made(text); }, "line 1: the encoding \"ISO-8859-5\" is not known");
}

TEST(LandXmlTest, StationsThatJumpDoNotGoOut) {
    Road road;
    road.plan = {{0, 0, 0, 0}, {100, 0, 0, 100.02}};
    ExpectRefused([&] { ToLandXml(road, {}); }, "vertex 2 of the plan: its station 100.0200");
    road.plan[1].sektion = NAN;
    ExpectRefused([&] { ToLandXml(road, {}); }, "vertex 2 of the plan holds a value");
}

TEST(MakeRoadTest, TheNameIsKeptAsFarAsTheFileCan) {
    Alignment alignment;
    alignment.plan = {{{0, 0}, {1, 1}}};
    alignment.name = "V\xc3\xa4g \xe2\x82\xac\n27";
    EXPECT_NE(RoadText(MakeRoad(alignment, {}).road).find(" 1 $V\xe4g \x80 27\r\n"),
              std::string::npos);
    alignment.name = "\xce\xb1$\xff";
    MadeRoad const made = MakeRoad(alignment, {});
    EXPECT_NE(RoadText(made.road).find(" 1 $???\r\n"), std::string::npos);
    EXPECT_EQ(made.notes.at(0), "the name \"\xce\xb1$\xff\" is kept as \"???\"");
}

} // namespace
