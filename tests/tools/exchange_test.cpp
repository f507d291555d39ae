// kvarnio road import and export as processes.
#include "kvarnio.h"

namespace {

class ExchangeTest : public KvarnioTest {
  protected:
    ExchangeTest() {
        std::filesystem::copy_file(std::filesystem::path(SAMPLES) / "linje.xml",
                                   m_folder / "linje.xml");
        std::filesystem::copy_file(m_folder / (vag27 + "/KVARNBOK.DBF/VAG27.VL"),
                                   m_folder / "vag27.vl");
    }
    Result Import(std::string const& from, std::string const& to,
                  std::string const& rest = {}) const {
        return RunBare("road import " + Quoted(from) + " -o " + Quoted(to) + ' ' + rest);
    }
    Result Export(std::string const& from, std::string const& to,
                  std::string const& rest = {}) const {
        return RunBare("road export " + Quoted(from) + " -o " + Quoted(to) + ' ' + rest);
    }
    bool IsThere(char const* name) const { return std::filesystem::exists(m_folder / name); }
};

TEST_F(ExchangeTest, ARoadGoesOutAndComesBackAsItWas) {
    for (char const* const name : {"vag27.xml", "vag27.dxf"}) {
        ASSERT_EQ(Export("vag27.vl", name).status, 0) << name;
        Result const result = Import(name, "back.vl");
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.err, "");
        std::string const before = m_folder.Read("vag27.vl");
        std::string const after = m_folder.Read("back.vl");
        bool const hasProfile = name == std::string("vag27.xml");
        EXPECT_EQ(after, hasProfile ? before : before.substr(0, before.find('*')));
        std::filesystem::remove(m_folder / "back.vl");
    }
}

TEST_F(ExchangeTest, WhatIsApproximatedIsToldWithItsLine) {
    Result const result = Import("linje.xml", "vag28.vl");
    EXPECT_EQ(result.status, 0);
    ExpectPart(result.out, "vag28.vl: plan of ");
    ExpectPart(result.out, " vertices within 0.000");
    ExpectPart(result.err, "line 8, Spiral \"S1\": the spiral became ");
    ExpectPart(result.err, "line 26, ParaCurve: the parabola became ");
    EXPECT_FALSE(IsThere("vag28.vl.bak"));

    // Its end, 849 m along, is where the file has it.
    ExpectPart(RunBare("road xy " + Quoted("vag28.vl") + " 849 0").out, "6580969.8648 153873.4576");
    ExpectPart(RunBare("road check " + Quoted("vag28.vl")).out, "no problems");

    Json const json = Json::parse(Import("linje.xml", "vag28.vl", "--json --station 1/000").out);
    EXPECT_EQ(json["name"], "V\xC3\xA4g 28");
    EXPECT_LE(json["largestDeviation"], 0.001);
    EXPECT_EQ(json["backup"], Path("vag28.vl.bak"));
    ExpectPart(RunBare("road xy " + Quoted("vag28.vl") + " 1849 0").out,
               "6580969.8648 153873.4576");
    EXPECT_EQ(Import("linje.xml", "none.vl", "--dry-run").status, 0);
    EXPECT_FALSE(IsThere("none.vl"));
}

TEST_F(ExchangeTest, WhatWillSurpriseThoseWhoAskTheRoadOrItsExportIsSaidAtOnce) {
    // From straight east of its centre, through the bulge 0.5.
    m_folder.Write("arc.dxf",
                   "0\nSECTION\n2\nENTITIES\n0\nARC\n8\nA\n10\n0\n20\n0\n40\n100\n50\n0\n51\n"
                   "106.260204708311957\n0\nENDSEC\n0\nEOF\n");
    Result const result = Import("arc.dxf", "arc.vl");
    EXPECT_EQ(result.status, 0);
    ExpectPart(result.err, "arc.vl:1: the arc starts straight north, east, south or west");
    ExpectPart(m_folder.Read("arc.vl"), "0.0000 100.0000 0.5000 0.0000 1 $\r\n96.0000 -28.0000 ");

    m_folder.Write("one.vl", "0 0 0 0 1 $\r\n100 0 0 100\r\n*\r\nProfil\r\n*\r\n5 50 0\r\n");
    for (char const* const name : {"one.xml", "one.csv", "one.geojson"}) {
        ExpectPart(Export("one.vl", name).err, "the profile has one vertex alone: it is left out");
    }
}

TEST_F(ExchangeTest, NothingIsWrittenOfWhatCannotBeTakenOver) {
    m_folder.Write("cut.xml", m_folder.Read("linje.xml").substr(0, 1500));
    m_folder.Write("other.txt", "hej");
    m_folder.Write("utf16.dxf", std::string_view("\xFF\xFE\x30\0", 4));
    std::tuple<char const*, char const*, int, char const*> const cases[] = {
        {"cut.xml", "", 1, "cut.xml: line "},
        {"linje.xml", "--exact", 1, "line 8, Spiral \"S1\": a road file has no spirals"},
        {"linje.xml", "--name V", 1, "there is no alignment \"V\"; there are \"V\xC3\xA4g 28\""},
        {"linje.xml", "--layer L", wrongUsage, "--layer is not for landxml"},
        {"linje.xml", "--station x", wrongUsage, "--station"},
        {"linje.xml", "--tolerance 0", wrongUsage, "--tolerance"},
        {"linje.xml", "--format geojson", wrongUsage, "geojson is a format to write"},
        {"utf16.dxf", "", 1, "UTF-16"},
        {"other.txt", "", wrongUsage, "csv is a format to write"},
        {"other.txt", "--format dxf", 1, "other.txt: "},
        {"missing.xml", "", 1, "there is no file"},
    };
    for (auto const& [file, rest, status, why] : cases) {
        SCOPED_TRACE(std::string(file) + ' ' + rest);
        Result const result = Import(file, "none.vl", rest);
        EXPECT_EQ(result.status, status);
        ExpectPart(result.err, why);
        EXPECT_EQ(result.out, "");
        EXPECT_FALSE(IsThere("none.vl"));
    }
    std::string const before = m_folder.Read("linje.xml");
    EXPECT_EQ(Import("linje.xml", "linje.xml").status, wrongUsage);
    EXPECT_EQ(Export("vag27.vl", "vag27.vl", "--format dxf").status, wrongUsage);
    EXPECT_EQ(Export("vag27.vl", "vag27.svg").status, wrongUsage);
    EXPECT_EQ(Export("vag27.vl", "out.dxf", "--crs EPSG:3006").status, wrongUsage);
    EXPECT_EQ(m_folder.Read("linje.xml"), before);
}

TEST_F(ExchangeTest, TablesAndGeoJsonHaveTheRoadsCoordinates) {
    ASSERT_EQ(Export("vag27.vl", "out.csv", "--interval 100 --decimal-comma").status, 0);
    std::string const table = m_folder.Read("out.csv");
    std::string expected = RunBare("road xy " + Quoted("vag27.vl") + " 300 0").out;
    std::replace(expected.begin(), expected.end(), '.', ',');
    std::replace(expected.begin(), expected.end(), ' ', ';');
    ExpectPart(table, "\n300,0000;" + expected.substr(0, expected.find('\n')));

    ASSERT_EQ(Export("vag27.vl", "out.geojson", "--crs EPSG:3006").status, 0);
    Json const json = Json::parse(m_folder.Read("out.geojson"));
    EXPECT_EQ(json["crs"]["properties"]["name"], "urn:ogc:def:crs:EPSG::3006");
    EXPECT_GT(json["features"].size(), 3U);
}

TEST_F(ExchangeTest, InfoListsWhatAnotherProgramsFileHolds) {
    Result const result = RunBare("road info " + Quoted("linje.xml"));
    ExpectPart(result.out, "ALIGNMENT  LINES  CURVES  SPIRALS  PROFILES");
    ExpectPart(result.out, "V\xC3\xA4g 28     3      2       4        V\xC3\xA4g 28 profil");
    ASSERT_EQ(Export("vag27.vl", "vag27.dxf").status, 0);
    Json const json = Json::parse(RunBare("road info --json " + Quoted("vag27.dxf")).out);
    EXPECT_EQ(json["alignments"][0]["layer"], "VAGLINJE");
    // The ticks are lines too, and would bury the one that is looked for.
    std::string const table = RunBare("road info " + Quoted("vag27.dxf")).out;
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 9) << table;
    ExpectPart(table, "and " + std::to_string(json["alignments"].size() - 7) +
                          " more                --json lists all");
}

} // namespace
