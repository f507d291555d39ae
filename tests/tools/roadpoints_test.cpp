// Points and stations in kvarnio road, as lines and as tables. The roads run straight north, so
// that a station is the northing and an offset the distance east of the line.
#include "kvarnio.h"

namespace {

// 1 km along y = 100; the first half has a profile, 2 % up from 10 m.
constexpr char const* mainRoad = "0 100 0 0 1 $Main\r\n1000 100 0 1000\r\n"
                                 "*\r\nProfil\r\n*\r\n10 0 0\r\n20 500 0\r\n";
constexpr char const* sideRoad = "0 200 0 0 1 $Side\n1000 200 0 1000\n"; // along y = 200
constexpr char const* profile = "50 0 0 0 10 $P\n60 1000 0 1000\n";

// A line of the tool: the arguments after FILE, its input, and what it answers.
struct Case {
    char const* command;
    char const* rest;
    std::string_view in;
    std::string_view out;
    std::string_view err;
};

class RoadPointsTest : public KvarnioTest {
  protected:
    RoadPointsTest() {
        m_folder.Write("main.vl", mainRoad);
        m_folder.Write("profile.vl", profile);
        std::filesystem::create_directory(m_folder / "roads");
        m_folder.Write("roads/b_side.vl", sideRoad);
        m_folder.Write("roads/a_profile.VL", profile);
        m_folder.Write("roads/notes.txt", "no road");
    }
    Result Road(std::string const& command, std::string const& rest,
                std::string_view input = {}) const {
        return RunBare("road " + command + ' ' + Quoted("main.vl") + ' ' + rest, input);
    }
    // Something is missing exactly where a reason is told or the answer is an error.
    void Expect(std::vector<Case> const& cases) const {
        for (Case const& c : cases) {
            SCOPED_TRACE(std::string(c.command) + ' ' + c.rest + '\n' + std::string(c.in));
            Result const result = Road(c.command, WithPaths(c.rest), c.in);
            EXPECT_EQ(m_folder.Read("out"), c.out); // with its line ends
            EXPECT_EQ(result.err, c.err);
            bool const isWhole = c.err.empty() && c.out.find("error") == std::string_view::npos;
            EXPECT_EQ(result.status, isWhole ? 0 : notThere);
        }
    }
    // @name is a file of the test's folder.
    std::string WithPaths(std::string text) const {
        for (std::size_t at = 0; (at = text.find('@')) != std::string::npos;) {
            std::size_t const end = std::min(text.find(' ', at), text.size());
            text.replace(at, end - at, Quoted(text.substr(at + 1, end - at - 1)));
        }
        return text;
    }
    // The same without carriage returns, for the host's own line ends.
    void ExpectLines(std::vector<Case> const& cases) const {
        for (Case const& c : cases) {
            SCOPED_TRACE(std::string(c.command) + ' ' + c.rest + '\n' + std::string(c.in));
            Result const result = Road(c.command, WithPaths(c.rest), c.in);
            EXPECT_EQ(result.out, c.out);
            EXPECT_EQ(result.err, c.err);
        }
    }
};

TEST_F(RoadPointsTest, StationsAreKilometresAndMetresToo) {
    ExpectLines({
        {"xy", "0/100.5 2", "", "100.5000 102.0000\n", ""},
        {"xy", "+1/0 -.5", "", "1000.0000 99.5000\n", ""},
        {"xy", "100 -.5", "", "100.0000 99.5000\n", ""},
        {"station", "-.5 100", "", "",
         "kvarnio: the point lies beside no segment and no inner vertex of the line\n"},
        {"z", "0/250", "", "15.0000\n", ""},
        {"station", "250.0004 99 --km", "", "0/250.000 -1.0000\n", ""},
        {"station", "999.9996 99 --km", "", "1/000.000 -1.0000\n", ""},
        {"xy", "-0/25 0 --km", "", "",
         "kvarnio: station -0/025.000 is not on the line, which has 0/000.000 to 1/000.000\n"},
        {"xy", "", "0/2.5 1\n+0/1 0\n1/-5 0\n0/1000 1\n0.5/2 0\n-0/25 0\n0/1e2 0\n",
         "2.5000 101.0000\n1.0000 100.0000\n"
         "error: wanted station offset, got \"1/-5 0\"\n"
         "error: wanted station offset, got \"0/1000 1\"\n"
         "error: wanted station offset, got \"0.5/2 0\"\n"
         "error: station -25.0000 is not on the line, which has 0.0000 to 1000.0000\n"
         "error: wanted station offset, got \"0/1e2 0\"\n",
         ""},
    });
    Json const json = Json::parse(Road("station", "250 99 --km --json").out);
    EXPECT_EQ(json.value("km", ""), "0/250.000");
    EXPECT_NEAR(json.value("station", 0.0), 250, 1e-9);
}

TEST_F(RoadPointsTest, TheHeightComesInTheSameAnswer) {
    ExpectLines({
        {"station", "250 99 --height", "", "250.0000 -1.0000 15.0000\n", ""},
        {"xy", "250 1 --height", "", "250.0000 101.0000 15.0000\n", ""},
        {"station", "600 99 --profile @profile.vl", "", "600.0000 -1.0000 56.0000\n", ""},
        {"xy", "-0/0.00009 0 --height", "", "-0.0001 100.0000 10.0000\n", ""},
        {"station", "600 99 --height", "", "600.0000 -1.0000 -\n",
         "kvarnio: no height: station 600.0000 is not on the profile, which has 0.0000 to "
         "500.0000\n"},
        {"xy", "500 1 --height", "", "500.0000 101.0000 -\n",
         "kvarnio: no height: the last station of a profile, 500.0000, has no height\n"},
        {"xy", "--height", "250 1\n\n600 0\n2000 1\n",
         "250.0000 101.0000 15.0000\n600.0000 100.0000 -\n"
         "error: station 2000.0000 is not on the line, which has 0.0000 to 1000.0000\n",
         "standard input:3: no height: station 600.0000 is not on the profile, which has 0.0000 "
         "to 500.0000\n"},
    });
    Result const outside = Road("xy", "600 1 --height --json");
    EXPECT_EQ(outside.status, notThere);
    Json const json = Json::parse(outside.out);
    EXPECT_TRUE(json.at("height").is_null());
    EXPECT_NEAR(json["x"], 600, 1e-9);
    ExpectPart(json.value("error", ""), "no height: station 600.0000");
}

TEST_F(RoadPointsTest, OfSeveralRoadsTheNearestComesFirst) {
    m_folder.Write("short.vl", "0 150 0 0 1 $Short\n100 150 0 100\n"); // not beside most points
    ExpectLines({
        {"station", "250 180 --also @roads", "",
         "250.0000 -20.0000 b_side.vl\n250.0000 80.0000 main.vl\n", ""},
        {"station", "50 130 --also @roads @short.vl --also @main.vl", "",
         "50.0000 -20.0000 short.vl\n50.0000 30.0000 main.vl\n50.0000 -70.0000 b_side.vl\n", ""},
        {"station", "-5 130 --also @roads @short.vl", "", "",
         "kvarnio: the point lies beside no segment and no inner vertex of any of the 3 roads\n"},
        {"station", "--also @roads --height", "250 101\n250 199\n-1 1\n",
         "250.0000 1.0000 15.0000 main.vl\n250.0000 -1.0000 - b_side.vl\n"
         "error: the point lies beside no segment and no inner vertex of any of the 2 roads\n",
         "standard input:2: no height: the road has no profile\n"},
        {"station", "--csv --also @roads", "1,250,101\n2,250,199\n3,-1,1\n", "",
         "kvarnio: standard input:1 has 3 numbers, and no heading tells x and y; name the "
         "columns, as in --columns 2,3\nTry \"kvarnio road station --help\".\n"},
    });
    Json const json = Json::parse(Road("station", WithPaths("250 180 --also @roads --json")).out);
    ASSERT_EQ(json.size(), 2U);
    EXPECT_EQ(json[0].value("road", ""), "b_side.vl");
    EXPECT_NEAR(json[1]["offset"], 80, 1e-9);

    // Two of one name are told apart by their folders; what is no road is refused.
    m_folder.Write("roads/main.vl", sideRoad);
    ExpectPart(Road("station", WithPaths("250 180 --also @roads/main.vl")).out,
               "80.0000 " + Path("main.vl") + '\n');
    EXPECT_EQ(Road("station", WithPaths("250 180 --also @roads/a_profile.VL")).status, notThere);
    EXPECT_EQ(Road("station", WithPaths("250 180 --also @c/Kvarnbok/Cfg")).status, notThere);
}

TEST_F(RoadPointsTest, ATableKeepsItsLinesAndColumns) {
    Expect({
        // A byte-order mark, line ends, quotes and lines without a point stay.
        {"station", "--csv",
         "\xEF\xBB\xBFid;N;E;text\r\n1;250;99;\"a;\"\"b\"\r\n\r\n# c;1;2\r\n;;;\r\n\"2\"; +1e2 "
         ";\"101\";\n3;7;100;\"two\nlines\"\n4;8;100;x",
         "\xEF\xBB\xBFid;N;E;text;station;offset\r\n1;250;99;\"a;\"\"b\";250.0000;-1.0000\r\n\r\n"
         "# c;1;2\r\n;;;\r\n\"2\"; +1e2 ;\"101\";;100.0000;1.0000\n"
         "3;7;100;\"two\nlines\";7.0000;0.0000\n4;8;100;x;8.0000;0.0000",
         ""},
        {"xy", "--csv --height", "Sidom\xE5tt\tSEKTION [km/m]\tnr\n1\t0/250\t7\n",
         "Sidom\xE5tt\tSEKTION [km/m]\tnr\tx\ty\theight\n1\t0/250\t7\t250.0000\t101.0000\t"
         "15.0000\n",
         ""},
        {"xy", "--csv", "SIDOMÅTT,km\n1,0/250\n", "SIDOMÅTT,km,x,y\n1,0/250,250.0000,101.0000\n",
         ""},
        {"z", "--csv", "km\n0/250\n", "km;height\n0/250;15.0000\n", ""},
        {"z", "--csv", "", "", ""},
        {"station", "--csv", "namn,nord,ost\n", "namn,nord,ost,station,offset\n", ""},
        // Without known headings: the only numbers, or the columns that are named.
        {"station", "--csv --km", "A;250;99\n", "A;250;99;0/250.000;-1.0000\n", ""},
        {"station", "--csv", "pt;first;second\nN;250;99\n",
         "pt;first;second;station;offset\nN;250;99;250.0000;-1.0000\n", ""},
        {"station", "--csv --columns 3,1", "99;7;250\n", "99;7;250;250.0000;-1.0000\n", ""},
        {"station", "--csv --columns 3,e", "E;7;up\n99;7;250\n",
         "E;7;up;station;offset\n99;7;250;250.0000;-1.0000\n", ""},
        {"station", "--csv --columns 2,3 --separator '|'", "N|250|99\n",
         "N|250|99|250.0000|-1.0000\n", ""},
        {"station", "--csv --decimal-comma --km", "x;y\n250,5;99,25\n-0,5;1\n2.5;1\n",
         "x;y;station;offset\n250,5;99,25;0/250,500;-0,7500\n-0,5;1;;\n2.5;1;;\n",
         "standard input:3: the point lies beside no segment and no inner vertex of the line\n"
         "standard input:4: x \"2.5\" is no number: --decimal-comma is given, and it has a "
         "point\n"},
        // Answers stay in their columns.
        {"station", "--csv", "x;y;a;b\n1;100\n2;100;;\n",
         "x;y;a;b;station;offset\n"
         "1;100;;;1.0000;0.0000\n2;100;;;2.0000;0.0000\n",
         ""},
        {"station", "--csv", "x;y\n1;100;\n", "x;y;;station;offset\n1;100;;1.0000;0.0000\n", ""},
        {"xy", "--csv --height", "station;offset\n600;1\n",
         "station;offset;x;y;height\n"
         "600;1;600.0000;101.0000;\n",
         "standard input:2: no height: station 600.0000 is not on the profile, which has 0.0000 "
         "to 500.0000\n"},
        // What is not understood stays in its place.
        {"station", "--csv",
         "id;x;y\n1;hej;1\n2;1,5;1\n3;;1\n4;5\n5;1;1;1\n6;\"1\"1;1\n\"7;1;1\n"
         "8;1;100\n",
         "id;x;y;station;offset\n1;hej;1;;\n2;1,5;1;;\n3;;1;;\n4;5;;;\n5;1;1;1;;\n6;\"1\"1;1;;\n"
         "\"7;1;1\n8;1;100;1.0000;0.0000\n",
         "standard input:2: x \"hej\" is no number\n"
         "standard input:3: x \"1,5\" is no number: its decimal sign is a comma; --decimal-comma "
         "reads such numbers\n"
         "standard input:4: x is empty\n"
         "standard input:5: y is empty\n"
         "standard input:6: the line has 4 columns, the table 3\n"
         "standard input:7: text follows the end of a quoted field\n"
         "standard input:8: a quoted field has no end\n"},
    });
}

// A road's name is written in the table's encoding, and as a field.
TEST_F(RoadPointsTest, ARoadsNameFitsTheTable) {
    WriteBytes(m_folder / "roads" / std::filesystem::path(u8"å,b.vl"), sideRoad);
    std::filesystem::remove(m_folder / "roads/b_side.vl");
    Expect({
        {"station", "--csv --also @roads", "x,y,\xE5\n250,199,\n",
         "x,y,\xE5,station,offset,road\n250,199,,250.0000,-1.0000,\"\xE5,b.vl\"\n", ""},
        {"station", "--csv --also @roads", "x;y;å\n250;199;\n-1;1;\n",
         "x;y;å;station;offset;road\n250;199;;250.0000;-1.0000;å,b.vl\n-1;1;;;;\n",
         "standard input:3: the point lies beside no segment and no inner vertex of any of the 2 "
         "roads\n"},
    });
}

// The README shows what comes of the sample.
TEST_F(RoadPointsTest, TheReadmesExampleIsTrue) {
    std::filesystem::path const samples(SAMPLES);
    m_folder.Write("punkter.csv", ReadBytes(samples / "punkter.csv"));
    Result const result =
        RunBare("road station " + Quoted("c/Projekt/Vag27/KVARNBOK.DBF/VAG27.VL") +
                " --csv --height --km --in " + Quoted("punkter.csv"));
    EXPECT_EQ(result.status, 0);
    std::string const shown = result.out.substr(0, result.out.find("27B03"));
    EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), 3);
    ExpectPart(ReadBytes(samples / "../README.md"), shown);
}

TEST_F(RoadPointsTest, ATableThatDoesNotTellIsRefused) {
    std::tuple<char const*, std::string_view, char const*> const cases[] = {
        {"--csv", "1;2;3\n", "1 has 3 numbers, and no heading tells x and y; name the columns, as"},
        {"--csv", "a;b\n\nc;5\n", "3 has 1 number, and no heading tells x and y"},
        {"--csv", "N;E;x;y\n1;2;3;4\n", "1 has 2 columns for x: N and x; name the ones to take"},
        {"--csv", "id;N;H\n1;2;3\n", "1 has no heading for y; name the columns"},
        {"--csv", "1 2\n", "1: no semicolon, tab or comma separates fields; give --separator"},
        {"--csv --decimal-comma", "1,2\n", "1: the fields are separated by commas"},
        {"--csv --decimal-comma --separator ,", "1,2\n", "a comma cannot be both"},
        {"--csv --separator x", "1;2\n", "--separator \"x\" separates no fields"},
        {"--csv --columns 2", "1;2\n", "--columns \"2\" names 1 column; wanted x,y"},
        {"--csv --columns 2,3", "1;2\n", "1 has 2 columns, counted from 1"},
        {"--csv --columns 0,1", "1;2\n", "1 has 2 columns, counted from 1"},
        {"--csv --columns x,z", "x;y\n1;2\n", "has no heading \"z\"; it has x, y"},
        {"--csv 1 2", "", "--csv reads a table: leave out the numbers"},
        {"--csv --json", "", "--csv writes a table: leave out --json"},
        {"--in punkter.csv", "", "--in requires --csv"},
        {"--profile @profile.vl --also @roads", "", "--profile is the profile of one road"},
    };
    for (auto const& [rest, in, reason] : cases) {
        SCOPED_TRACE(rest);
        Result const result = Road("station", WithPaths(rest), in);
        EXPECT_EQ(result.status, wrongUsage);
        EXPECT_TRUE(result.out.empty() || result.out.starts_with("{\n  \"error\": ")) << result.out;
        ExpectPart(result.err, reason);
    }
    m_folder.Write("side.vl", sideRoad);
    Result const result = RunBare("road station " + Quoted("side.vl") + " 1 2 --height");
    EXPECT_EQ(result.status, notThere);
    ExpectPart(result.err, "side.vl has no profile to take heights from; --profile names");
}

TEST_F(RoadPointsTest, ATableGoesFromFileToFile) {
    std::string const table = "x;y\r\n250;99\r\n-1;1\r\n";
    std::string const answered = "x;y;station;offset\r\n250;99;250.0000;-1.0000\r\n-1;1;;\r\n";
    m_folder.Write("t.csv", table);
    Result const result = Road("station", WithPaths("--csv --in @t.csv -o @svar.csv"));
    EXPECT_EQ(result.out, Path("svar.csv") + '\n');
    EXPECT_EQ(result.status, notThere);
    ExpectPart(result.err, Path("t.csv") + ":3: the point lies beside no segment");
    EXPECT_EQ(m_folder.Read("svar.csv"), answered);

    std::tuple<char const*, int, char const*> const cases[] = {
        {"--csv --in @t.csv -o @t.csv", wrongUsage, "take the place of the table"},
        {"--csv --in @t.csv -o @main.vl", wrongUsage, "take the place of a road file"},
        {"--csv --in @t.csv -o @profile.vl --profile @profile.vl", wrongUsage, "of a road file"},
        {"--csv -o @in", wrongUsage, "take the place of the table"}, // standard input
        {"--csv --in @t.csv -o @roads", notDone, "could not be written: it is a folder"},
        {"--csv --in @t.csv -o @ingen/svar.csv", notDone, "svar.csv could not be written"},
        {"--csv --in @finns-ej.csv", notThere, "there is no file "},
        {"--csv --in @roads", notDone, "roads is a folder"},
        {"--csv --in @utf16.csv -o @svar.csv", notDone, "utf16.csv is in UTF-16"},
    };
    m_folder.Write("utf16.csv", std::string_view("\xFF\xFEx\0;\0", 6));
    for (auto const& [rest, status, reason] : cases) {
        SCOPED_TRACE(rest);
        Result const refused = Road("station", WithPaths(rest), table);
        EXPECT_EQ(refused.status, status);
        EXPECT_EQ(refused.out, "");
        ExpectPart(refused.err, reason);
    }
    EXPECT_EQ(m_folder.Read("t.csv"), table);
    EXPECT_EQ(m_folder.Read("main.vl"), mainRoad);
    EXPECT_EQ(m_folder.Read("svar.csv"), answered);
#if !defined(_WIN32)
    for (char const* rest :
         {"--csv --in @t.csv -o /dev/full", "--csv --in @t.csv >/dev/full 2>/dev/null #"}) {
        EXPECT_EQ(Road("station", WithPaths(rest)).status, notDone) << rest;
    }
#endif
}

} // namespace
