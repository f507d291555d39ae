#include <algorithm>

#include "support/projekt.h"

namespace {

constexpr char const* all[] = {"KVARNBOK.PAR", "LINKOD.PAR", "KODFIL.DAT",  "Stenkod.dat",
                               "StenkodN.dat", "JB23.PAR",   "MILJKOD.DAT", "KLIPPBOK.PAR"};

class LokalaFilerTest : public ProjektTest {
  protected:
    // The project's files with their content, in the order of their names.
    std::string Project() const {
        std::vector<std::string> lines;
        for (auto const& entry : std::filesystem::directory_iterator(m_folder / "projekt")) {
            std::string const name = entry.path().filename().string();
            lines.push_back(name + (entry.is_directory() ? " (folder)" : '=' + Read(name)) + '\n');
        }
        std::sort(lines.begin(), lines.end());
        std::string text;
        for (std::string const& line : lines) {
            text += line;
        }
        return text;
    }
    void Fill(std::string const& folder, std::string const& content) const {
        for (std::string const name : all) {
            m_folder.Write((std::string(folder) += '/') += name, content);
        }
    }
};

TEST_F(LokalaFilerTest, CfgThenMainThenPlaceholder) {
    m_folder.Write("cfg/KODFIL.DAT", "cfg");
    m_folder.Write("huvud/KODFIL.DAT", "huvud");
    m_folder.Write("huvud/Stenkod.dat", "huvud");
    EXPECT_EQ(m_inst.CreateLokalaFiler(0, 1), 0);
    EXPECT_EQ(Project(), "JB23.PAR=*\r\n\n"
                         "KODFIL.DAT=cfg\n"
                         "KVARNBOK.PAR=*\r\n\n"
                         "LINKOD.PAR=*\r\n\n"
                         "MILJKOD.DAT=*\r\n*\r\n*\r\n*\r\n*\r\n\n"
                         "Stenkod.dat=huvud\n");
}

TEST_F(LokalaFilerTest, OverwritingReplacesTheFourCodeFiles) {
    Fill("cfg", "delad");
    Fill("projekt", "egen");
    std::string const before = Project();
    m_inst.CreateLokalaFiler(0, 0);
    m_inst.CreateLokalStenFil(1);
    EXPECT_EQ(Project(), before);
    m_inst.CreateLokalaFiler(1, 1);
    for (std::string const name : all) {
        bool const replaced = name == "LINKOD.PAR" || name == "KODFIL.DAT" || name == "JB23.PAR" ||
                              name == "MILJKOD.DAT";
        EXPECT_EQ(Read(name), replaced ? "delad" : "egen") << name;
    }
    std::filesystem::remove(m_folder / "cfg/KODFIL.DAT");
    m_inst.CreateLokalaFiler(1, 0); // nothing to copy: emptied
    EXPECT_EQ(Read("KODFIL.DAT"), "*\r\n*\r\n");
}

TEST_F(LokalaFilerTest, AProjectIsLocalByItsParameterFile) {
    Fill("cfg", "delad");
    Write("LINKOD.PAR", "egen");
    EXPECT_EQ(m_inst.ProjInst(), 0);
    EXPECT_EQ(m_inst.ProjStenInst(), 0);
    EXPECT_EQ(Project(), "LINKOD.PAR=egen\n");
    m_inst.CreateLokalStenFil(0);
    EXPECT_EQ(m_inst.ProjStenInst(), 1);
    EXPECT_EQ(Project(), "KLIPPBOK.PAR=delad\nLINKOD.PAR=egen\n");
    Write("KVARNBOK.PAR", "egen");
    EXPECT_EQ(m_inst.ProjInst(), 1); // completes the set
    EXPECT_EQ(Project(), "JB23.PAR=delad\nKLIPPBOK.PAR=delad\nKODFIL.DAT=delad\n"
                         "KVARNBOK.PAR=egen\nLINKOD.PAR=egen\nMILJKOD.DAT=delad\n"
                         "Stenkod.dat=delad\nStenkodN.dat=delad\n");
    EXPECT_EQ(m_inst.RemoveLokalaFiler(), 0);
    EXPECT_EQ(Project(), "KLIPPBOK.PAR=delad\n");
    EXPECT_EQ(m_inst.RemoveLokalaFiler(), 0);
    EXPECT_EQ(m_inst.RemoveLokalStenFil(), 0);
    EXPECT_EQ(Project(), "");
}

TEST_F(LokalaFilerTest, AFileThatFailsDoesNotStopTheOthers) {
    Fill("cfg", "delad");
    std::filesystem::remove(m_folder / "cfg/LINKOD.PAR");
    std::filesystem::create_directory(m_folder / "cfg/LINKOD.PAR"); // there, and no file
    Block("KODFIL.DAT");
    m_inst.CreateLokalaFiler(1, 1);
    EXPECT_EQ(Project(), "JB23.PAR=delad\nKODFIL.DAT (folder)\nKVARNBOK.PAR=delad\n"
                         "MILJKOD.DAT=delad\nStenkod.dat=delad\nStenkodN.dat=delad\n");
    m_inst.RemoveLokalaFiler();
    EXPECT_EQ(Project(), "KODFIL.DAT (folder)\n");

    CKvarnInst utanProjekt;
    CProjPath ingen;
    utanProjekt.Init(&m_ini, &ingen);
    EXPECT_EQ(utanProjekt.CreateLokalaFiler(1, 1), 0);
    EXPECT_EQ(utanProjekt.ProjInst(), 0);
    EXPECT_EQ(utanProjekt.RemoveLokalaFiler(), 0);
    EXPECT_EQ(m_folder.Read("cfg/KODFIL.DAT"), "delad");
}

#if !defined(_WIN32)

TEST_F(LokalaFilerTest, ACopyThatFailsInTheMiddleLeavesNothing) {
    Fill("cfg", "delad");
    for (char const* const name : {"LINKOD.PAR", "Stenkod.dat"}) {
        std::filesystem::remove(m_folder / ("cfg/" + std::string(name)));
        std::filesystem::create_symlink("/proc/self/mem", m_folder / ("cfg/" + std::string(name)));
    }
    Write("LINKOD.PAR", "egen");
    m_inst.CreateLokalaFiler(1, 0);
    EXPECT_EQ(Project(), "JB23.PAR=delad\nKODFIL.DAT=delad\nLINKOD.PAR=egen\n"
                         "MILJKOD.DAT=delad\nStenkodN.dat=delad\n");
}

#endif

} // namespace
