// materials and points: what the library holds, and what of it stands in a file.
#include "kvarnio.h"

namespace {

class MaterialsTest : public KvarnioTest {
  protected:
    // The entries of a list that do not come from the built-in one alone.
    Words FromFile(std::string const& list, std::string const& project = {}) const {
        Words entries;
        Json const json = RunJson("materials " + list, project);
        for (Json const& entry : json["materials"]) {
            if (entry["source"] != "built-in") {
                std::string text;
                for (char const* const field : {"number", "name", "text", "degrees", "source"}) {
                    Json const& value = entry[field];
                    text += (value.is_string() ? value.get<std::string>() : value.dump()) + ' ';
                }
                entries.push_back(text + entry["line"].dump());
            }
        }
        return entries;
    }
};

TEST_F(MaterialsTest, EachEntryHasItsSource) {
    Json const rock = RunJson("materials rock", vag27);
    EXPECT_EQ(rock["file"], Path("c/Kvarnbok/Cfg/Stenkod.dat"));
    EXPECT_EQ(rock["place"], "CFG");
    EXPECT_EQ(rock["materials"].size(), 22U + 4);
    Json const soil = RunJson("materials soil");
    EXPECT_TRUE(soil["file"].is_null());
    EXPECT_EQ(soil["materials"].size(), 13U);
    EXPECT_EQ(FromFile("rock", vag27),
              (Words{"1 Ss Sandsten 45.0 changed 5", "4 Kv Kvartsit 0.0 changed 6",
                     "11 Gr Granit 30.0 changed 7", "22 Sg Skiffergnejs 0.0 file 8",
                     "-1 Lz Leromvandling 90.0 file 9", "-2 Kz Krosszon 135.0 file 10",
                     "-3 Hålrum  0.0 file 11"}));
    EXPECT_EQ(FromFile("fill").back(), "-2 rö Rödlera 0.0 file 15");
    EXPECT_EQ(FromFile("rock --norwegian"),
              (Words{"30 Hornfels Hornfels 45.0 changed 5", "31 Kalkspat Kalkspat 0.0 changed 7",
                     "32 Kalkstein Kalk 30.0 changed 8", "-1 Rauhaugitt Rauhaugitt 0.0 file 9"}));

    m_folder.Write("p/Stenkod.dat", "*\n*\n3\n3 Kv\n22 A\n22 B t\n-1 a\n-1 b\n*\n");
    EXPECT_EQ(FromFile("rock", "p"), (Words{"3 Sk  0.0 changed 4", "22 B t 0.0 file 6",
                                            "-1 a  0.0 file 7", "-1 b  0.0 file 8"}));
    m_folder.Write("tom/fil", "");
    ExpectPart(RunBare("materials fill --home " + Quoted("tom")).out, "there is no Stenkod.dat\n");
}

TEST_F(MaterialsTest, FindsBothWays) {
    std::tuple<char const*, char const*, Json, Json> const cases[] = {
        {"rock", "-1", -1, "Lz"},
        {"rock", "23", nullptr, nullptr},
        {"soil", "mu", 2, "mu "}, // its names have blanks
        {"rock --norwegian", "øyegneis", 63, "Øyegneis"},
    };
    for (auto const& [list, asked, number, name] : cases) {
        Json const found = {{"asked", asked}, {"number", number}, {"name", name}};
        EXPECT_EQ(RunJson("materials " + std::string(list) + " find " + asked),
                  Json::array({found}));
    }
    EXPECT_EQ(Run("materials rock find Gr Xx").status, notThere);
}

TEST_F(MaterialsTest, PointsShowsTheFileBesideWhatIsRead) {
    m_folder.Write("p/X$1.STP", "1.5\n2\n*\n4\n5\n0.1\n*\ngvy\n12.3\n\n"
                                "B\x99R1 x\n 8.1\n1 2.5\n\n9,5\n*\n*\n");
    Json const json = RunJson("points " + Quoted("p/X$1.STP"));
    EXPECT_EQ(json["gvy"], 12.3);
    EXPECT_EQ(json["header"][2], Json({{"inFile", "*"}, {"read", 0.0}}));
    EXPECT_NE(json["header"][5]["read"], 0.1);
    Json const zeros = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    EXPECT_EQ(json["points"][0],
              Json({{"name", "BÖR1"}, {"level", 8.1}, {"inFile", {1.0, 2.5}}, {"read", zeros}}));
    EXPECT_EQ(json["points"].size(), 2U);
    EXPECT_EQ(Run("points " + Quoted("p")).status, notDone);
}

} // namespace
