// The first start of a user, and the later ones, on the host's registry and real folders.
#include <gtest/gtest.h>

#include "settings/autoini.h"
#include "support/boxes.h"
#include "support/hostcalls.h"
#include "support/installation.h"

namespace {

constexpr char const* oldWay = "Markvida.ConfigSwitcher did not set data. \n"
                               "I will do it the old way (prior to 15.3.*)";
constexpr char const* noResult = "Can not find result from Markvida.ConfigSwitcher.exe";

class BootstrapTest : public testing::Test, protected Installation {
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
        return m_ini.InitXPWay(ver, "AX", Path("Prog").c_str());
    }
    std::string Key(char const* key) { return m_ini.ReadKey("SYSTEM", key).GetString(); }
    // Installs R20 in the program folder, with settings of all users.
    void InstallWithAllUsers() {
        Install("R20", Path("PROG") + "\\");
        Write(AllUsers("Markvida.ini"),
              "[SYSTEM]\r\nACADEXE=old\r\nACADEXEA=a.exe\r\nMSG=C:\\no folder\\x.msg\r\n");
        Write(AllUsers("Kvarnbok.par"), "A=1\r\n");
    }
    void InstallSwitcher() const {
        std::filesystem::copy_file(CONFIG_SWITCHER, File("Prog\\Markvida.ConfigSwitcher.exe"));
    }

    Boxes m_boxes;
    CAutoIni m_ini;
};

TEST_F(BootstrapTest, WithoutTheReleaseNothingHappens) {
    Install("R19", Path("Prog"));
    std::strcpy(m_ini.m_paket, "before");
    EXPECT_EQ(Start(17), -1);
    EXPECT_EQ(Start(20), -1);
    EXPECT_EQ(Start(0), -1); // the chosen release is 20
    EXPECT_EQ(m_ini.m_lage, 0);
    EXPECT_STREQ(m_ini.InstallPackage(), "");
    EXPECT_TRUE(Boxes::Shown().empty());
    EXPECT_TRUE(std::filesystem::is_empty(File("Data")));
}

TEST_F(BootstrapTest, AnExplicitReleaseReadsTheUsersSettings) {
    Install("R20", "C:\\R20\\");
    EXPECT_EQ(Start(20), -2);
    EXPECT_EQ(Texts(), std::vector<std::string>{
                           "Fel! Hittar inte data f\xF6r Markvida f\xF6r aktuell anv\xE4ndare. "
                           "Starta upp via Samlaren!"});
    EXPECT_EQ(Texts().front(), MessageBuffer());
    Install("RELEASE", "C:\\Release"); // asked before
    Write("Script\\x", "");
    std::string const settings = "[SYSTEM]\r\nSCRIPTPATH= " + Path("Script") + "\\\r\n";
    Write(User("Markvida.ini"), settings);
    CWinApp application;
    EXPECT_EQ(Start(20), 0);
    EXPECT_EQ(m_ini.m_lage, 1);
    EXPECT_EQ(m_ini.m_huvudKat, "C:\\Release");
    EXPECT_EQ(m_ini.m_cfgKat + "\\", Path(User("")).c_str());
    EXPECT_EQ(m_ini.m_iniFil, Path(User("Markvida.ini")).c_str());
    EXPECT_EQ(m_ini.m_scriptKat, Path("Script").c_str());
    EXPECT_STREQ(application.m_pszProfileName, m_ini.m_iniFil.GetString());
    EXPECT_EQ(Read(User("Markvida.ini")), settings); // nothing is written
    EXPECT_EQ(Start(19), -1);
}

TEST_F(BootstrapTest, TheRunningProgramsReleaseIsFoundByItsFolder) {
    Choose("19");
    Install("DIST", "C:\\elsewhere");
    Install("R19", Path("PROG") + "\\");
    Set(HKEY_LOCAL_MACHINE, Group("R19"), "Package", std::string(200, 'p'));
    EXPECT_EQ(Start(1), -2); // never runs the switcher
    Write(User("Markvida.ini", "R19"), "[SYSTEM]\r\nMSG=C:\\no\\x.msg\r\n");
    CWinApp application;
    EXPECT_EQ(Start(1), 0);
    EXPECT_EQ(m_ini.m_lage, 0); // through the application object
    EXPECT_EQ(m_ini.InstallPackage(), std::string(127, 'p'));
    EXPECT_EQ(m_ini.m_huvudKat, Path("Prog").c_str());
    // A folder that is gone is replaced, also in the file.
    std::string const msg = Path("Data\\Orsakor\\Vallentra\\Markvida\\Kvarnbok.msg");
    EXPECT_EQ(m_ini.m_medKat, msg.c_str());
    EXPECT_EQ(Key("MSG"), msg);
    EXPECT_EQ(Key("ACADVER"), ""); // not seeded
}

TEST_F(BootstrapTest, TheFirstStartCopiesTheSettingsOfAllUsers) {
    InstallWithAllUsers();
    EXPECT_EQ(Start(0), 0);
    EXPECT_EQ(Texts(), (std::vector<std::string>{"Can not find Markvida.ConfigSwitcher.exe:\n" +
                                                     Path("Prog\\Markvida.ConfigSwitcher.exe"),
                                                 noResult, oldWay}));
    for (ShownBox const& box : Boxes::Shown()) {
        EXPECT_EQ(box.caption, "IniProfile");
    }
    EXPECT_EQ(m_ini.m_lage, 1);
    EXPECT_EQ(Read(User("Kvarnbok.par")), "A=1\r\n");
    std::string const data = Path("Data\\Orsakor\\Vallentra\\Markvida");
    EXPECT_EQ(Key("MSG"), data + "\\Kvarnbok.msg");
    EXPECT_EQ(Key("SCRIPTPATH"), data);
    EXPECT_EQ(Key("ACADVER"), "20");
    EXPECT_EQ(m_ini.m_acadExe, "a.exe");
    EXPECT_EQ(Start(0), 0); // later starts find it at once
    EXPECT_TRUE(Boxes::Shown().empty());
}

TEST_F(BootstrapTest, TheSwitcherLeavesSettingsAndChoosesTheRelease) {
    InstallWithAllUsers();
    InstallSwitcher();
    Variable const ini("SWITCHER_INI", File(User("Markvida.ini", "R19")).string());
    Variable const release("SWITCHER_RELEASE", "19");
    Choose("20");
    Write(User("x", "R19"), "");
    EXPECT_EQ(Start(0), 0);
    EXPECT_TRUE(Boxes::Shown().empty());
    EXPECT_EQ(m_ini.m_iniFil, Path(User("Markvida.ini", "R19")).c_str());
    EXPECT_EQ(m_ini.m_docExe, "switched");
    EXPECT_EQ(m_ini.m_acadVer, 19);
    EXPECT_EQ(m_ini.m_acadExe, "b.exe");
    EXPECT_FALSE(std::filesystem::exists(File(User("Kvarnbok.par", "R19"))));
}

// By a process whose command line nobody has changed.
TEST(BootstrapChild, DISABLED_StartsWithoutAFolder) {
    CWinApp application;
    CAutoIni ini;
    ASSERT_EQ(ini.InitXPWay(1, "AX", nullptr), 0);
    ASSERT_EQ(ini.InitXPWay(0, "AX", nullptr), -1);
}

TEST_F(BootstrapTest, WithoutAFolderTheOneAboveTheProgramsIsTaken) {
    std::string above = std::filesystem::path(ProgramPath()).parent_path().parent_path().string();
    std::replace(above.begin(), above.end(), '/', '\\');
    Install("R20", above);
    Write(User("Markvida.ini"), "[SYSTEM]\r\n");
    EXPECT_EQ(Child("BootstrapChild.*").Wait(), 0);
}

TEST_F(BootstrapTest, NothingIsStartedWithoutAFolder) {
    Install("R20", "");
    Boxes::Shown().clear();
    EXPECT_EQ(m_ini.InitXPWay(0, "AX", ""), -3);
    EXPECT_EQ(Texts().front(), "Can not find Markvida.ConfigSwitcher.exe:\n"
                               "\\Markvida.ConfigSwitcher.exe");
}

TEST_F(BootstrapTest, AFileThatCouldNotBeCopiedIsCopiedAtALaterStart) {
    InstallWithAllUsers();
    Write(AllUsers("forsta.par.4711-1.tmp"), "being written"); // no file of the folder's
    std::filesystem::create_directories(File(User("Kvarnbok.par")));
    EXPECT_EQ(Start(0), 0);
    EXPECT_EQ(Texts().back().substr(0, 25), "Kunde inte kopiera filen:");
    EXPECT_EQ(NamesIn(File(User(""))), (std::vector<std::string>{"Kvarnbok.par", "Markvida.ini"}));
    std::filesystem::remove(File(User("Kvarnbok.par")));
    EXPECT_EQ(Start(0), 0);
    EXPECT_EQ(Read(User("Kvarnbok.par")), "A=1\r\n");
    std::filesystem::remove(File(User("Kvarnbok.par")));
    EXPECT_EQ(Start(0), 0); // it was the user who removed it
    EXPECT_FALSE(std::filesystem::exists(File(User("Kvarnbok.par"))));
}

#if !defined(_WIN32)

TEST_F(BootstrapTest, TheSettingsFileIsCopiedLast) {
    InstallWithAllUsers();
    Write(AllUsers("zz.par"), "z");
    HostCalls const calls;
    EXPECT_EQ(Start(0), 0);
    std::string const made = calls.Made({"rename", "renameat2"});
    EXPECT_TRUE(
        made.starts_with("renameat2 Kvarnbok.par\nrenameat2 zz.par\nrenameat2 Markvida.tmp\n"));
    EXPECT_TRUE(made.ends_with("rename Markvida.tmp\nrename Markvida.ini\n")) << made;
}

TEST_F(BootstrapTest, ATargetThatCannotBeLookedAtIsNotReplaced) {
    InstallWithAllUsers();
    EXPECT_EQ(Start(0), 0);
    Write(User("Kvarnbok.par"), "B=1\r\n"); // newer
    int looks = 0;
    {
        HostCalls const disk([&](HostCall const& call) {
            bool const isTarget = call.name == "stat" && call.file == "Kvarnbok.par" && ++looks > 1;
            return isTarget ? EIO : 0; // after the source's
        });
        m_ini.AllUserFileCheck();
    }
    EXPECT_GT(looks, 1);
    EXPECT_EQ(Read(User("Kvarnbok.par")), "B=1\r\n");
}

// The content that was read, with a time that is not of a later one.
TEST_F(BootstrapTest, ASourceThatIsReplacedWhileItIsCopiedIsCopiedAgain) {
    InstallWithAllUsers();
    EXPECT_EQ(Start(0), 0);
    auto const age = [&](int hours) {
        std::filesystem::last_write_time(File(AllUsers("Kvarnbok.par")),
                                         std::filesystem::file_time_type::clock::now() +
                                             std::chrono::hours(hours));
    };
    age(1);
    bool replaced = false;
    {
        HostCalls const calls([&](HostCall const& call) {
            if (call.name == "fsync" && !replaced) { // after the reading
                replaced = true;
                std::filesystem::rename(File(AllUsers("Kvarnbok.par")), File("gone"));
                Write(AllUsers("Kvarnbok.par"), "A=2\r\n");
                age(2);
            }
            return 0;
        });
        m_ini.AllUserFileCheck();
    }
    EXPECT_TRUE(replaced);
    m_ini.AllUserFileCheck();
    EXPECT_EQ(Read(User("Kvarnbok.par")), "A=2\r\n");
}

#endif

TEST_F(BootstrapTest, AReleaseThatIsNoNumberIsTheLatest) {
    InstallWithAllUsers();
    Choose("none");
    Write(User("Markvida.ini"), "[SYSTEM]\r\n");
    EXPECT_EQ(Start(0), 0);
    EXPECT_EQ(m_ini.m_iniFil, Path(User("Markvida.ini")).c_str());
}

TEST_F(BootstrapTest, ASwitcherThatFailsIsTold) {
    InstallWithAllUsers();
    InstallSwitcher();
    EXPECT_EQ(Start(0), 0); // it left nothing
    EXPECT_EQ(Texts(), (std::vector<std::string>{noResult, oldWay}));
    std::filesystem::remove_all(File("Data\\Orsakor"));
    std::filesystem::remove(File("Prog\\Markvida.ConfigSwitcher.exe"));
    Write("Prog\\Markvida.ConfigSwitcher.exe", "no program");
    EXPECT_EQ(Start(0), 0);
    EXPECT_EQ(Texts(), (std::vector<std::string>{
                           "Installation error, can not start Markvida.ConfigSwitcher.exe",
                           noResult, oldWay}));
}

TEST_F(BootstrapTest, EveryFailureHasItsResultAndItsMessage) {
    Install("R20", Path("Prog"));
    InstallSwitcher();
    auto const expect = [&](int result, std::string const& text) {
        EXPECT_EQ(Start(0), result);
        EXPECT_EQ(Texts().back(), text);
    };
    expect(-3, "Fel! Hittar inte data f\xF6r Markvida f\xF6r All Users, felaktig installation?!\n" +
                   Path(AllUsers("Markvida.ini")));
    std::filesystem::create_directories(File(AllUsers("Markvida.ini")));
    // A folder, which no listing copies.
    expect(-5, "Fel! Hittar inte kunde inte skapa Markvida.ini under den lokala anv\xE4ndaren!");
    std::filesystem::remove_all(File("Data\\Orsakor"));
    Write("Data\\Orsakor\\Vallentra", "a file");
    expect(-4, "Kunde inte skapa lokala kataloger:\n" +
                   Path("Data\\Orsakor\\Vallentra\\Markvida\\R20"));
    std::filesystem::remove_all(File("Data"));
    expect(-6, "Kunde inte skapa applikationens huvudkatalog:\n" + Path("Data\\Orsakor"));
}

TEST_F(BootstrapTest, TheFolderOfTheOlderNameIsTakenOver) {
    Install("R20", "C:\\R20");
    std::string const older = "Data\\Brinvik\\Vallentra\\Markvida\\R20\\AX\\";
    Write(older + "Markvida.ini", "[SYSTEM]\r\nDOCEXE=older\r\n");
    Write(older + "a.par", "a");
    Write(older + "z.par", "z");
    std::filesystem::create_directories(File(User("a.par")));
    EXPECT_EQ(Start(20), 0);
    EXPECT_EQ(Texts(),
              std::vector<std::string>{"Kunde inte kopiera filen:\n" + Path(older + "a.par") +
                                       "\ntill:\n" + Path(User("a.par"))});
    EXPECT_EQ(Read(User("z.par")), "z");
    EXPECT_EQ(m_ini.m_docExe, "older");
    EXPECT_EQ(Key("MSG"), ""); // not seeded
    Write(User("Markvida.ini"), "[SYSTEM]\r\nDOCEXE=own\r\n");
    EXPECT_EQ(Start(20), 0);
    EXPECT_EQ(m_ini.m_docExe, "own"); // only once
}

// Files with the time of change, in days before today.
class RefreshTest : public BootstrapTest {
  protected:
    void Aged(std::string const& name, std::string const& text, int days) const {
        Write(name, text);
        std::filesystem::last_write_time(File(name), m_today - std::chrono::hours(24 * days));
    }
    void UseIni(std::string const& path) {
        m_ini.m_lage = 1;
        m_ini.m_iniFil = path.c_str();
    }
    std::filesystem::file_time_type const m_today = std::filesystem::file_time_type::clock::now();
};

TEST_F(RefreshTest, NewerFilesOfAllUsersReachTheUser) {
    UseIni(Path(User("Markvida.ini")));
    EXPECT_EQ(m_ini.AllUserFileCheck(), -1); // no folder of the user's
    // Days of the shared file and of the user's, which is missing where they are negative.
    std::tuple<char const*, int, int, char const*> const cases[] = {
        {"markvida.ini", 0, 9, "old"}, {"newer.par", 1, 2, "new"}, {"older.par", 3, 2, "old"},
        {"as old.par", 2, 2, "old"}, // such as a copy, which has its source's time
        {"missing.par", 1, -1, "new"},
    };
    for (auto const& [name, shared, user, kept] : cases) {
        Aged(AllUsers(name), "new", shared);
        if (user >= 0) {
            Aged(User(name), "old", user);
        }
    }
    EXPECT_EQ(m_ini.AllUserFileCheck(), -1); // no platform, but refreshed
    for (auto const& [name, shared, user, kept] : cases) {
        EXPECT_EQ(Read(User(name)), kept) << name;
    }
}

TEST_F(RefreshTest, TheSharedBinariesReachThePlatform) {
    Set(HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\CurrentVersion", "ProgramFilesDir",
        Path("Program"));
    Aged("Program\\Orsakor\\Binaries\\x.dll", "new", 1);
    for (char const* platform : {"18.30", "21"}) {
        Set(HKEY_LOCAL_MACHINE,
            std::string("SOFTWARE\\Orsakor\\Vallentra\\") + platform + "\\Kernel Services",
            "Root Directory", Path(platform));
        Aged(platform + std::string("\\Binaries\\x.dll"), "old", 2);
    }
    Aged(User("Markvida.ini"), "[SYSTEM]\r\n", 0);
    UseIni(Path(User("Markvida.ini")));
    EXPECT_EQ(m_ini.AllUserFileCheck(), 0);
    EXPECT_EQ(Read("18.30\\Binaries\\x.dll"), "new");
    EXPECT_EQ(Read("21\\Binaries\\x.dll"), "old");
    m_ini.WriteKey("SYSTEM", "VALLENTRAVER", "21");
    EXPECT_EQ(m_ini.AllUserFileCheck(), 0);
    EXPECT_EQ(Read("21\\Binaries\\x.dll"), "new");
    m_ini.WriteKey("SYSTEM", "VALLENTRAVER", "99");
    EXPECT_EQ(m_ini.AllUserFileCheck(), -1);
}

TEST_F(RefreshTest, AConfigurationFolderIsFilledOnce) {
    for (char const* name : {"KVARNBOK.CFG", "kvarnbok.par", "Samlaren.dat", "PLAN.DAT.BAK",
                             "form.sdf", "readme.txt", "Markvida.ini"}) {
        Aged(User(name), "user", 1);
    }
    Aged("Cfg\\form.sdf", "newer", 0);
    UseIni(Path(User("Markvida.ini")));
    CString missing(Path("no folder").c_str());
    CString cfg(Path("Cfg").c_str());
    EXPECT_EQ(m_ini.User2Cfg(missing), -1);
    EXPECT_EQ(m_ini.User2Cfg(cfg), 0);
    EXPECT_EQ(NamesIn(File("Cfg")), (std::vector<std::string>{"KVARNBOK.CFG", "PLAN.DAT.BAK",
                                                              "form.sdf", "kvarnbok.par"}));
    EXPECT_EQ(Read("Cfg\\form.sdf"), "newer");
    Aged("Cfg\\form.sdf", "older", 9);
    EXPECT_EQ(m_ini.User2Cfg(cfg), 0); // it holds Kvarnbok.par
    EXPECT_EQ(Read("Cfg\\form.sdf"), "older");
}

TEST_F(RefreshTest, APathThatIsTooShortTellsNoFolder) {
    for (char const* wrong : {"x.par", "AX\\x.par"}) { // where half of the widths would lead
        Write(std::string("Data\\Orsakor\\Vallentra\\Markvida\\") + wrong, "");
    }
    Write("Gemensam\\Orsakor\\Vallentra\\Markvida\\y.par", "");
    Write("Cfg\\x", "");
    CString cfg(Path("Cfg").c_str());
    for (char const* path : {"", "Markvida.ini", "\\Markvida.ini", "X\\Markvida.ini",
                             "AX\\Markvida.ini", "20\\AX\\Markvida.ini"}) {
        UseIni(path);
        EXPECT_EQ(m_ini.AllUserFileCheck(), -1) << path;
        EXPECT_EQ(m_ini.User2Cfg(cfg), 0) << path;
    }
    EXPECT_FALSE(std::filesystem::exists(File("Cfg\\x.par")));
    EXPECT_FALSE(std::filesystem::exists(File("Data\\Orsakor\\Vallentra\\Markvida\\y.par")));
}

} // namespace
