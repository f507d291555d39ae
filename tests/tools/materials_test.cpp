// materials, points and formats: what the library holds, and what of it stands in a file.
#include "kvarnio.h"

namespace {

class MaterialsTest : public KvarnioTest {
  protected:
    Json List(Arguments arguments, std::string const& project = {}) const {
        arguments.insert(arguments.begin(), "materials");
        arguments.push_back("--json");
        return Json::parse(Run(arguments, project).out);
    }
    // The entries that do not come from the built-in list alone.
    static std::vector<std::string> FromFile(Json const& list) {
        std::vector<std::string> entries;
        for (Json const& entry : list["materials"]) {
            if (entry["source"] != "built-in") {
                entries.push_back(entry["number"].dump() + ' ' + entry["name"].get<std::string>() +
                                  ' ' + entry["text"].get<std::string>() + ' ' +
                                  entry["degrees"].dump() + ' ' +
                                  entry["source"].get<std::string>() + ' ' + entry["line"].dump());
            }
        }
        return entries;
    }
};

using Entries = std::vector<std::string>;

TEST_F(MaterialsTest, EachEntryHasItsSource) {
    Json const rock = List({"rock"}, vag27);
    EXPECT_EQ(rock["file"], Path("c/Kvarnbok/Cfg/Stenkod.dat"));
    EXPECT_EQ(rock["place"], "CFG");
    EXPECT_EQ(rock["materials"].size(), 22U + 4);
    EXPECT_EQ(FromFile(rock),
              (Entries{"1 Ss Sandsten 45.0 changed 5", "4 Kv Kvartsit 0.0 changed 6",
                       "11 Gr Granit 30.0 changed 7", "22 Sg Skiffergnejs 0.0 file 8",
                       "-1 Lz Leromvandling 90.0 file 9", "-2 Kz Krosszon 135.0 file 10",
                       "-3 Hålrum  0.0 file 11"}));
    EXPECT_EQ(FromFile(List({"fill"})).back(), "-2 rö Rödlera 0.0 file 15");
    Json const soil = List({"soil"});
    EXPECT_TRUE(soil["file"].is_null());
    EXPECT_EQ(soil["materials"].size(), 13U);

    m_folder.Write("p/Stenkod.dat", "*\n*\n3\n3 Kv\n22 A\n22 B t\n-1 a\n-1 b\n*\n");
    EXPECT_EQ(FromFile(List({"rock"}, "p")), (Entries{"3 Sk  0.0 changed 4", "22 B t 0.0 file 6",
                                                      "-1 a  0.0 file 7", "-1 b  0.0 file 8"}));
    m_folder.Write("tom/fil", "");
    EXPECT_NE(
        RunBare({"materials", "fill", "--home", Path("tom")}).out.find("there is no Stenkod.dat\n"),
        std::string::npos);
}

TEST_F(MaterialsTest, TheNorwegianFileIsShifted) {
    EXPECT_EQ(FromFile(List({"rock", "--norwegian"})),
              (Entries{"30 Hornfels Hornfels 45.0 changed 5", "31 Kalkspat Kalkspat 0.0 changed 7",
                       "32 Kalkstein Kalk 30.0 changed 8", "-1 Rauhaugitt Rauhaugitt 0.0 file 9"}));
}

TEST_F(MaterialsTest, FindsBothWays) {
    struct {
        Arguments arguments;
        Json number;
        Json name;
    } const cases[] = {
        {{"rock", "find", "-1"}, -1, "Lz"},
        {{"rock", "find", "gö"}, 10, "Gö"},
        {{"rock", "find", "0"}, 0, " "},
        {{"rock", "find", "23"}, nullptr, nullptr},
        {{"fill", "find", "Lz"}, nullptr, nullptr},
        {{"soil", "find", "mu"}, 2, "mu "},
        {{"rock", "--norwegian", "find", "øyegneis"}, 63, "Øyegneis"},
    };
    for (auto const& row : cases) {
        Json const expected = {
            {"asked", row.arguments.back()}, {"number", row.number}, {"name", row.name}};
        EXPECT_EQ(List(row.arguments), Json::array({expected}));
    }
    EXPECT_EQ(Run({"materials", "rock", "find", "Gr", "Xx"}).status, 1);
}

TEST_F(MaterialsTest, PointsShowsTheFileBesideWhatIsRead) {
    m_folder.Write("p/X$1.STP", "1.5\n2\n*\n4\n5\n0.1\n*\ngvy\n12.3\n\n"
                                "B\x99R1 x\n 8.1\n1 2.5\n\n9,5\n*\n*\n");
    Result const result = Run({"points", Path("p/X$1.STP"), "--json"});
    EXPECT_EQ(result.status, 0);
    Json const json = Json::parse(result.out);
    EXPECT_EQ(json["gvy"], 12.3);
    EXPECT_EQ(json["header"][2], Json({{"inFile", "*"}, {"read", 0.0}}));
    EXPECT_EQ(json["header"][5]["inFile"], "0.1");
    EXPECT_NE(json["header"][5]["read"], 0.1);
    Json const zeros = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    EXPECT_EQ(json["points"][0],
              Json({{"name", "BÖR1"}, {"level", 8.1}, {"inFile", {1.0, 2.5}}, {"read", zeros}}));
    EXPECT_EQ(json["points"][1]["name"], "");
    EXPECT_EQ(json["points"].size(), 2U);
    EXPECT_EQ(Run({"points", Path("p")}).status, 1);
}

TEST_F(MaterialsTest, AFormatByItsName) {
    EXPECT_EQ(Json::parse(Run({"formats", "--json"}).out).size(), 9U);
    Json const format = Json::parse(Run({"formats", "A3XL", "--json"}).out);
    EXPECT_EQ(format["index"], 7);
    EXPECT_EQ(format["drawingArea"], Json({{"width", 774}, {"height", 250}}));
    EXPECT_EQ(format["frame"], Json({{"width", 794}, {"height", 280}}));
    EXPECT_EQ(format["sheet"], Json({{"width", 843}, {"height", 297}}));
    EXPECT_EQ(Run({"formats", "a3"}).status, 1);
}

} // namespace
