// local: a project's own copies of the settings and code files.
#include "kvarnio.h"

namespace {

class LocalTest : public KvarnioTest {
  protected:
    // What a subcommand says of each file, in the set's order.
    Words Said(char const* what, std::string const& line, std::string const& project) const {
        Words said;
        for (Json const& row : RunJson("local " + line, project)) {
            said.push_back(row[what]);
        }
        return said;
    }
};

TEST_F(LocalTest, StatusShowsTheCopyInForce) {
    m_folder.Write("c/Kvarnbok/Stenkod.dat", "1 Granit\r\n");
    for (char const* name : {"JB23.PAR", "Stenkod.dat", "StenkodN.dat"}) {
        std::filesystem::remove(m_folder / "c/Kvarnbok/Cfg" / name);
    }
    EXPECT_EQ(Said("place", "status", vag27),
              (Words{"project", "project", "project", "main", "none", "default", "project"}));
    EXPECT_EQ(Said("place", "status --rock", vag27), Words{"CFG"});
    ExpectPart(Run("local status", vag27).out,
               "Programs will copy what it lacks: Stenkod.dat, JB23.PAR.\n");
    EXPECT_FALSE(std::filesystem::exists(m_folder / vag27 / "Stenkod.dat")); // looking copies none
}

TEST_F(LocalTest, CreateAndRemoveTellWhatTheyDid) {
    m_folder.Write("p/KODFIL.DAT", "*\r\nA egen\r\n*\r\n");
    m_folder.Write("p/KVARNBOK.PAR", "HSKALA=1\r\n");
    std::filesystem::remove(m_folder / "c/Kvarnbok/Cfg/LINKOD.PAR");
    std::filesystem::remove(m_folder / "c/Kvarnbok/Cfg/StenkodN.dat");
    EXPECT_EQ(Said("result", "create", "p"),
              (Words{"kept", "created empty", "kept", "created", "none", "created", "created"}));
    EXPECT_EQ(Said("result", "create --overwrite", "p"),
              (Words{"kept", "replaced", "replaced", "kept", "none", "replaced", "replaced"}));
    EXPECT_EQ(Run("local create --rock", "p").out, Path("p/KLIPPBOK.PAR") +
                                                       ": created, a copy of " +
                                                       Path("c/Kvarnbok/Cfg/KLIPPBOK.PAR") + "\n");
    ExpectRefused({{"local remove", wrongUsage, "--yes removes 6 files"}}, "p");
    EXPECT_EQ(Said("result", "remove --dry-run", "p"), Words(6, "removed"));
    EXPECT_EQ(Run("local remove --yes", "p").status, 0);
    ExpectRefused({{"local remove --yes", notThere, "nothing to remove"}}, "p");
    EXPECT_EQ(Run("local remove --rock --yes", "p").status, 0); // kept apart
    EXPECT_EQ(Run("local create").status, wrongUsage);          // in which project?

    // What failed is told, and the others are made.
    std::filesystem::create_directories(m_folder / "p/KODFIL.DAT");
    EXPECT_EQ(Said("result", "create --overwrite", "p")[2], "failed");
    EXPECT_EQ(Run("local create --overwrite", "p").status, notDone);
}

} // namespace
