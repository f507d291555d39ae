// project: a new project's folders, every path of one, and the states.
#include "kvarnio.h"

namespace {

using namespace nlohmann::literals;

class ProjectTest : public KvarnioTest {
  protected:
    Result Create(std::string const& folder, std::string const& chosen) const {
        return Run("project create " + Quoted(folder) + " --json " + chosen);
    }
    // What was made, below the test's folder.
    Words Made(Result const& result) const {
        Words made;
        Json const json = Json::parse(result.out);
        for (std::string path : json["made"]) {
            EXPECT_TRUE(std::filesystem::exists(std::u8string(path.begin(), path.end()))) << path;
            std::replace(path.begin(), path.end(), '\\', '/');
            made.push_back(path.substr(Path("").size()));
        }
        return made;
    }
    // The folders that every new project gets.
    void ListFolders(char const* folders) const {
        m_folder.Write("mappar.txt", folders);
        m_folder.Write("c/Kvarnbok/Markvida.ini",
                       "[ARKIV]\r\nMAPPAR=" + Path("mappar.txt") + "\r\n");
    }
};

TEST_F(ProjectTest, CreateMakesWhatIsChosenAndTellsIt) {
    ListFolders("FOTO\r\n\r\nPROV\\F\xC4LT\r\n");
    std::tuple<char const*, char const*, Words> const cases[] = {
        {"ny/bro",
         "",
         {"ny", "ny/bro", "ny/bro/FOTO", "ny/bro/KVARNBOK.DBF", "ny/bro/KVARNBOK.RIT",
          "ny/bro/PROV", "ny/bro/PROV/FÄLT", "ny/bro/STACK"}},
        {"grop",
         "--construction --rock-drilling --post-processing",
         {"grop", "grop/DAMMSBOK.RIT", "grop/FALTVERK.DBF", "grop/FALTVERK.DBF/Faltverk.krd",
          "grop/FALTVERK.RIT", "grop/KLIPPBOK.DBF", "grop/KLIPPBOK.RIT", "grop/SKOGSBOK.DBF",
          "grop/SKOGSBOK.RIT", "grop/STACK"}},
        {"lista", "--folders", {"lista", "lista/FOTO", "lista/PROV", "lista/PROV/FÄLT"}},
    };
    for (auto const& [folder, chosen, made] : cases) {
        Result const result = Create(folder, chosen);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(Made(result), made);
    }
}

TEST_F(ProjectTest, AFolderThatExistsNeedsYes) {
    m_folder.Write("p/KVARNBOK.RIT", ""); // where a folder is wanted: it exists, as programs look
    Result const refused = Create("p", "--drawing");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(Made(refused), Words{});
    ExpectPart(refused.err, "finns redan! Ska denna användas ändå?");
    ExpectPart(refused.err, "--yes");
    Result const used = Create("p", "--drawing --yes");
    EXPECT_EQ(used.status, 0);
    EXPECT_EQ(used.err, "");
    EXPECT_EQ(Made(used), (Words{"p/KVARNBOK.DBF", "p/STACK"}));
    m_folder.Write("p/KVARNBOK.DBS", ""); // of a project, which no answer allows to use
    EXPECT_EQ(Create("p", "--drawing --yes").status, notDone);
}

TEST_F(ProjectTest, WhatWasMadeBeforeAFailureIsTold) {
    ListFolders("FOTO\r\nfil\\x\r\nALDRIG\r\n");
    m_folder.Write("q/fil", "");
    Result const partly = Create("q", "--folders --yes");
    EXPECT_EQ(partly.status, notDone);
    EXPECT_EQ(Made(partly), Words{"q/FOTO"});
    ExpectPart(partly.err, "Fel, kan EJ skapa katalog:");
    ExpectPart(partly.err, "what was made stays");
    EXPECT_EQ(Create("q/fil/x", "").status, notDone);
    EXPECT_EQ(RunBare("project create ''").status, wrongUsage);
}

TEST_F(ProjectTest, PathsTellsWhatExists) {
    Json const paths = RunJson("project paths", vag27);
    ASSERT_EQ(paths.size(), 18U);
    EXPECT_EQ(std::count_if(paths.begin(), paths.end(),
                            [](Json const& row) { return row["exists"].get<bool>(); }),
              4); // itself, its road data, area file and parameters
    EXPECT_EQ(paths[15]["path"], Path(vag27 + "/KVARNBOK.PAR"));
    EXPECT_EQ(Run("project paths").status, wrongUsage);
}

TEST_F(ProjectTest, StatesAreFoundByCodeAndByText) {
    EXPECT_EQ(RunJson("project status").size(), 7U);
    EXPECT_EQ(RunJson("project status 3"), Json({{"code", 3}, {"text", "Levererat"}}));
    EXPECT_EQ(RunJson("project status 'STATUS OKÄND'"),
              Json({{"code", 999}, {"text", "Status okänd"}}));
    char const* const unknown = "programs take it for 999, Status okänd";
    ExpectRefused(
        {{"project status -1", notThere, unknown}, {"project status nedlagt", notThere, unknown}});
}

TEST_F(ProjectTest, AFormatByItsName) {
    EXPECT_EQ(RunJson("formats").size(), 9U);
    EXPECT_EQ(RunJson("formats A3XL"), R"({"index": 7, "name": "A3XL",
        "drawingArea": {"width": 774, "height": 250}, "frame": {"width": 794, "height": 280},
        "sheet": {"width": 843, "height": 297}})"_json);
    EXPECT_EQ(Run("formats a3").status, notThere);
}

} // namespace
