// The key file, through both of the classes that share it.
#include <gtest/gtest.h>

#include "kvarnfiles/kvarncfg.h"
#include "kvarnfiles/kvarnpar.h"
#include "support/boxes.h"
#include "support/testfiles.h"
#include "text/codepage.h"

#if !defined(_WIN32)
#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#endif

namespace {

std::string const key39(39, 'K');
std::string const key40(40, 'K');

std::string Value(std::size_t length) {
    std::string value(length, 'v');
    return value;
}

// Both classes on the file "fil" of a folder.
template <class Fil> class NyckelfilTest : public testing::Test {
  protected:
    NyckelfilTest() {
        m_projekt.SetPath(m_folder.Api().c_str());
        m_projekt.m_kvarnPar = Path();
    }
    CString Path() const { return m_folder.Api("fil").c_str(); }
    void Bytes(std::string_view bytes) { m_folder.Write("fil", bytes); }
    std::string Bytes() const { return m_folder.Read("fil"); }
    std::unique_ptr<Fil> Open() {
        if constexpr (std::is_same_v<Fil, CKvarnCFG>) {
            return std::make_unique<CKvarnCFG>("Kvarnbok", Path().GetString());
        } else {
            return std::make_unique<CKvarnPAR>(nullptr, &m_projekt);
        }
    }

    TestFolder m_folder;
    CProjPath m_projekt;
    Boxes m_boxes;
};

using Klasser = testing::Types<CKvarnCFG, CKvarnPAR>;
TYPED_TEST_SUITE(NyckelfilTest, Klasser);

TYPED_TEST(NyckelfilTest, LinesAreSplitAtTheFirstEqualsSignAndNothingIsTrimmed) {
    this->Bytes("Key = A\r\nA=B=C\r\nKommentar utan tecken\r\n=tom\r\n\r\nDUBBEL=1\r\ndubbel=2\r\n"
                "N\xC4MN=G\xD6teborg\r\nSIST=utan radslut");
    auto const fil = this->Open();
    struct {
        char const* key;
        char const* value;
    } const cases[] = {
        {"KEY", ""},
        {"key ", " A"},
        {"a", "B=C"},
        {"Kommentar utan tecken", ""},
        {"", ""},
        {"DUBBEL", "1"},
        {"n\xE4mn", "G\xD6teborg"},
        {"SIST", "utan radslut"},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(fil->ReadKey(c.key), c.value) << c.key;
        EXPECT_EQ(fil->ReadKey(CString(c.key)), c.value) << c.key;
    }
    EXPECT_EQ(fil->FindKey("saknas"), -1);
    EXPECT_EQ(fil->FindKey("sist"), 0);
    EXPECT_STREQ(fil->Get_aktel()->varde, "utan radslut");
}

TYPED_TEST(NyckelfilTest, LimitsOfReadingLeaveEmptyRecords) {
    this->Bytes(key39 + "=a\r\n" + key40 + "=b\r\nLANG258=" + Value(258) +
                "\r\nLANG259=" + Value(259) + "\r\n");
    auto const fil = this->Open();
    int antal = 0;
    fil->Where(&antal);
    EXPECT_EQ(antal, 4);
    EXPECT_EQ(fil->ReadKey(key39.c_str()), "a");
    EXPECT_EQ(fil->ReadKey(key40.c_str()), "");
    EXPECT_EQ(fil->ReadKey("LANG258"), Value(258).c_str());
    EXPECT_EQ(fil->ReadKey("LANG259"), "");
    EXPECT_EQ(fil->WriteKey("NY", "1"), 0);
    EXPECT_EQ(this->Bytes(), key39 + "=a\r\nLANG258=" + Value(258) + "\r\nNY=1\r\n");
    // The empty key is that of the first empty record, and is written as any other.
    EXPECT_EQ(fil->WriteKey("", "x"), 0);
    EXPECT_EQ(this->Bytes(), key39 + "=a\r\n=x\r\nLANG258=" + Value(258) + "\r\nNY=1\r\n");
}

TYPED_TEST(NyckelfilTest, LimitsOfWritingLeaveTheFileAlone) {
    this->Bytes("A=1\r\n");
    auto const fil = this->Open();
    EXPECT_EQ(fil->WriteKey(key40.c_str(), "x"), -1);
    EXPECT_EQ(fil->WriteKey("A", Value(260).c_str()), -1);
    EXPECT_EQ(fil->WriteKey("NY", Value(260).c_str()), -1);
    EXPECT_EQ(this->Bytes(), "A=1\r\n");
    EXPECT_EQ(fil->WriteKey(key39.c_str(), Value(259).c_str()), 0);
    EXPECT_EQ(this->Bytes(), "A=1\r\n" + key39 + "=" + Value(259) + "\r\n");
    EXPECT_EQ(this->Open()->ReadKey(key39.c_str()), ""); // one more than reading takes
    EXPECT_TRUE(Boxes::Shown().empty());
}

TYPED_TEST(NyckelfilTest, WritingKeepsOrderAndDropsWhatIsNoKey) {
    this->Bytes("B=2\r\n; a comment\r\nTOM=\r\nA=1\r\nb=dubbel\r\n");
    auto const fil = this->Open();
    EXPECT_EQ(fil->WriteKey("b", "3"), 0);
    EXPECT_EQ(this->Bytes(), "B=3\r\nA=1\r\nb=dubbel\r\n");
    EXPECT_EQ(fil->WriteKey(CString("A"), CString("")), 0);
    EXPECT_EQ(this->Bytes(), "B=3\r\nb=dubbel\r\n");
    EXPECT_EQ(fil->ReadKey("A"), "");
    EXPECT_EQ(fil->FindKey("A"), 0); // the record is still there
    EXPECT_EQ(fil->WriteKey("TOM", "full"), 0);
    EXPECT_EQ(this->Bytes(), "B=3\r\nTOM=full\r\nb=dubbel\r\n");
    EXPECT_EQ(this->m_folder.Names(), std::vector<std::string>{"fil"});
}

TYPED_TEST(NyckelfilTest, OddBytesAreReadToTheEndByTheRules) {
    std::string const megabyte(1 << 20, 'x');
    this->Bytes(megabyte + "\r\nA=1\rB=2\r\nC=3" + std::string("\0dropped\r\n", 10) +
                std::string("\0=\0\r\n", 5) +
                "\xEF\xBB\xBF"
                "D=4\nE=5\r\r\n\x1A"
                "F=6\r\n");
    auto const fil = this->Open();
    EXPECT_EQ(fil->ReadKey("A"), "1\rB=2");
    EXPECT_EQ(fil->ReadKey("C"), "3");
    EXPECT_EQ(fil->ReadKey("\xEF\xBB\xBF"
                           "D"),
              "4");
    EXPECT_EQ(fil->ReadKey("E"), "5\r");
    EXPECT_EQ(fil->ReadKey("F"), "");
    EXPECT_EQ(fil->WriteKey("C", "4"), 0); // 0x1A is an end like any other
}

TYPED_TEST(NyckelfilTest, AFolderInItsPlaceIsShownAndNeverWritten) {
    std::filesystem::create_directory(this->m_folder / "fil");
    auto const fil = this->Open();
    constexpr bool cfg = std::is_same_v<TypeParam, CKvarnCFG>;
    std::string const path = this->Path().GetString();
    ShownBox const reading = {
        (cfg ? "Kan inte öppna CFG-filen\n"_1252 : "Kan inte öppna -filen\n"_1252) + path +
            "\nAvbryter läsning!"_1252,
        cfg ? "Läsning av Kvarnbok - konfigurering"_1252
            : "Läsning av Kvarnbok - inställningar"_1252,
        48, 0};
    EXPECT_EQ(Boxes::Shown(), std::vector<ShownBox>{reading});
    Boxes::Shown().clear();

    EXPECT_EQ(fil->FindKey("A"), -1);
    EXPECT_EQ(fil->WriteKey("A", "1"), -1);
    std::vector<ShownBox> writing;
    if (!cfg) {
        writing.push_back(
            {"Could not open file for write\n" + path, "Update Markvida Settings", 48, 0});
    }
    EXPECT_EQ(Boxes::Shown(), writing);
}

#if defined(_WIN32)

TYPED_TEST(NyckelfilTest, WhatCouldNotBeReadIsNotOverwritten) {
    this->Bytes("A=1\r\nB=2\r\n");
    HANDLE const owner = // nobody else may open the file while it is read
        CreateFileA(this->Path(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    auto const fil = this->Open();
    EXPECT_EQ(Boxes::Shown().size(), 1U);
    CloseHandle(owner);
    EXPECT_EQ(fil->WriteKey("A", "2"), -1);
    EXPECT_EQ(fil->ReadKey("A"), "2"); // in memory alone
    EXPECT_EQ(Boxes::Shown().size(), 1U);
    EXPECT_EQ(this->Bytes(), "A=1\r\nB=2\r\n");
}

#else

// The link leads to a file whose reading fails, and to an ordinary one when the key is written.
TYPED_TEST(NyckelfilTest, WhatWasNotReadToItsEndIsNotOverwritten) {
    this->m_folder.Write("verklig", "A=1\r\nB=2\r\n");
    std::filesystem::create_symlink("/proc/self/mem", this->m_folder / "fil");
    auto const fil = this->Open();
    std::filesystem::remove(this->m_folder / "fil");
    std::filesystem::create_symlink("verklig", this->m_folder / "fil");
    EXPECT_EQ(fil->WriteKey("A", "2"), -1);
    EXPECT_EQ(fil->ReadKey("A"), "2"); // in memory alone
    EXPECT_EQ(this->m_folder.Read("verklig"), "A=1\r\nB=2\r\n");
    EXPECT_TRUE(Boxes::Shown().empty());
}

#endif

TYPED_TEST(NyckelfilTest, AMissingFileIsSilent) {
    auto const fil = this->Open();
    EXPECT_EQ(fil->ReadKey("A"), "");
    EXPECT_EQ(fil->WriteKey("A", "1"), 0);
    constexpr bool cfg = std::is_same_v<TypeParam, CKvarnCFG>;
    EXPECT_EQ(std::filesystem::exists(this->m_folder / "fil"), cfg); // the other has no path then
    EXPECT_EQ(fil->ReadKey("A"), "1");
    EXPECT_TRUE(Boxes::Shown().empty());
}

#if !defined(_WIN32)
TYPED_TEST(NyckelfilTest, AFullDiskGivesMinusOneAndKeepsTheFile) {
    std::string bytes;
    for (int i = 0; i < 50; ++i) {
        bytes += "NYCKEL" + std::to_string(i) + "=" + Value(100) + "\r\n";
    }
    this->Bytes(bytes);
    pid_t const child = fork();
    if (child == 0) {
        auto const fil = this->Open();
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const limit = {1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(fil->WriteKey("NYCKEL1", "ny") == -1 ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(this->Bytes(), bytes);
}
#endif

// What only one of the two does.

TEST(KvarnCFG, LiesBesideTheIniFile) {
    TestFolder const folder;
    folder.Write("KVARNBOK.CFG", "A=1\r\n");
    CAutoIni ini;
    ini.m_iniFil = folder.Api("Markvida.ini").c_str();
    CKvarnCFG fil(&ini);
    EXPECT_EQ(fil.m_filnamn, folder.Api("KVARNBOK.CFG").c_str());
    EXPECT_EQ(fil.ReadKey("a"), "1");
    ini.m_iniFil = "Markvida.ini";
    EXPECT_EQ(CKvarnCFG(&ini).m_filnamn, "\\KVARNBOK.CFG");
    CKvarnCFG nowhere("Kvarnbok", "");
    EXPECT_EQ(nowhere.WriteKey("A", "1"), 0);
    EXPECT_EQ(nowhere.ReadKey("A"), "1");
}

class KvarnParTest : public testing::Test {
  protected:
    KvarnParTest() {
        for (char const* name : {"projekt", "cfg", "huvud"}) {
            std::filesystem::create_directory(m_folder / name);
        }
        m_projekt.SetPath(m_folder.Api("projekt").c_str());
        m_ini.m_cfgKat = m_folder.Api("cfg").c_str();
        m_ini.m_huvudKat = m_folder.Api("huvud").c_str();
    }

    TestFolder m_folder;
    CAutoIni m_ini;
    CProjPath m_projekt;
    Boxes m_boxes;
};

TEST_F(KvarnParTest, TheFirstOfThreePlacesIsReadAndWritten) {
    char const* const places[] = {"projekt", "cfg", "huvud"};
    for (char const* name : {"KVARNBOK.PAR", "KLIPPBOK.PAR"}) {
        bool const sten = name[1] == 'L';
        auto const open = [&] {
            return sten ? std::make_unique<CKvarnPAR>(&m_ini, &m_projekt, 1)
                        : std::make_unique<CKvarnPAR>(&m_ini, &m_projekt);
        };
        EXPECT_EQ(open()->GetParFilNamn(), "");
        for (int i = 2; i >= 0; --i) { // from the last place to the first
            std::string const file = std::string(places[i]) + "/" + name;
            m_folder.Write(file, std::string("PLATS=") + places[i] + "\r\n");
            auto const par = open();
            EXPECT_EQ(par->GetParFilNamn(),
                      m_folder.Api(std::string(places[i]) + "\\" + name).c_str());
            EXPECT_EQ(par->ReadKey("plats"), places[i]);
            EXPECT_EQ(par->WriteKey("NY", "1"), 0);
            EXPECT_EQ(m_folder.Read(file), std::string("PLATS=") + places[i] + "\r\nNY=1\r\n");
        }
        EXPECT_EQ(m_folder.Read(std::string("cfg/") + name), "PLATS=cfg\r\nNY=1\r\n");
    }
}

TEST_F(KvarnParTest, EitherPointerMayBeNull) {
    m_folder.Write("projekt/KVARNBOK.PAR", "A=projekt\r\n");
    m_folder.Write("huvud/KVARNBOK.PAR", "A=huvud\r\n");
    EXPECT_EQ(CKvarnPAR(nullptr, &m_projekt).ReadKey("A"), "projekt");
    EXPECT_EQ(CKvarnPAR(&m_ini, nullptr).ReadKey("A"), "huvud");
    CKvarnPAR nothing(nullptr, nullptr);
    EXPECT_EQ(nothing.GetParFilNamn(), "");
    EXPECT_EQ(nothing.WriteKey("A", "1"), 0);
    EXPECT_EQ(nothing.ReadKey("A"), "1");
}

TEST_F(KvarnParTest, OtherSelectorsStayEmpty) {
    std::filesystem::create_directory(m_folder / "projekt/KVARNBOK.PAR");
    CKvarnPAR readAndDropped(&m_ini, &m_projekt, 0);
    EXPECT_EQ(Boxes::Shown().size(), 1U); // the file was opened, in vain
    EXPECT_EQ(readAndDropped.GetParFilNamn(), "");
    CKvarnPAR const nothing(&m_ini, &m_projekt, 2);
    EXPECT_EQ(Boxes::Shown().size(), 1U);

    std::filesystem::remove(m_folder / "projekt/KVARNBOK.PAR");
    m_folder.Write("projekt/KVARNBOK.PAR", "A=1\r\n");
    EXPECT_EQ(CKvarnPAR(&m_ini, &m_projekt, 0).Home(), -1);
    EXPECT_EQ(CKvarnPAR(&m_ini, &m_projekt, 2).Home(), -1);

    std::filesystem::create_directory(m_folder / "projekt/KLIPPBOK.PAR");
    CKvarnPAR const sten(&m_ini, &m_projekt, 1);
    EXPECT_EQ(Boxes::Shown().back().caption, "Läsning av Klippbok - inställningar"_1252);
}

} // namespace
