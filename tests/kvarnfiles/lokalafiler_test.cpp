#include <map>

#include "support/projekt.h"

namespace {

using Files = std::map<std::string, std::string>;

class LokalaFilerTest : public ProjektTest {
  protected:
    // The project's files with their content; a folder has none.
    Files Project() const {
        Files files;
        for (auto const& entry : std::filesystem::directory_iterator(m_folder / "projekt")) {
            std::string const name = entry.path().filename().string();
            files[name] = entry.is_directory() ? "folder" : Read(name);
        }
        return files;
    }
    void Fill(std::string const& folder, std::string const& content) const {
        for (std::string const name : {"KVARNBOK.PAR", "LINKOD.PAR", "KODFIL.DAT", "Stenkod.dat",
                                       "StenkodN.dat", "JB23.PAR", "MILJKOD.DAT", "KLIPPBOK.PAR"}) {
            m_folder.Write(std::string(folder).append("/").append(name), content);
        }
    }
};

TEST_F(LokalaFilerTest, CfgThenMainThenPlaceholder) {
    m_folder.Write("cfg/KODFIL.DAT", "cfg");
    m_folder.Write("huvud/KODFIL.DAT", "huvud");
    m_folder.Write("huvud/Stenkod.dat", "huvud");
    EXPECT_EQ(m_inst.CreateLokalaFiler(0, 1), 0);
    EXPECT_EQ(Project(), (Files{{"JB23.PAR", "*\r\n"},
                                {"KODFIL.DAT", "cfg"},
                                {"KVARNBOK.PAR", "*\r\n"},
                                {"LINKOD.PAR", "*\r\n"},
                                {"MILJKOD.DAT", "*\r\n*\r\n*\r\n*\r\n*\r\n"},
                                {"Stenkod.dat", "huvud"}}));
}

TEST_F(LokalaFilerTest, OverwritingReplacesTheFourCodeFiles) {
    Fill("cfg", "delad");
    Fill("projekt", "egen");
    Files expected = Project();
    m_inst.CreateLokalaFiler(0, 0);
    m_inst.CreateLokalStenFil(1);
    EXPECT_EQ(Project(), expected);
    m_inst.CreateLokalaFiler(1, 1);
    for (char const* const name : {"LINKOD.PAR", "KODFIL.DAT", "JB23.PAR", "MILJKOD.DAT"}) {
        expected[name] = "delad";
    }
    EXPECT_EQ(Project(), expected);
    std::filesystem::remove(m_folder / "cfg/KODFIL.DAT");
    m_inst.CreateLokalaFiler(1, 0); // nothing to copy: emptied
    EXPECT_EQ(Read("KODFIL.DAT"), "*\r\n*\r\n");
}

TEST_F(LokalaFilerTest, AProjectIsLocalByItsParameterFile) {
    Fill("cfg", "delad");
    Write("LINKOD.PAR", "egen");
    EXPECT_EQ(m_inst.ProjInst(), 0);
    EXPECT_EQ(m_inst.ProjStenInst(), 0);
    m_inst.CreateLokalStenFil(0);
    EXPECT_EQ(m_inst.ProjStenInst(), 1);
    EXPECT_EQ(Project(), (Files{{"KLIPPBOK.PAR", "delad"}, {"LINKOD.PAR", "egen"}}));
    Write("KVARNBOK.PAR", "egen");
    EXPECT_EQ(m_inst.ProjInst(), 1); // completes the set
    EXPECT_EQ(Project().size(), 8U);
    EXPECT_EQ(Read("LINKOD.PAR") + Read("StenkodN.dat"), "egendelad");
    EXPECT_EQ(m_inst.RemoveLokalaFiler(), 0);
    EXPECT_EQ(Project(), (Files{{"KLIPPBOK.PAR", "delad"}}));
    EXPECT_EQ(m_inst.RemoveLokalStenFil(), 0);
    EXPECT_EQ(Project(), Files());
}

TEST_F(LokalaFilerTest, AFileThatFailsDoesNotStopTheOthers) {
    Fill("cfg", "delad");
    std::filesystem::remove(m_folder / "cfg/LINKOD.PAR");
    std::filesystem::create_directory(m_folder / "cfg/LINKOD.PAR"); // there, and no file
    Block("KODFIL.DAT");
    Files expected = {{"JB23.PAR", "delad"},     {"KODFIL.DAT", "folder"},
                      {"KVARNBOK.PAR", "delad"}, {"MILJKOD.DAT", "delad"},
                      {"Stenkod.dat", "delad"},  {"StenkodN.dat", "delad"}};
#if !defined(_WIN32)
    // One that fails in the middle leaves nothing, and does not harm the one to be replaced.
    Write("JB23.PAR", "egen");
    for (char const* const name : {"Stenkod.dat", "JB23.PAR"}) {
        std::filesystem::remove(m_folder / "cfg" / name);
        std::filesystem::create_symlink("/proc/self/mem", m_folder / "cfg" / name);
    }
    expected.erase("Stenkod.dat");
    expected["JB23.PAR"] = "egen";
#endif
    m_inst.CreateLokalaFiler(1, 1);
    EXPECT_EQ(Project(), expected);
    m_inst.RemoveLokalaFiler();
    EXPECT_EQ(Project(), (Files{{"KODFIL.DAT", "folder"}}));

    CKvarnInst utanProjekt;
    CProjPath ingen;
    utanProjekt.Init(&m_ini, &ingen);
    EXPECT_EQ(utanProjekt.CreateLokalaFiler(1, 1), 0);
    EXPECT_EQ(utanProjekt.ProjInst(), 0);
    EXPECT_EQ(utanProjekt.RemoveLokalaFiler(), 0);
    EXPECT_EQ(m_folder.Read("cfg/KODFIL.DAT"), "delad");
}

} // namespace
