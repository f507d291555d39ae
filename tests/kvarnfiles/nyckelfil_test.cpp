// The key file, through both of the classes that share it.
#include "kvarnfiles/kvarncfg.h"
#include "kvarnfiles/kvarnpar.h"
#include "support/fulldisk.h"
#include "support/projekt.h"
#include "text/codepage.h"

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
        if constexpr (cfg) {
            return std::make_unique<CKvarnCFG>("Kvarnbok", Path().GetString());
        } else {
            return std::make_unique<CKvarnPAR>(nullptr, &m_projekt);
        }
    }

    static constexpr bool cfg = std::is_same_v<Fil, CKvarnCFG>;
    TestFolder m_folder;
    CProjPath m_projekt;
    Boxes m_boxes;
};

using Klasser = testing::Types<CKvarnCFG, CKvarnPAR>;
TYPED_TEST_SUITE(NyckelfilTest, Klasser);

TYPED_TEST(NyckelfilTest, LinesAreSplitAtTheFirstEqualsSignAndNothingIsTrimmed) {
    this->Bytes("Key = A\r\nA=B=C\r\nKommentar utan tecken\r\n=tom\r\n\r\nDUBBEL=1\r\ndubbel=2\r\n"
                "N\xC4MN=G\xD6teborg\r\n" +
                std::string(1 << 20, 'x') + "\r\nCR=1\rB=2\r\nNUL=3" +
                std::string("\0dropped\r\n\0=\0\r\n", 15) +
                "\xEF\xBB\xBFMARK=4\nSIST=utan radslut\x1ASEN=6\r\n");
    auto const fil = this->Open();
    std::pair<char const*, char const*> const cases[] = {
        {"KEY", ""},      {"key ", " A"},
        {"a", "B=C"},     {"Kommentar utan tecken", ""},
        {"", ""},         {"DUBBEL", "1"},
        {"CR", "1\rB=2"}, {"n\xE4mn", "G\xD6teborg"},
        {"NUL", "3"},     {"\xEF\xBB\xBFMARK", "4"},
        {"SEN", ""},      {"SIST", "utan radslut"},
    };
    for (auto const& [key, value] : cases) {
        EXPECT_EQ(fil->ReadKey(key), value) << key;
        EXPECT_EQ(fil->ReadKey(CString(key)), value) << key;
    }
    EXPECT_EQ(fil->FindKey("saknas"), -1);
    EXPECT_EQ(fil->FindKey("sist"), 0);
    EXPECT_STREQ(fil->Get_aktel()->varde, "utan radslut");
    EXPECT_EQ(fil->WriteKey("NUL", "4"), 0); // 0x1A is an end like any other
}

TYPED_TEST(NyckelfilTest, LimitsOfReadingLeaveEmptyRecords) {
    this->Bytes(key39 + "=a\r\n" + key40 + "=b\r\nLANG258=" + Value(258) +
                "\r\nLANG259=" + Value(259) + "\r\n");
    auto const fil = this->Open();
    int antal = 0;
    fil->Where(&antal);
    EXPECT_EQ(antal, 4);
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
    EXPECT_EQ(fil->FindKey("A"), 0); // the record is still there
    EXPECT_EQ(fil->WriteKey("TOM", "full"), 0);
    EXPECT_EQ(this->Bytes(), "B=3\r\nTOM=full\r\nb=dubbel\r\n");
    EXPECT_EQ(this->m_folder.Names(), std::vector<std::string>{"fil"});
}

TYPED_TEST(NyckelfilTest, SeveralKeysAreWrittenAllOrNone) {
    this->Bytes("A=1\r\n");
    auto const fil = this->Open();
    std::string const tooLong = Value(260);
    nyckelvarde keys[] = {{"NY", "2", 7}, {"A", tooLong.c_str(), 7}, {"a", "3", 7}};
    EXPECT_EQ(fil->WriteKeys(keys, 3), -1);
    EXPECT_EQ(keys[0].resultat, -2);
    EXPECT_EQ(keys[1].resultat, -1);
    EXPECT_EQ(fil->FindKey("NY"), -1);
    EXPECT_EQ(this->Bytes(), "A=1\r\n");
    keys[1].varde = "";
    EXPECT_EQ(fil->WriteKeys(keys, 3), 0);
    EXPECT_EQ(keys[2].resultat, 0);
    EXPECT_EQ(this->Bytes(), "A=3\r\nNY=2\r\n");
    EXPECT_EQ(fil->WriteKeys(nullptr, 3), 0);
}

TYPED_TEST(NyckelfilTest, AFolderInItsPlaceIsShownAndWhatWasNotReadIsNeverWritten) {
    std::filesystem::create_directory(this->m_folder / "fil");
    auto const fil = this->Open();
    std::string const path = this->Path().GetString();
    std::vector<ShownBox> shown = {
        {(this->cfg ? "Kan inte öppna CFG-filen\n"_1252 : "Kan inte öppna -filen\n"_1252) + path +
             "\nAvbryter läsning!"_1252,
         this->cfg ? "Läsning av Kvarnbok - konfigurering"_1252
                   : "Läsning av Kvarnbok - inställningar"_1252,
         48, 0}};
    EXPECT_EQ(Boxes::Shown(), shown);
    EXPECT_EQ(fil->FindKey("A"), -1);
    EXPECT_EQ(fil->WriteKey("A", "1"), -1);
    if (!this->cfg) {
        shown.push_back(
            {"Could not open file for write\n" + path, "Update Markvida Settings", 48, 0});
    }
    EXPECT_EQ(Boxes::Shown(), shown);
    std::filesystem::remove(this->m_folder / "fil");
    this->Bytes("B=2\r\n");
    EXPECT_EQ(fil->WriteKey("A", "2"), -1);
    EXPECT_EQ(fil->ReadKey("A"), "2"); // in memory alone
    EXPECT_EQ(this->Bytes(), "B=2\r\n");
    EXPECT_EQ(Boxes::Shown(), shown);
}

TYPED_TEST(NyckelfilTest, AMissingFileIsSilent) {
    auto const fil = this->Open();
    EXPECT_EQ(fil->ReadKey("A"), "");
    EXPECT_EQ(fil->WriteKey("A", "1"), 0);
    EXPECT_EQ(this->Bytes(), this->cfg ? "A=1\r\n" : ""); // the other has no path then
    EXPECT_EQ(fil->ReadKey("A"), "1");
    EXPECT_TRUE(Boxes::Shown().empty());
}

#if !defined(_WIN32)

// The link leads to a file whose reading fails, and to an ordinary one when the key is written.
TYPED_TEST(NyckelfilTest, WhatWasNotReadToItsEndIsNotOverwritten) {
    this->m_folder.Write("verklig", "A=1\r\nB=2\r\n");
    std::filesystem::create_symlink("/proc/self/mem", this->m_folder / "fil");
    auto const fil = this->Open();
    std::filesystem::remove(this->m_folder / "fil");
    std::filesystem::create_symlink("verklig", this->m_folder / "fil");
    EXPECT_EQ(fil->WriteKey("A", "2"), -1);
    EXPECT_EQ(this->m_folder.Read("verklig"), "A=1\r\nB=2\r\n");
    EXPECT_TRUE(Boxes::Shown().empty());
}

TYPED_TEST(NyckelfilTest, AFullDiskGivesMinusOneAndKeepsTheFile) {
    this->Bytes("A=1\r\nB=2\r\n");
    auto const fil = this->Open();
    FullDisk const full(8);
    EXPECT_EQ(fil->WriteKey("A", "2"), -1);
    EXPECT_EQ(this->Bytes(), "A=1\r\nB=2\r\n");
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
}

using KvarnParTest = ProjektTest;

TEST_F(KvarnParTest, TheFirstOfThreePlacesIsReadAndWritten) {
    for (int const program : {0, 1}) {
        std::string const name = program == 1 ? "KLIPPBOK.PAR" : "KVARNBOK.PAR";
        auto const open = [&] {
            return program == 1 ? std::make_unique<CKvarnPAR>(&m_ini, &m_projekt, 1)
                                : std::make_unique<CKvarnPAR>(&m_ini, &m_projekt);
        };
        EXPECT_EQ(open()->GetParFilNamn(), "");
        for (std::string const place : {"huvud", "cfg", "projekt"}) { // each before the last
            std::string const file = std::string(place).append("/").append(name);
            std::string content = "PLATS=";
            content.append(place).append("\r\n");
            m_folder.Write(file, content);
            auto const par = open();
            EXPECT_EQ(par->GetParFilNamn(),
                      m_folder.Api(std::string(place).append("\\").append(name)).c_str());
            EXPECT_EQ(par->ReadKey("plats"), place.c_str());
            EXPECT_EQ(par->WriteKey("NY", "1"), 0);
            EXPECT_EQ(m_folder.Read(file), content.append("NY=1\r\n"));
        }
        EXPECT_EQ(m_folder.Read("cfg/" + name), "PLATS=cfg\r\nNY=1\r\n");
    }
    // Either pointer may be null.
    EXPECT_EQ(CKvarnPAR(nullptr, &m_projekt).ReadKey("PLATS"), "projekt");
    EXPECT_EQ(CKvarnPAR(&m_ini, nullptr).ReadKey("PLATS"), "cfg");
    EXPECT_EQ(CKvarnPAR(nullptr, nullptr).GetParFilNamn(), "");
}

TEST_F(KvarnParTest, OtherSelectorsStayEmpty) {
    Boxes const boxes;
    Block("KVARNBOK.PAR");
    EXPECT_EQ(CKvarnPAR(&m_ini, &m_projekt, 0).GetParFilNamn(), "");
    EXPECT_EQ(Boxes::Shown().size(), 1U); // the file was opened, in vain
    CKvarnPAR const nothing(&m_ini, &m_projekt, 2);
    EXPECT_EQ(Boxes::Shown().size(), 1U);
    std::filesystem::remove(m_folder / "projekt/KVARNBOK.PAR");
    Write("KVARNBOK.PAR", "A=1\r\n");
    EXPECT_EQ(CKvarnPAR(&m_ini, &m_projekt, 0).Home(), -1);
    EXPECT_EQ(CKvarnPAR(&m_ini, &m_projekt, 2).Home(), -1);

    Block("KLIPPBOK.PAR");
    CKvarnPAR const sten(&m_ini, &m_projekt, 1);
    EXPECT_EQ(Boxes::Shown().back().caption, "Läsning av Klippbok - inställningar"_1252);
}

} // namespace
