// local: a project's own copies of the settings and code files.
#include "kvarnio.h"

namespace {

class LocalTest : public KvarnioTest {
  protected:
    Result Local(Arguments arguments, std::string const& project) const {
        arguments.insert(arguments.begin(), "local");
        return Run(arguments, project);
    }
    // What is said of each file, in the set's order.
    static std::vector<std::string> Said(Result const& result, char const* what) {
        std::vector<std::string> said;
        for (Json const& row : Json::parse(result.out)) {
            said.push_back(row[what]);
        }
        return said;
    }
    std::string Shared(char const* name) const {
        return m_folder.Read(std::string("c/Kvarnbok/Cfg/") + name);
    }
};

using Words = std::vector<std::string>;

TEST_F(LocalTest, StatusShowsTheCopyInForce) {
    m_folder.Write("c/Kvarnbok/Stenkod.dat", "1 Granit\r\n");
    for (char const* name : {"JB23.PAR", "Stenkod.dat", "StenkodN.dat"}) {
        std::filesystem::remove(m_folder / "c/Kvarnbok/Cfg" / name);
    }
    EXPECT_EQ(Said(Local({"status", "--json"}, vag27), "place"),
              (Words{"project", "project", "project", "main", "none", "default", "project"}));
    EXPECT_EQ(Said(Local({"status", "--rock", "--json"}, vag27), "place"), Words{"CFG"});
    std::string const table = Local({"status"}, vag27).out;
    EXPECT_NE(table.find("Programs will copy what it lacks: Stenkod.dat, JB23.PAR.\n"),
              std::string::npos)
        << table;
    EXPECT_FALSE(std::filesystem::exists(m_folder / vag27 / "Stenkod.dat")); // looking copies none
}

TEST_F(LocalTest, CreateAndRemoveTellWhatTheyDid) {
    m_folder.Write("p/KODFIL.DAT", "*\r\nA egen\r\n*\r\n");
    m_folder.Write("p/KVARNBOK.PAR", "HSKALA=1\r\n");
    std::filesystem::remove(m_folder / "c/Kvarnbok/Cfg/LINKOD.PAR");
    std::filesystem::remove(m_folder / "c/Kvarnbok/Cfg/StenkodN.dat");
    EXPECT_EQ(Said(Local({"create", "--json"}, "p"), "result"),
              (Words{"kept", "created empty", "kept", "created", "none", "created", "created"}));
    EXPECT_EQ(m_folder.Read("p/LINKOD.PAR"), "*\r\n");
    EXPECT_EQ(Said(Local({"create", "--overwrite", "--json"}, "p"), "result"),
              (Words{"kept", "replaced", "replaced", "kept", "none", "replaced", "replaced"}));
    EXPECT_EQ(m_folder.Read("p/KODFIL.DAT"), Shared("KODFIL.DAT"));
    EXPECT_EQ(m_folder.Read("p/KVARNBOK.PAR"), "HSKALA=1\r\n");

    EXPECT_EQ(Local({"create", "--rock"}, "p").out, Path("p/KLIPPBOK.PAR") +
                                                        ": created, a copy of " +
                                                        Path("c/Kvarnbok/Cfg/KLIPPBOK.PAR") + "\n");
    EXPECT_EQ(Local({"remove"}, "p").status, 0);
    Result const again = Local({"remove"}, "p");
    EXPECT_EQ(again.status, 1);
    EXPECT_NE(again.err.find("nothing to remove"), std::string::npos);
    EXPECT_EQ(m_folder.Read("p/KLIPPBOK.PAR"), Shared("KLIPPBOK.PAR")); // kept apart
    EXPECT_EQ(Local({"remove", "--rock"}, "p").status, 0);
    EXPECT_TRUE(std::filesystem::is_empty(m_folder / "p"));
    EXPECT_EQ(Run({"local", "create"}).status, 2); // in which project?
}

TEST_F(LocalTest, WhatFailedIsToldAndTheOthersAreMade) {
    std::filesystem::create_directories(m_folder / "p/KODFIL.DAT");
    Result const result = Local({"create", "--overwrite", "--json"}, "p");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(Said(result, "result"),
              (Words{"created", "created", "failed", "created", "created", "created", "created"}));
}

} // namespace
