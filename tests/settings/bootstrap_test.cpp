// The first start of a user, and the later ones, on the host's registry and real folders.
#include <gtest/gtest.h>

#include "settings/autoini.h"
#include "support/boxes.h"
#include "support/installation.h"

namespace {

constexpr char const* oldWay = "Markvida.ConfigSwitcher did not set data. \n"
                               "I will do it the old way (prior to 15.3.*)";
constexpr char const* noResult = "Can not find result from Markvida.ConfigSwitcher.exe";

class BootstrapTest : public testing::Test {
  protected:
    static std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (ShownBox const& box : Boxes::Shown()) {
            texts.push_back(box.text);
            EXPECT_EQ(box.style, 48U);
        }
        return texts;
    }
    int Start(int ver) {
        Boxes::Shown().clear();
        return m_ini.InitXPWay(ver, "AX", m_inst.Path("Prog").c_str());
    }
    std::string Key(char const* key) { return m_ini.ReadKey("SYSTEM", key).GetString(); }
    // Installs R20 in the program folder, with settings of all users.
    void InstallWithAllUsers() {
        m_inst.Install("R20", m_inst.Path("PROG") + "\\");
        m_inst.Write(Installation::AllUsers("Markvida.ini"),
                     "[SYSTEM]\r\nACADEXE=old\r\nACADEXEA=a.exe\r\nMSG=C:\\no folder\\x.msg\r\n");
        m_inst.Write(Installation::AllUsers("Kvarnbok.par"), "A=1\r\n");
    }
    void Switcher(std::string const& ini, std::string const& release) {
        std::filesystem::copy_file(CONFIG_SWITCHER,
                                   m_inst.File("Prog\\Markvida.ConfigSwitcher.exe"));
        SetVariable("SWITCHER_INI", ini);
        SetVariable("SWITCHER_RELEASE", release);
    }
    ~BootstrapTest() override {
        SetVariable("SWITCHER_INI", "");
        SetVariable("SWITCHER_RELEASE", "");
    }

    Installation m_inst;
    Boxes m_boxes;
    CAutoIni m_ini;
};

TEST_F(BootstrapTest, WithoutTheReleaseNothingHappens) {
    m_inst.Install("R19", m_inst.Path("Prog"));
    std::strcpy(m_ini.m_paket, "before");
    EXPECT_EQ(Start(17), -1);
    EXPECT_EQ(Start(20), -1);
    EXPECT_EQ(Start(0), -1); // the chosen release is 20
    EXPECT_EQ(m_ini.m_lage, 0);
    EXPECT_STREQ(m_ini.m_paket, "");
    EXPECT_TRUE(Boxes::Shown().empty());
    EXPECT_TRUE(std::filesystem::is_empty(m_inst.File("Data")));
}

TEST_F(BootstrapTest, AnExplicitReleaseReadsTheUsersSettings) {
    m_inst.Install("R20", "C:\\R20\\");
    EXPECT_EQ(Start(20), -2);
    EXPECT_EQ(Texts(), std::vector<std::string>{
                           "Fel! Hittar inte data f\xF6r Markvida f\xF6r aktuell anv\xE4ndare. "
                           "Starta upp via Samlaren!"});
    EXPECT_EQ(Texts().front(), MessageBuffer());
    m_inst.Install("RELEASE", "C:\\Release"); // asked before
    m_inst.Write("Script\\x", "");
    std::string const settings =
        "[SYSTEM]\r\nDOCEXE=doc.exe\r\nSCRIPTPATH= " + m_inst.Path("Script") + "\\\r\n";
    m_inst.Write(Installation::User("Markvida.ini"), settings);
    CWinApp application;
    EXPECT_EQ(Start(20), 0);
    EXPECT_EQ(m_ini.m_lage, 1);
    EXPECT_EQ(m_ini.m_huvudKat, "C:\\Release");
    EXPECT_EQ(m_ini.m_cfgKat + "\\", m_inst.Path(Installation::User("")).c_str());
    EXPECT_EQ(m_ini.m_iniFil, m_inst.Path(Installation::User("Markvida.ini")).c_str());
    EXPECT_EQ(m_ini.m_docExe, "doc.exe");
    EXPECT_EQ(m_ini.m_scriptKat, m_inst.Path("Script").c_str());
    EXPECT_STREQ(application.m_pszProfileName, m_ini.m_iniFil.GetString());
    EXPECT_EQ(m_inst.Read(Installation::User("Markvida.ini")), settings); // nothing is written
    EXPECT_EQ(Start(19), -1);
}

TEST_F(BootstrapTest, TheRunningProgramsReleaseIsFoundByItsFolder) {
    m_inst.Choose("19");
    m_inst.Install("DIST", "C:\\elsewhere");
    m_inst.Install("R19", m_inst.Path("PROG") + "\\");
    m_inst.Set(HKEY_LOCAL_MACHINE, Installation::Group("R19"), "Package", std::string(200, 'p'));
    EXPECT_EQ(Start(1), -2); // never runs the switcher
    m_inst.Write(Installation::User("Markvida.ini", "R19"), "[SYSTEM]\r\nMSG=C:\\no\\x.msg\r\n");
    CWinApp application;
    EXPECT_EQ(Start(1), 0);
    EXPECT_EQ(m_ini.m_lage, 0); // through the application object
    EXPECT_EQ(std::string(m_ini.m_paket), std::string(127, 'p'));
    EXPECT_EQ(m_ini.m_huvudKat, m_inst.Path("Prog").c_str());
    // A folder that is gone is replaced, also in the file.
    std::string const msg = m_inst.Path("Data\\Orsakor\\Vallentra\\Markvida\\Kvarnbok.msg");
    EXPECT_EQ(m_ini.m_medKat, msg.c_str());
    EXPECT_EQ(Key("MSG"), msg);
    EXPECT_EQ(Key("ACADVER"), ""); // not seeded
}

TEST_F(BootstrapTest, TheFirstStartCopiesTheSettingsOfAllUsers) {
    InstallWithAllUsers();
    EXPECT_EQ(Start(0), 0);
    ASSERT_EQ(Texts().size(), 3U); // the first names the missing switcher
    EXPECT_EQ(Texts()[1], noResult);
    EXPECT_EQ(Texts()[2], oldWay);
    for (ShownBox const& box : Boxes::Shown()) {
        EXPECT_EQ(box.caption, "IniProfile");
    }
    EXPECT_EQ(m_ini.m_lage, 1);
    EXPECT_EQ(m_inst.Read(Installation::User("Kvarnbok.par")), "A=1\r\n");
    std::string const data = m_inst.Path("Data\\Orsakor\\Vallentra\\Markvida");
    EXPECT_EQ(Key("MSG"), data + "\\Kvarnbok.msg");
    EXPECT_EQ(Key("SCRIPTPATH"), data);
    EXPECT_EQ(Key("ACADVER"), "20");
    EXPECT_EQ(m_ini.m_acadExe, "a.exe");
    EXPECT_EQ(Start(0), 0); // later starts find it at once
    EXPECT_TRUE(Boxes::Shown().empty());
}

TEST_F(BootstrapTest, TheSwitcherLeavesSettingsAndChoosesTheRelease) {
    InstallWithAllUsers();
    m_inst.Choose("20");
    m_inst.Write(Installation::User("x", "R19"), "");
    Switcher(m_inst.File(Installation::User("Markvida.ini", "R19")).string(), "19");
    EXPECT_EQ(Start(0), 0);
    EXPECT_TRUE(Boxes::Shown().empty());
    EXPECT_EQ(m_ini.m_iniFil, m_inst.Path(Installation::User("Markvida.ini", "R19")).c_str());
    EXPECT_EQ(m_ini.m_docExe, "switched");
    EXPECT_EQ(m_ini.m_acadVer, 19);
    EXPECT_EQ(m_ini.m_acadExe, "b.exe");
    EXPECT_FALSE(std::filesystem::exists(m_inst.File(Installation::User("Kvarnbok.par", "R19"))));
}

TEST_F(BootstrapTest, AReleaseThatIsNoNumberIsTheLatest) {
    InstallWithAllUsers();
    m_inst.Choose("none");
    m_inst.Write(Installation::User("Markvida.ini"), "[SYSTEM]\r\n");
    EXPECT_EQ(Start(0), 0);
    EXPECT_EQ(m_ini.m_iniFil, m_inst.Path(Installation::User("Markvida.ini")).c_str());
}

TEST_F(BootstrapTest, ASwitcherThatFailsIsTold) {
    InstallWithAllUsers();
    Switcher("", "");
    EXPECT_EQ(Start(0), 0); // it left nothing
    EXPECT_EQ(Texts(), (std::vector<std::string>{noResult, oldWay}));
    std::filesystem::remove_all(m_inst.File("Data\\Orsakor"));
    std::filesystem::remove(m_inst.File("Prog\\Markvida.ConfigSwitcher.exe"));
    m_inst.Write("Prog\\Markvida.ConfigSwitcher.exe", "no program");
    EXPECT_EQ(Start(0), 0);
    EXPECT_EQ(Texts(), (std::vector<std::string>{
                           "Installation error, can not start Markvida.ConfigSwitcher.exe",
                           noResult, oldWay}));
}

TEST_F(BootstrapTest, EveryFailureHasItsResultAndItsMessage) {
    m_inst.Install("R20", m_inst.Path("Prog"));
    Switcher("", "");
    auto const last = [] { return Texts().back(); };
    EXPECT_EQ(Start(0), -3);
    EXPECT_EQ(last(), "Fel! Hittar inte data f\xF6r Markvida f\xF6r All Users, felaktig "
                      "installation?!\n" +
                          m_inst.Path(Installation::AllUsers("Markvida.ini")));
    std::filesystem::create_directories(m_inst.File(Installation::AllUsers("Markvida.ini")));
    EXPECT_EQ(Start(0), -5); // a folder, which no listing copies
    EXPECT_EQ(last(), "Fel! Hittar inte kunde inte skapa Markvida.ini under den lokala "
                      "anv\xE4ndaren!");
    std::filesystem::remove_all(m_inst.File("Data\\Orsakor"));
    m_inst.Write("Data\\Orsakor\\Vallentra", "a file");
    EXPECT_EQ(Start(0), -4);
    EXPECT_EQ(last(), "Kunde inte skapa lokala kataloger:\n" +
                          m_inst.Path("Data\\Orsakor\\Vallentra\\Markvida\\R20"));
    std::filesystem::remove_all(m_inst.File("Data"));
    EXPECT_EQ(Start(0), -6);
    EXPECT_EQ(last(),
              "Kunde inte skapa applikationens huvudkatalog:\n" + m_inst.Path("Data\\Orsakor"));
}

TEST_F(BootstrapTest, TheFolderOfTheOlderNameIsTakenOver) {
    m_inst.Install("R20", "C:\\R20");
    std::string const older = "Data\\Brinvik\\Vallentra\\Markvida\\R20\\AX\\";
    m_inst.Write(older + "Markvida.ini", "[SYSTEM]\r\nDOCEXE=older\r\n");
    m_inst.Write(older + "a.par", "a");
    m_inst.Write(older + "z.par", "z");
    std::filesystem::create_directories(m_inst.File(Installation::User("a.par")));
    EXPECT_EQ(Start(20), 0);
    EXPECT_EQ(Texts(), std::vector<std::string>{"Kunde inte kopiera filen:\n" +
                                                m_inst.Path(older + "a.par") + "\ntill:\n" +
                                                m_inst.Path(Installation::User("a.par"))});
    EXPECT_EQ(m_inst.Read(Installation::User("z.par")), "z");
    EXPECT_EQ(m_ini.m_docExe, "older");
    EXPECT_EQ(Key("MSG"), ""); // not seeded
}

// Files with the time of change, in days before today.
class RefreshTest : public BootstrapTest {
  protected:
    void File(std::string const& name, std::string const& text, int days) {
        m_inst.Write(name, text);
        std::filesystem::last_write_time(m_inst.File(name),
                                         std::filesystem::file_time_type::clock::now() -
                                             std::chrono::hours(24 * days));
    }
    void UseIni(std::string const& path) {
        m_ini.m_lage = 1;
        m_ini.m_iniFil = path.c_str();
    }
};

TEST_F(RefreshTest, NewerFilesOfAllUsersReachTheUser) {
    File(Installation::AllUsers("Markvida.ini"), "new", 0);
    File(Installation::AllUsers("a.par"), "new", 1);
    File(Installation::AllUsers("b.par"), "new", 3);
    File(Installation::AllUsers("c.par"), "new", 1);
    UseIni(m_inst.Path(Installation::User("Markvida.ini")));
    EXPECT_EQ(m_ini.AllUserFileCheck(), -1); // no folder of the user's
    File(Installation::User("markvida.ini"), "old", 9);
    File(Installation::User("a.par"), "old", 2);
    File(Installation::User("b.par"), "old", 2);
    EXPECT_EQ(m_ini.AllUserFileCheck(), -1); // no platform, but refreshed
    EXPECT_EQ(m_inst.Read(Installation::User("markvida.ini")), "old");
    EXPECT_EQ(m_inst.Read(Installation::User("a.par")), "new");
    EXPECT_EQ(m_inst.Read(Installation::User("b.par")), "old");
    EXPECT_EQ(m_inst.Read(Installation::User("c.par")), "new");
    // A copy has its source's time: it is as new, and left alone.
    File(Installation::User("a.par"), "the user's", 1);
    std::filesystem::last_write_time(
        m_inst.File(Installation::User("a.par")),
        std::filesystem::last_write_time(m_inst.File(Installation::User("c.par"))));
    std::filesystem::last_write_time(
        m_inst.File(Installation::AllUsers("a.par")),
        std::filesystem::last_write_time(m_inst.File(Installation::AllUsers("c.par"))));
    EXPECT_EQ(m_ini.AllUserFileCheck(), -1);
    EXPECT_EQ(m_inst.Read(Installation::User("a.par")), "the user's");
}

TEST_F(RefreshTest, TheSharedBinariesReachThePlatform) {
    std::string const kernel = "\\Kernel Services";
    std::string const platforms = "SOFTWARE\\Orsakor\\Vallentra\\";
    m_inst.Set(HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\CurrentVersion",
               "ProgramFilesDir", m_inst.Path("Program"));
    m_inst.Set(HKEY_LOCAL_MACHINE, platforms + "18.30" + kernel, "Root Directory",
               m_inst.Path("P1830"));
    m_inst.Set(HKEY_LOCAL_MACHINE, platforms + "21" + kernel, "Root Directory", m_inst.Path("P21"));
    File("Program\\Orsakor\\Binaries\\x.dll", "new", 1);
    File("P1830\\Binaries\\x.dll", "old", 2);
    File("P21\\Binaries\\x.dll", "old", 2);
    File(Installation::User("Markvida.ini"), "[SYSTEM]\r\n", 0);
    UseIni(m_inst.Path(Installation::User("Markvida.ini")));
    EXPECT_EQ(m_ini.AllUserFileCheck(), 0);
    EXPECT_EQ(m_inst.Read("P1830\\Binaries\\x.dll"), "new");
    m_ini.WriteKey("SYSTEM", "VALLENTRAVER", "21");
    EXPECT_EQ(m_ini.AllUserFileCheck(), 0);
    EXPECT_EQ(m_inst.Read("P21\\Binaries\\x.dll"), "new");
    m_ini.WriteKey("SYSTEM", "VALLENTRAVER", "99");
    EXPECT_EQ(m_ini.AllUserFileCheck(), -1);
}

TEST_F(RefreshTest, AConfigurationFolderIsFilledOnce) {
    for (char const* name : {"KVARNBOK.CFG", "kvarnbok.par", "Samlaren.dat", "PLAN.DAT.BAK",
                             "form.sdf", "readme.txt", "Markvida.ini"}) {
        File(Installation::User(name), "user", 1);
    }
    File("Cfg\\form.sdf", "newer", 0);
    UseIni(m_inst.Path(Installation::User("Markvida.ini")));
    CString missing(m_inst.Path("no folder").c_str());
    CString cfg(m_inst.Path("Cfg").c_str());
    EXPECT_EQ(m_ini.User2Cfg(missing), -1);
    EXPECT_EQ(m_ini.User2Cfg(cfg), 0);
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(m_inst.File("Cfg"))) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"KVARNBOK.CFG", "PLAN.DAT.BAK", "form.sdf",
                                               "kvarnbok.par"}));
    EXPECT_EQ(m_inst.Read("Cfg\\form.sdf"), "newer");
    File("Cfg\\form.sdf", "older", 9);
    EXPECT_EQ(m_ini.User2Cfg(cfg), 0); // it holds Kvarnbok.par
    EXPECT_EQ(m_inst.Read("Cfg\\form.sdf"), "older");
}

TEST_F(RefreshTest, APathThatIsTooShortTellsNoFolder) {
    m_inst.Write("Data\\Orsakor\\Vallentra\\Markvida\\x.par", "");
    m_inst.Write("Gemensam\\Orsakor\\Vallentra\\Markvida\\y.par", "");
    m_inst.Write("Cfg\\x", "");
    CString cfg(m_inst.Path("Cfg").c_str());
    for (char const* path : {"", "Markvida.ini", "\\Markvida.ini", "X\\Markvida.ini",
                             "AX\\Markvida.ini", "20\\AX\\Markvida.ini"}) {
        UseIni(path);
        EXPECT_EQ(m_ini.AllUserFileCheck(), -1) << path;
        EXPECT_EQ(m_ini.User2Cfg(cfg), 0) << path;
    }
    EXPECT_FALSE(std::filesystem::exists(m_inst.File("Cfg\\x.par")));
    EXPECT_FALSE(std::filesystem::exists(m_inst.File("Data\\Orsakor\\Vallentra\\Markvida\\y.par")));
}

} // namespace
