// project: a new project's folders, every path of one, and the states.
#include "kvarnio.h"

#include <algorithm>

namespace {

class ProjectTest : public KvarnioTest {
  protected:
    Result Create(std::string const& folder, Arguments const& more) const {
        Arguments arguments = {"project", "create", Path(folder), "--json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
    // What was made, below the test's folder.
    std::vector<std::string> Made(Result const& result) const {
        std::vector<std::string> made;
        Json const json = Json::parse(result.out);
        for (std::string const path : json["made"]) {
            std::u8string const utf8(path.begin(), path.end());
            std::u8string const relative =
                std::filesystem::path(utf8).lexically_relative(m_folder / "").generic_u8string();
            made.emplace_back(relative.begin(), relative.end());
            EXPECT_TRUE(std::filesystem::exists(utf8)) << path;
        }
        return made;
    }
};

using Paths = std::vector<std::string>;

TEST_F(ProjectTest, CreateMakesWhatIsChosenAndTellsIt) {
    m_folder.Write("mappar.txt", "FOTO\r\n\r\nPROV\\F\xC4LT\r\n");
    m_folder.Write("c/Kvarnbok/Markvida.ini", "[ARKIV]\r\nMAPPAR=" + Path("mappar.txt") + "\r\n");
    Result const fresh = Create("ny/bro", {});
    EXPECT_EQ(fresh.status, 0) << fresh.err;
    EXPECT_EQ(Made(fresh),
              (Paths{"ny", "ny/bro", "ny/bro/FOTO", "ny/bro/KVARNBOK.DBF", "ny/bro/KVARNBOK.RIT",
                     "ny/bro/PROV", "ny/bro/PROV/FÄLT", "ny/bro/STACK"}));
    EXPECT_EQ(Made(Create("grop", {"--construction", "--rock-drilling"})),
              (Paths{"grop", "grop/FALTVERK.DBF", "grop/FALTVERK.DBF/Faltverk.krd",
                     "grop/FALTVERK.RIT", "grop/KLIPPBOK.DBF", "grop/KLIPPBOK.RIT", "grop/STACK"}));
    EXPECT_EQ(Made(Create("lista", {"--folders"})),
              (Paths{"lista", "lista/FOTO", "lista/PROV", "lista/PROV/FÄLT"}));
}

TEST_F(ProjectTest, AFolderThatExistsNeedsYes) {
    std::filesystem::create_directories(m_folder / "p/STACK");
    Result const refused = Create("p", {"--drawing"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(Made(refused), Paths{});
    EXPECT_NE(refused.err.find("finns redan! Ska denna användas ändå?"), std::string::npos);
    EXPECT_NE(refused.err.find("--yes"), std::string::npos);

    Result const used = Create("p", {"--drawing", "--yes"});
    EXPECT_EQ(used.status, 0);
    EXPECT_EQ(used.err, "");
    EXPECT_EQ(Made(used), (Paths{"p/KVARNBOK.DBF", "p/KVARNBOK.RIT"}));

    m_folder.Write("p/KVARNBOK.DBS", "");
    Result const project = Create("p", {"--drawing", "--yes"});
    EXPECT_EQ(project.status, 1);
    EXPECT_NE(project.err.find("Markvida-databas finns redan"), std::string::npos);
    EXPECT_EQ(Create("p", {"--post-processing", "--yes"}).status, 0);
}

TEST_F(ProjectTest, WhatWasMadeBeforeAFailureIsTold) {
    m_folder.Write("p/KVARNBOK.RIT", ""); // where a folder is wanted: it exists, as programs look
    m_folder.Write("fil", "");
    EXPECT_EQ(Create("p", {"--drawing", "--yes"}).status, 0);

    m_folder.Write("mappar.txt", "FOTO\r\nfil\\x\r\nALDRIG\r\n");
    m_folder.Write("q/fil", "");
    m_folder.Write("c/Kvarnbok/Markvida.ini", "[ARKIV]\r\nMAPPAR=" + Path("mappar.txt") + "\r\n");
    Result const partly = Create("q", {"--folders", "--yes"});
    EXPECT_EQ(partly.status, 1);
    EXPECT_EQ(Made(partly), Paths{"q/FOTO"});
    EXPECT_NE(partly.err.find("Fel, kan EJ skapa katalog:"), std::string::npos);
    EXPECT_NE(partly.err.find("what was made stays"), std::string::npos);
    EXPECT_EQ(Create("fil/x", {}).status, 1);
    EXPECT_EQ(RunBare({"project", "create", ""}).status, 2);
}

TEST_F(ProjectTest, PathsTellsWhatExists) {
    Json const paths = Json::parse(Run({"project", "paths", "--json"}, vag27).out);
    ASSERT_EQ(paths.size(), 18U);
    EXPECT_EQ(std::count_if(paths.begin(), paths.end(),
                            [](Json const& row) { return row["exists"].get<bool>(); }),
              4); // itself, its road data, area file and parameters
    EXPECT_EQ(paths[15]["path"], Path(vag27 + "/KVARNBOK.PAR"));
    EXPECT_EQ(Run({"project", "paths"}).status, 2);
}

TEST_F(ProjectTest, StatesAreFoundByCodeAndByText) {
    EXPECT_EQ(Json::parse(Run({"project", "status", "--json"}).out).size(), 7U);
    struct {
        char const* typed;
        int code;
        char const* text;
    } const cases[] = {{"3", 3, "Levererat"},
                       {"pågående", 0, "Pågående"},
                       {"999", 999, "Status okänd"},
                       {"STATUS OKÄND", 999, "Status okänd"}};
    for (auto const& row : cases) {
        EXPECT_EQ(Json::parse(Run({"project", "status", row.typed, "--json"}).out),
                  Json({{"code", row.code}, {"text", row.text}}));
    }
    for (char const* typed : {"6", "-1", "nedlagt"}) {
        Result const result = Run({"project", "status", typed});
        EXPECT_EQ(result.status, 1) << typed;
        EXPECT_NE(result.err.find("programs take it for 999, Status okänd"), std::string::npos);
    }
}

} // namespace
