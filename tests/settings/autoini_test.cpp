#include "settings/autoini.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <gtest/gtest.h>

#include "support/child.h"
#include "support/testfiles.h"

namespace {

// A settings object on an INI file of the test's own.
class IniTest : public testing::Test {
  protected:
    void Ini(std::string_view bytes) {
        m_folder.Write("Markvida.ini", bytes);
        m_ini.m_lage = 1;
        m_ini.m_iniFil = m_folder.Api("Markvida.ini").c_str();
    }
    std::string Value(char const* key) { return m_ini.ReadKey("SYSTEM", key).GetString(); }
    // By the form that fills a caller's buffer, of which the last byte is not its own.
    std::string ReadInto(char* key) {
        char section[] = "SYSTEM";
        char out[256];
        out[255] = '#';
        int const found = m_ini.ReadKey(section, key, out);
        EXPECT_EQ(found, *out != '\0' ? 1 : 0);
        EXPECT_EQ(out[255], '#');
        return out;
    }

    TestFolder m_folder;
    CAutoIni m_ini;
};

TEST(AutoIni, StartsWithItsDefaults) {
    CAutoIni const ini;
    EXPECT_EQ(ini.m_huvudKat, "C:\\Kvarnbok");
    EXPECT_EQ(ini.m_cfgKat, "C:\\Kvarnbok");
    EXPECT_EQ(ini.m_acadVer, 19);
    EXPECT_EQ(ini.m_lage + ini.m_autoGen + ini.m_postMstation + ini.m_bankMstation, 0);
    EXPECT_EQ(ini.m_iniFil + ini.m_medKat + ini.m_acadExe + ini.m_scriptKat, "");
    std::time_t const now = std::time(nullptr);
    char today[16];
    std::strftime(today, sizeof today, "%Y-%m-%d", std::localtime(&now));
    EXPECT_EQ(ini.m_idag, today);
}

// The same file read by Windows' own profile functions and by what stands in for them.
TEST_F(IniTest, ValuesAreReadAsTheProfileFunctionsReadThem) {
    Ini("; a comment = 1\r\nOUTSIDE=1\r\n[Other]\r\nMSG=other\r\n[ SYSTEM ]\r\n"
        "  Blanks \t=  a b  \r\nQUOTED=\" kept \"\r\nSINGLE='one'\r\nHALF=\"half\r\nEMPTY=\r\n"
        ";COMMENT=1\r\nEQUALS=a=b\r\nTWICE=first\r\nTWICE=second\r\n"
        "[system]\r\nLATER=1\r\n[Last]\r\nEND=yes");
    std::pair<char const*, char const*> const cases[] = {
        {"BLANKS", "a b"}, {"Quoted", " kept "}, {"SINGLE", "one"}, {"HALF", "\"half"},
        {"EMPTY", ""},     {"COMMENT", ""},      {"EQUALS", "a=b"}, {"TWICE", "first"},
        {"LATER", ""},     {"MSG", ""},          {"OUTSIDE", ""},   {"MISSING", ""},
    };
    for (auto const& [key, value] : cases) {
        EXPECT_EQ(Value(key), value) << key;
    }
    EXPECT_EQ(m_ini.ReadKey("LAST", "end"), "yes");
    EXPECT_EQ(m_ini.ReadKey("MISSING", "END"), "");
    m_ini.m_iniFil = m_folder.Api("saknas.ini").c_str();
    EXPECT_EQ(Value("TWICE"), "");
}

TEST_F(IniTest, LettersAreConvertedOnReadingAlone) {
    Ini("[SYSTEM]\r\nN\xC5MN=\x86\r\n");
    EXPECT_EQ(m_ini.ReadKey("SYSTEM", "N\x8FMN"), "\xE5"); // asked for in DOS letters
    EXPECT_NE(m_ini.WriteKey("SYSTEM", "DOS", "\x86"), 0);
    EXPECT_NE(m_folder.Read("Markvida.ini").find("DOS=\x86"), std::string::npos);

    char key[] = "N\x8FMN";
    EXPECT_EQ(ReadInto(key), "\xE5");
    EXPECT_STREQ(key, "N\xC5MN"); // converted in place
    char missing[] = "MISSING";
    EXPECT_EQ(ReadInto(missing), "");
}

TEST_F(IniTest, LongValuesAreCutAt254Characters) {
    Ini("[SYSTEM]\r\nLONG=" + std::string(300, 'x') + "\r\n");
    char key[] = "LONG";
    EXPECT_EQ(Value(key), std::string(254, 'x'));
    EXPECT_EQ(ReadInto(key), std::string(254, 'x'));
}

TEST_F(IniTest, WritingKeepsCommentsOrderAndTheOtherKeys) {
    Ini("; installed 2026\r\n[SYSTEM]\r\nA=1\r\n; about B\r\nB=2\r\n\r\n[ARKIV]\r\nMAPPAR=x\r\n");
    EXPECT_NE(m_ini.WriteKey("system", "b", "3"), 0);
    EXPECT_NE(m_ini.WriteKey("SYSTEM", "C", "4"), 0);
    EXPECT_NE(m_ini.WriteKey("SYSTEM", "A", ""), 0);
    EXPECT_NE(m_ini.WriteKey("NEW", "D", "5"), 0);
    EXPECT_NE(m_ini.WriteKey("SYSTEM", "MISSING", ""), 0);
    std::string bytes = m_folder.Read("Markvida.ini");
    for (std::size_t at = 0; (at = bytes.find("\r\n\r\n")) != std::string::npos;) {
        bytes.erase(at, 2); // blank lines differ between Wine and Windows
    }
    EXPECT_EQ(bytes, "; installed 2026\r\n[SYSTEM]\r\n; about B\r\nB=3\r\nC=4\r\n"
                     "[ARKIV]\r\nMAPPAR=x\r\n[NEW]\r\nD=5\r\n");
}

TEST_F(IniTest, AnEmptyKeyIsNoCommentAndRemovingMakesNoFile) {
    std::string const bytes = "[SYSTEM]\r\n; keep=this\r\nA=1\r\n";
    Ini(bytes);
    EXPECT_EQ(Value(""), "");
    m_ini.WriteKey("SYSTEM", "", "");
    EXPECT_EQ(m_folder.Read("Markvida.ini"), bytes);

    std::filesystem::remove(m_folder / "Markvida.ini");
    m_ini.WriteKey("SYSTEM", "A", ""); // nothing to remove
    EXPECT_TRUE(m_folder.Names().empty());
}

TEST_F(IniTest, ABareNameLiesInTheWindowsFolder) {
    Variable const drives("KVARNPROG_DRIVES", m_folder.Api()); // without a folder of Windows'
    char const* const inWindows = "C:\\Windows\\Kvarntest.ini";
    m_ini.m_lage = 1;
    m_ini.m_iniFil = "Kvarntest.ini";
    EXPECT_NE(m_ini.WriteKey("SYSTEM", "A", "1"), 0);
    EXPECT_EQ(Value("A"), "1");
    m_ini.m_iniFil = inWindows;
    EXPECT_EQ(Value("A"), "1");
    std::filesystem::remove(inWindows);
}

TEST_F(IniTest, AFileThatCannotBeWrittenGivesZero) {
    std::filesystem::create_directory(m_folder / "mapp.ini");
    m_ini.m_lage = 1;
    m_ini.m_iniFil = m_folder.Api("mapp.ini").c_str();
    EXPECT_EQ(m_ini.WriteKey("SYSTEM", "A", "1"), 0);
}

TEST_F(IniTest, Mode0GoesThroughTheApplicationObject) {
    EXPECT_EQ(Value("A"), "");
    EXPECT_EQ(m_ini.WriteKey("SYSTEM", "A", "1"), 0); // no application object

    m_folder.Write("app.ini", "[SYSTEM]\r\nA=1\r\nLONG=" + std::string(300, 'x') + "\r\n");
    CWinApp application;
    application.m_pszProfileName = strdup(m_folder.Api("app.ini").c_str()); // freed by the object
    EXPECT_EQ(Value("A"), "1");
    char key[] = "LONG";
    EXPECT_EQ(Value(key).size(), 300U); // the application object reads more
    EXPECT_EQ(ReadInto(key).size(), 254U);
    EXPECT_NE(m_ini.WriteKey("SYSTEM", "A", ""), 0);
    EXPECT_EQ(Value("A"), "");
}

// Start-up.

class StartTest : public testing::Test {
  protected:
    void Start(std::string_view system) {
        m_folder.Write("Markvida.ini", "[SYSTEM]\r\n" + std::string(system));
        EXPECT_EQ(m_ini.Init(1), 0);
    }

    TestFolder m_folder;
    Variable m_variable{"KVARNBOK", m_folder.Api()};
    CAutoIni m_ini;
};

TEST_F(StartTest, TheVariableGivesTheMainDirectory) {
    {
        Variable const none("KVARNBOK", "");
        EXPECT_EQ(m_ini.Init(1), 0);
    }
    EXPECT_EQ(m_ini.m_lage, 1);
    EXPECT_EQ(m_ini.m_huvudKat, "C:\\Kvarnbok");
    EXPECT_EQ(m_ini.m_cfgKat, "C:\\Kvarnbok");
    EXPECT_EQ(m_ini.m_iniFil, "Markvida.ini");
    m_ini.Init(1);
    EXPECT_EQ(m_ini.m_huvudKat, m_folder.Api().c_str());
    EXPECT_EQ(m_ini.m_cfgKat, m_folder.Api().c_str());
    EXPECT_EQ(m_ini.m_iniFil, "Markvida.ini"); // there is none in the folder
    Start("KVARNBOK.CFG=D:\\Cfg\r\n");
    EXPECT_EQ(m_ini.m_iniFil, m_folder.Api("Markvida.ini").c_str());
    EXPECT_EQ(m_ini.m_huvudKat, m_folder.Api().c_str());
    EXPECT_EQ(m_ini.m_cfgKat, "D:\\Cfg");
}

TEST_F(StartTest, EveryKeyReachesItsMember) {
    Start("KVARNBOK.CFG=cfg\r\nMSG=msg\r\nACADEXE=acad\r\nSCRIPTPATH=\" C:\\Skript\\\\ \"\r\n"
          "ACADLTEXE=lt\r\nACADOPT=opt\r\nACADVER=23x\r\nMSTATIONEXE=ms\r\nZIPEXE=zip\r\n"
          "UNZIPEXE=unzip\r\nDOCEXE=doc\r\nAUTOGEN=ja\r\nPOSTCAD=mstation\r\nBANKCAD=ACAD\r\n");
    std::string texts;
    for (CString const& member :
         {m_ini.m_cfgKat, m_ini.m_medKat, m_ini.m_acadExe, m_ini.m_scriptKat, m_ini.m_acadLtExe,
          m_ini.m_acadOpt, m_ini.m_mstationExe, m_ini.m_zipExe, m_ini.m_unzipExe, m_ini.m_docExe}) {
        texts += member.GetString() + std::string("|");
    }
    EXPECT_EQ(texts, "cfg|msg|acad|C:\\Skript|lt|opt|ms|zip|unzip|doc|");
    EXPECT_EQ(m_ini.m_acadVer, 23);
    EXPECT_EQ(m_ini.m_autoGen, 1);
    EXPECT_EQ(m_ini.m_postMstation, 1);
    EXPECT_EQ(m_ini.m_bankMstation, 0);
}

TEST_F(StartTest, ASecondInitKeepsWhatIsMissingButNotEverySwitch) {
    Start("MSG=msg\r\nACADVER=23\r\nAUTOGEN=JA\r\nPOSTCAD=MSTATION\r\n");
    Start("ACADVER=ny\r\nAUTOGEN=NEJ\r\n");
    EXPECT_EQ(m_ini.m_medKat, "msg");
    EXPECT_EQ(m_ini.m_acadVer, 23);
    EXPECT_EQ(m_ini.m_autoGen, 1);      // "NEJ" does not clear it
    EXPECT_EQ(m_ini.m_postMstation, 0); // a missing key does
    Start("");
    EXPECT_EQ(m_ini.m_autoGen, 1);
    Start("AUTOGEN=kanske\r\n");
    EXPECT_EQ(m_ini.m_autoGen, 0);
}

TEST(Start, Mode0TakesTheProgramsFolderAndWritesItOverTheCommandLine) {
    CWinApp application;
    CAutoIni ini;
    EXPECT_EQ(ini.Init(), 0);
    EXPECT_EQ(ini.m_lage, 0);
    EXPECT_EQ(ini.m_iniFil, "");
    EXPECT_STREQ(application.m_pszProfileName, "Markvida.ini"); // none beside the tests
    EXPECT_EQ(ini.m_cfgKat, ini.m_huvudKat);
#if defined(_WIN32)
    EXPECT_EQ(ini.m_huvudKat, GetCommandLineA());
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, sizeof program);
#else
    auto const program = std::filesystem::read_symlink("/proc/self/exe");
#endif
    std::string folder = ini.m_huvudKat.GetString();
    std::replace(folder.begin(), folder.end(), '\\', '/');
    EXPECT_EQ(folder, std::filesystem::path(program).parent_path().generic_string());

    // The command line is the folder now: a second start sees its parent.
    std::string const first = ini.m_huvudKat.GetString();
    CAutoIni again;
    again.Init(0);
    EXPECT_EQ(first.substr(0, first.rfind('\\')), again.m_huvudKat.GetString());
}

} // namespace
