// kvarnio road as a process. The expected values come from drawing the lines by hand: circles
// through points at 30 and 40, or 14 and 48, from a centre have the radius 50, and bulges are 2 *
// height / chord.
#include "kvarnio.h"

#include <cmath>

namespace {

// North along y = 240; from (70, 240) to (130, 240) round the centre (100, 200), bowing 10 to the
// east, then from (190, 240) to (250, 240) round (220, 280), bowing 10 to the west. An arc is
// 100 * asin(0.6) = 64.3501 long.
constexpr char const* arcs = "10 240 0 0 1 $B\xE5ge & <bro>\r\n"
                             "70 240 0.33333333333 60\r\n"
                             "130 240 0 124.35011088\r\n"
                             "190 240 -0.33333333333 184.35011088\r\n"
                             "250 240 0 248.70022176\r\n";
// 2 % up, then a sag of 120 m that hangs 0.6 m.
constexpr char const* sag = "100 0 0 0 10 $Svacka\n102 100 0.01 100\n102 220 0 220\n";

class RoadTest : public KvarnioTest {
  protected:
    RoadTest() {
        m_folder.Write("arcs.vl", arcs);
        m_folder.Write("sag.vl", sag);
    }
    // A subcommand of road on a file of the test's folder.
    Result Road(std::string const& command, char const* file, std::string const& rest = {},
                std::string_view input = {}) const {
        return RunBare("road " + command + ' ' + Quoted(file) + ' ' + rest, input);
    }
};

TEST_F(RoadTest, AnswersAQuestionOnTheCommandLine) {
    std::tuple<char const*, char const*, char const*, char const*> const cases[] = {
        {"xy", "arcs.vl", "40 5", "50.0000 245.0000"},
        {"xy", "arcs.vl", "0 -240.00001", "10.0000 0.0000"},
        {"station", "arcs.vl", "234.42 230.56", "230.7149 -1.5000"},
        {"z", "sag.vl", "160", "101.4000"},
    };
    for (auto const& [command, file, numbers, out] : cases) {
        Result const result = Road(command, file, numbers);
        EXPECT_EQ(result.out, std::string(out) + "\n") << command << ' ' << numbers;
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.status, 0);
    }
    Json const json = Json::parse(Road("xy", "arcs.vl", "40 5 --json").out);
    EXPECT_EQ(json["station"], 40);
    EXPECT_EQ(json["offset"], 5);
    EXPECT_NEAR(json["x"], 50, 1e-9);
    EXPECT_NEAR(json["y"], 245, 1e-9);
}

TEST_F(RoadTest, AnswersQuestionsFromStandardInputInOrder) {
    std::string_view const questions = "0 0\r\n# start\n\n 92.17505544\t2 \n248.9 0\nhej\n40 1,5\n"
                                       "40 1 2\n40-5\n40 -1e0";
    Result const result = Road("xy", "arcs.vl", "", questions);
    EXPECT_EQ(result.out,
              "10.0000 240.0000\n100.0000 252.0000\n"
              "error: station 248.9000 is not on the line, which has 0.0000 to 248.7002\n"
              "error: wanted station offset, got \"hej\"\n"
              "error: wanted station offset, got \"40 1,5\"\n"
              "error: wanted station offset, got \"40 1 2\"\n"
              "error: wanted station offset, got \"40-5\"\n"
              "50.0000 239.0000\n");
    EXPECT_EQ(result.status, 1);

    Json const json = Json::parse(Road("xy", "arcs.vl", "--json", questions).out);
    ASSERT_EQ(json.size(), 8U);
    EXPECT_EQ(json[0], Json({{"station", 0.0}, {"offset", 0.0}, {"x", 10.0}, {"y", 240.0}}));
    EXPECT_EQ(json[2]["error"],
              "station 248.9000 is not on the line, which has 0.0000 to 248.7002");
    EXPECT_EQ(Road("z", "sag.vl", "", "220\n").out,
              "error: the last station of a profile, 220.0000, has no height\n");
    EXPECT_EQ(Road("station", "arcs.vl", "", "-90 240\n").out,
              "error: the point lies beside no segment and no inner vertex of the line\n");
}

TEST_F(RoadTest, InfoTellsWhatTheFileHolds) {
    // The arcs bow 10 m beyond their ends; the profile's sag hangs below both of its own.
    Json const plan = Json::parse(Road("info", "arcs.vl", "--json").out);
    EXPECT_EQ(plan["name"], "Båge & <bro>");
    EXPECT_EQ(plan["type"], "plan");
    EXPECT_EQ(plan["plan"]["vertices"], 5);
    EXPECT_NEAR(plan["plan"]["length"], 120 + 200 * std::asin(0.6), 1e-6);
    EXPECT_NEAR(plan["plan"]["y"]["from"], 230, 1e-6);
    EXPECT_NEAR(plan["plan"]["y"]["to"], 250, 1e-6);
    EXPECT_EQ(plan["plan"]["x"], Json({{"from", 10.0}, {"to", 250.0}}));
    EXPECT_EQ(Road("info", "sag.vl").out, "FILE        " + Path("sag.vl") +
                                              "\nNAME        Svacka\n"
                                              "TYPE        profile\n"
                                              "PROFILE\n"
                                              "  vertices  3\n"
                                              "  length    220.0000\n"
                                              "  stations  0.0000 to 220.0000\n"
                                              "  heights   100.0000 to 102.0000\n");
    m_folder.Write("bad.vl", "hej\n0 0 0 0\n10 0 0 10\n");
    Result const bad = Road("info", "bad.vl");
    EXPECT_EQ(bad.status, 0);
    EXPECT_EQ(bad.err, "kvarnio: 1 line was skipped in " + Path("bad.vl") +
                           "; kvarnio road check names it\n");
}

TEST_F(RoadTest, InfoListsTheElementsOfThePlan) {
    // North along y = 240, an arc to the left and one to the right.
    EXPECT_EQ(Road("info", "sag.vl", "--elements").status, notThere);
    std::string const out = Road("info", "arcs.vl", "--elements").out;
    EXPECT_EQ(out.substr(out.find("\n\n") + 2),
              "ELEMENT           FROM      TO        LENGTH   RADIUS   BEARING   AT ITS END\n"
              "straight          0.0000    60.0000   60.0000  -        0.0000    0.0000\n"
              "arc to the left   60.0000   124.3501  64.3501  50.0000  40.9666   359.0334\n"
              "straight          124.3501  184.3501  60.0000  -        0.0000    0.0000\n"
              "arc to the right  184.3501  248.7002  64.3501  50.0000  359.0334  40.9666\n");
    Json const elements = Json::parse(Road("info", "arcs.vl", "--elements --json").out)["elements"];
    EXPECT_EQ(elements[0]["radius"], Json());
    EXPECT_NEAR(elements[3]["bearingAtEnd"], 200 / std::acos(-1.0) * std::asin(0.6), 1e-6);
    m_folder.Write("point.vl", "0 0 0 0 1 $P\n0 0 0 0\n0 -5 0 5\n");
    std::string const point = Road("info", "point.vl", "--elements").out;
    ExpectPart(point, "straight  0.0000  0.0000  0.0000  -       -         -\n");
    ExpectPart(point, "straight  0.0000  5.0000  5.0000  -       300.0000  300.0000\n");
}

TEST_F(RoadTest, CheckNamesEachProblemWithItsLine) {
    using namespace std::string_literals;
    std::string const tooLong(256, 'n');
    // problems: how they begin
    std::pair<std::string, char const*> const cases[] = {
        {"0 0 0 0 1 $A\nhej\n\n50 0 0\n100 0 0 100\n",
         "2: LOST bad line, skipped: not four numbers: \"hej\"\n3: LOST bad line, skipped\n"
         "4: LOST bad line, skipped: not four numbers: \"50 0 0\""},
        {"0 0 0 0\n100 0 0 100,5\n",
         "2: LOST text after the numbers: \"100 0 0 100,5\" [decimal-comma]"},
        {"0 0 0 0 1 $" + tooLong + "\n100 0 0 100\n", "1: LOST the name has 256 characters"},
        {"0 0 0 0 1 $A$B\n100 0 0 100\n", "1: LOST the name ends at its second \"$\""},
        {"0 0 0 0\n100 0 0 100\0 0\n200 0 0 200\x1A\n300 0 0 300\n"s,
         "2: LOST text after a zero byte\n3: LOST everything after the end-of-file character"},
        {"0 0 0 0\n100 0 0 100\n200 0 0 100\n300 0 0 99\n",
         "3: station 100.0000 equals that of line 2\n"
         "4: station 99.0000 is smaller than that of line 3, 100.0000"},
        {"0 0 0 100\n50 0 0 50\n100 0 0 60\n",
         "1: the stations decrease\n3: station 60.0000 is greater than that of line 2"},
        {"0 0 0 0\n100 0 0 100\n100.005 0 0 100.005\n",
         "3: the vertex coincides with that of line 2: they are 0.0050 m apart"},
        {"0 0 0 0\n100 0 0 100.02\n",
         "1: the segment is 100.0000 m long, its stations differ by 100.0200"},
        // Beyond a half circle, 160 m round on a radius of 50.
        {"70 240 3 0\n130 240 0 249.8092\n", "1: bulge 3.0000: beyond a half circle"},
        {"8 6 1 0\n-8 -6 0 31.4159\n", "1: bulge 1.0000: a half circle that does not cross"},
        // A quarter circle from due south to due east of its centre.
        {"0 0 0.41421356237 0\n50 -50 0 78.5398\n", "1: the arc starts and ends straight north"},
        {"0 0 0 0\nnan 0 0 50\n100 inf 0 100\n",
         "2: the vertex holds a value\n3: the vertex holds a value"},
        {"0 0 0 0\n", "1: the plan has one vertex alone"},
        {"", "1: the file holds no vertex"},
        {"10 0 0 0 10 $P\n11 100 0 100\n11 100 0 100\n12 150 0 151\n",
         "3: station 100.0000 equals that of line 2\n4: the second column, 150.0000"},
        // 40 m, from 60 % up to 60 % down.
        {"10 0 0 0 10 $P\n34 40 -0.29 40\n34 80 0 80\n", "2: the vertical curve is steep"},
        {"0 0 0 0\n100 0 0 100\n*\nProfil\n*\n10 0 0\n11 50\n12 100 0\n12 100 0\n",
         "7: LOST bad line, skipped: not three numbers: \"11 50\"\n"
         "9: station 100.0000 equals that of line 8"},
        {"0 0 0 0\n100 0 0 100\n*\n10 0 0\n11 50 0\n12 100 0\n13 150 0\n",
         "4: LOST bad line, skipped: it stands where\n5: LOST bad line, skipped: it stands where"},
    };
    for (auto const& [content, problems] : cases) {
        SCOPED_TRACE(content);
        m_folder.Write("check.vl", content);
        Words told;
        std::istringstream out(Road("check", "check.vl").out);
        for (std::string line; std::getline(out, line);) {
            EXPECT_TRUE(line.starts_with(Path("check.vl") + ':')) << line;
            std::string const lost = "lost when the file is written: ";
            std::string problem = line.substr(Path("check.vl").size() + 1);
            std::size_t const at = problem.find(lost);
            told.push_back(at == std::string::npos ? problem
                                                   : problem.replace(at, lost.size(), "LOST "));
        }
        ExpectBeginnings(told, problems);
    }
    m_folder.Write("check.vl", "0 0 0 0\n100 0 0 100.02\n");
    EXPECT_EQ(Road("check", "check.vl", "--tolerance 0.03").status, 0);
    Result const found = Road("check", "check.vl", "--json");
    EXPECT_EQ(found.status, 1);
    EXPECT_EQ(Json::parse(found.out)[0]["line"], 1);
    for (char const* file : {"VAG27.VL", "RAMP.VL", "GCPORT.VL"}) {
        std::string const path = "c/Projekt/Vag27/KVARNBOK.DBF/" + std::string(file);
        Result const result = Road("check", path.c_str());
        EXPECT_EQ(result.out, Path(path) + ": no problems\n");
        EXPECT_EQ(result.status, 0);
    }
}

// Where a text is not well-formed XML of elements, attributes and entities; empty when it is.
std::string XmlFault(std::string_view xml) {
    std::vector<std::string_view> open;
    std::size_t at = xml.find("?>") + 2;
    while ((at = xml.find_first_of("<&", at)) != std::string_view::npos) {
        bool const isTag = xml[at] == '<';
        std::size_t const end = xml.find_first_of(isTag ? "<>" : ";", ++at);
        std::string_view const inner = xml.substr(at, end - at);
        std::string_view const name = inner.substr(0, inner.find_first_of(" /", 1));
        bool const ends = inner.starts_with('/');
        bool good = inner == "amp" || inner == "lt" || inner == "gt" || inner == "quot";
        if (isTag) {
            good =
                xml.substr(end, 1) == ">" && std::count(inner.begin(), inner.end(), '"') % 2 == 0;
            good = good && (!ends || (!open.empty() && open.back() == name.substr(1)));
        }
        if (!good) {
            return std::string(inner.substr(0, 80));
        }
        if (isTag && ends) {
            open.pop_back();
        } else if (isTag && !inner.ends_with('/')) {
            open.push_back(name);
        }
    }
    return open.empty() ? "" : std::string(open.back());
}

TEST_F(RoadTest, PlotDrawsArcsAsArcsInTheStatedScale) {
    Result const result = Road("plot", "arcs.vl", "-o " + Quoted("road.svg"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, Path("road.svg") + "\n");
    std::string const svg = m_folder.Read("road.svg");
    EXPECT_EQ(XmlFault(svg), "");
    for (char const* part : {">PLAN  1:1\u00A0000<", ">R=50<", ">0/100<", ">0/248.70<",
                             "<title>Båge &amp; &lt;bro&gt;</title>", "width=\"297mm\""}) {
        ExpectPart(svg, part);
    }
    // Radius 50 m is 50 mm; the first arc turns left and the second right, on their way north.
    std::size_t const left = svg.find("A50 50 0 0 0 ", svg.find(R"(class="road" d=)"));
    EXPECT_LT(left, svg.find("A50 50 0 0 1 ", left));
    EXPECT_LT(svg.find("A50 50 0 0 1 ", left), svg.find('"', left));
    // North is up and east to the right: the line begins at its south end, below its north end.
    std::size_t const begin = svg.find(R"(class="road" d="M)") + 17;
    std::size_t const end = svg.rfind(' ', svg.find('"', begin));
    EXPECT_NEAR(std::stod(svg.substr(svg.find(' ', begin))) - std::stod(svg.substr(end)), 240,
                0.01);
}

TEST_F(RoadTest, PlotDrawsTheProfileAndTheProjectsArea) {
    ASSERT_EQ(Road("plot", "c/Projekt/Vag27/KVARNBOK.DBF/VAG27.VL",
                   "-o " + Quoted("a.svg") + " --project " + Quoted(vag27))
                  .status,
              0);
    std::string const svg = m_folder.Read("a.svg");
    EXPECT_EQ(XmlFault(svg), "");
    // The crest of 5,200 m: 1,040 mm along and 20 times that up, clockwise.
    for (char const* part : {">0/180.000 – 0/760.000<", ">-25 to 40 m<",
                             ">PROFILE  stations 1:5\u00A0000, heights 1:250 (×20)<", ">R=5200<",
                             ">+2.44 %<", "A1040 20800"}) {
        ExpectPart(svg, part);
    }
    ASSERT_EQ(Road("plot", "sag.vl", "-o " + Quoted("b.svg")).status, 0);
    EXPECT_EQ(XmlFault(m_folder.Read("b.svg")), "");
    EXPECT_EQ(m_folder.Read("b.svg").find(">PLAN"), std::string::npos);
}

TEST_F(RoadTest, PlotTakesWhatFilesMayHold) {
    std::string many;
    for (int i = 0; i < 20000; ++i) {
        std::string const station = std::to_string(i);
        many.append(station).append(" ").append(std::to_string(i % 7));
        many.append(" 0.3 ").append(station).append("\n");
    }
    std::pair<std::string, int> const cases[] = {
        {"1 2 0 0\n", 0},
        {"1 2 0 0\n1 2 0.5 10\n1 2 0 20\n", 0},
        {"0 0 0 5\n100 0 0.2 5\n200 0 0 5\n", 0},
        {"0 0 0.3 0\n1e12 -1e12 0 2e12\n", 0},
        {"0 0 1e300 0\n100 0 1e9 100\n200 0 0 200\n", 0},
        {"1e12 1e12 0 1e12\n1e12 1000000000001 0 1000000000001\n", 0},
        {"0 0 0 0\nnan 0 0 100\n200 0 0 200\n", 0},
        {"0 0 0 inf\n100 0 0 100\n200 0 0 200\n", 0},
        {"0 0 0 0 1 $\x01\x1F\x81\n100 0 0 100\n", 0},
        {"10 5 0 5 10 $P\n", 0},
        {"10 0 0.9 0 10 $P\n1e9 1e-3 0 1e-3\n", 0},
        {many, 0},
        {"nan 0 0 0\n1e300 0 0 100\n", 1},
        {"", 1},
    };
    for (auto const& [content, status] : cases) {
        m_folder.Write("harsh.vl", content);
        SCOPED_TRACE(content.substr(0, 60));
        EXPECT_EQ(Road("plot", "harsh.vl", "-o " + Quoted("harsh.svg")).status, status);
        std::string const svg = m_folder.Read("harsh.svg");
        EXPECT_EQ(XmlFault(svg), "");
        for (char const* const never : {"nan", "inf", "\x01"}) {
            EXPECT_EQ(svg.find(never), std::string::npos) << never;
        }
    }
}

TEST_F(RoadTest, WhatCannotBeDoneIsRefusedWithItsReason) {
    std::string const file = ' ' + Quoted("arcs.vl");
    std::string const profile = ' ' + Quoted("sag.vl");
    std::string const none = ' ' + Quoted("c/Kvarnbok/Cfg/KODFIL.DAT");
    ExpectRefused({
        {"road xy" + file + " -1 0", notThere, "station -1.0000 is not on the line, which has 0."},
        {"road xy finns-ej.vl 1 0", notThere, "programs show: \"Kan ej öppna väglinje : "},
        {"road info finns-ej.vl", notThere, "kvarnio: there is no file "},
        {"road info" + none, notThere, "is no road file: none of its lines gives a vertex"},
        {"road xy" + profile + " 1 0", notThere, "sag.vl has no plan"},
        {"road z" + file, notThere, "arcs.vl has no profile"},
        {"road xy" + file + " 1", wrongUsage, "STATION requires OFFSET"},
        {"road xy" + file + " 1,5 0", wrongUsage, "STATION \"1,5\" is not a number: the decimal"},
        {"road check" + file + " --tolerance x", wrongUsage, "METRES \"x\" is not a number"},
        {"road plot" + file, wrongUsage, "--output is required"},
        {"road plot" + file + " -o" + file, wrongUsage, "take the place of the road file"},
        {"road plot" + file + " -o ingen/road.svg", notDone, "cannot be written"},
        {"road hitta" + file, wrongUsage, "there is no subcommand \"hitta\""},
    });
    EXPECT_EQ(m_folder.Read("arcs.vl"), arcs);
}

} // namespace
