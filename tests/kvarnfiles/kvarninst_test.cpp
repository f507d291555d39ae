#include "kvarnfiles/kvarninst.h"

#include <sstream>

#include <gtest/gtest.h>

#include "support/boxes.h"
#include "support/commalocale.h"
#include "support/testfiles.h"
#include "text/codepage.h"

namespace {

class KvarnInstTest : public testing::Test {
  protected:
    KvarnInstTest() {
        m_projekt.SetPath(m_folder.Api().c_str());
        m_ini.m_cfgKat = m_ini.m_huvudKat = m_folder.Api("delad").c_str();
        std::filesystem::create_directory(m_folder / "delad");
        EXPECT_EQ(m_inst.Init(&m_ini, &m_projekt), 0);
    }
    std::string Par() const { return m_folder.Read("KVARNBOK.PAR"); }

    TestFolder m_folder;
    CAutoIni m_ini;
    CProjPath m_projekt;
    CKvarnInst m_inst;
};

TEST_F(KvarnInstTest, ProjectThenSharedThenDefault) {
    m_folder.Write("delad/KVARNBOK.PAR", "HSKALA=500\r\nLSKALA=250\r\n");
    m_folder.Write("delad/KLIPPBOK.PAR", "HSKALA=50\r\n");
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "HSKALA"), "500");
    m_folder.Write("KVARNBOK.PAR", "HSKALA=200\r\nTXTVIDD=\r\n");
    EXPECT_EQ(m_inst.ReadKey("kvarnbok.par", "hskala"), "200");
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", CString("LSKALA")), "100"); // not the shared file's
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "TXTVIDD"), "1.0");         // empty is missing
    EXPECT_EQ(m_inst.ReadKey("KLIPPBOK.PAR", "HSKALA"), "50");
    EXPECT_EQ(m_inst.ReadKey("JB23.PAR", "FTSKALA"), "100");
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "FTSKALA"), "0.10");
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "OKÄND"_1252), "");
    EXPECT_EQ(m_inst.ReadKey("ANNAN.PAR", "HSKALA"), "");
    EXPECT_EQ(m_inst.ReadKey("delad\\KVARNBOK.PAR", "HSKALA"), ""); // a name, never a path
}

TEST_F(KvarnInstTest, NumbersHaveTheirSentinels) {
    struct {
        char const* text;
        int integer;
        double number;
    } const cases[] = {
        {"max", -1, -9.0},
        {"MAX", -1, -9.0},
        {"ord", -9, -9.0},
        {"2.5", 2, 2.5},
        {" 7 st", 7, 7.0},
        {"-9", -9, -9.0},
        {"99999999999", 2147483647, 99999999999.0},
        {"1e3", 1, 1000.0},
        {"2,5", 2, 2.0},
        {"MAXIMUM", -9, -9.0},
    };
    for (auto const& c : cases) {
        m_folder.Write("KVARNBOK.PAR", std::string("VARDE=") + c.text + "\r\n");
        EXPECT_EQ(m_inst.ReadKeyInt("KVARNBOK.PAR", "VARDE", 0), c.integer) << c.text;
        EXPECT_EQ(m_inst.ReadKeyDouble("KVARNBOK.PAR", "VARDE", 0), c.number) << c.text;
    }
    m_folder.Write("KVARNBOK.PAR", "HSKALA=1\r\nVARDE=1\r\n");
    EXPECT_EQ(m_inst.ReadKeyInt("KVARNBOK.PAR", "HSKALA", 1), 100); // the default alone
    EXPECT_EQ(m_inst.ReadKeyInt("KVARNBOK.PAR", "VARDE", 1), -9);
    EXPECT_EQ(m_inst.ReadKeyDouble("KVARNBOK.PAR", "DENSSTEG", 1), 0.5);
}

TEST_F(KvarnInstTest, NumbersAreWrittenWithAPointAndOpenScalesAsMax) {
    m_folder.Write("KVARNBOK.PAR", "A=1\r\n");
    struct {
        char const* key;
        int value;
        char const* line;
    } const cases[] = {{"HSKALA", -1, "HSKALA=MAX\r\n"}, {"XSKALAX", -1, "XSKALAX=MAX\r\n"},
                       {"HSKALA", -2, "HSKALA=-2\r\n"},  {"DECIMAL", -1, "DECIMAL=-1\r\n"},
                       {"pskala", -1, "pskala=-1\r\n"},  {"TAL", 2147483647, "TAL=2147483647\r\n"}};
    for (auto const& c : cases) {
        EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", c.key, c.value), 0);
        EXPECT_NE(Par().find(c.line), std::string::npos) << c.line;
    }
    m_inst.WriteKey("KVARNBOK.PAR", "D", 2.0, 3);
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "D"), "2.000");
    m_inst.WriteKey("KVARNBOK.PAR", "D", 2.0, 0);
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "D"), "2");
    EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", "D", 1.0, 1000), -1); // longer than a value can be
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "D"), "2");
    EXPECT_EQ(m_inst.WriteKey("ANNAN.PAR", "A", "2"), 0);
    EXPECT_EQ(m_folder.Names().size(), 2U);
}

TEST_F(KvarnInstTest, WithoutAFileAWriteChangesNothing) {
    EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", "HSKALA", "200"), 0);
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "HSKALA"), "100");
}

TEST_F(KvarnInstTest, AFailedWriteIsToldThroughTheFacade) {
    Boxes const boxes;
    std::filesystem::create_directory(m_folder / "KVARNBOK.PAR");
    EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", "HSKALA", "200"), -1);
    EXPECT_EQ(Boxes::Shown().size(), 2U); // reading, then writing
}

TEST_F(KvarnInstTest, CopiesSharePointersAndEmptyObjectsDoNotCrash) {
    CKvarnInst copy(m_inst);
    CAutoIni* ini = nullptr;
    CProjPath* projekt = nullptr;
    copy.GetAiniProjPath(&ini, &projekt);
    EXPECT_EQ(ini, &m_ini);
    EXPECT_EQ(projekt, &m_projekt);
    CKvarnInst fresh;
    EXPECT_EQ(fresh.ReadKey("KVARNBOK.PAR", "HSKALA"), "100");
    fresh = copy;
    EXPECT_EQ(fresh.AiniPtr(), &m_ini);
}

TEST_F(KvarnInstTest, ADecimalCommaInTheProcessChangesNothing) {
    m_folder.Write("KVARNBOK.PAR", "A=2.5\r\n");
    CommaLocale const comma;
    EXPECT_EQ(m_inst.ReadKeyDouble("KVARNBOK.PAR", "A", 0), 2.5);
    EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", "A", 3.25, 2), 0);
    EXPECT_EQ(Par(), "A=3.25\r\n");
    EXPECT_EQ(CKvarnInst::LocaleCheckAndFix(), 0);
    EXPECT_STREQ(std::localeconv()->decimal_point, ".");
    EXPECT_EQ(CKvarnInst::LocaleCheckAndFix(), 0);
}

// A second copy of the tables, typed on its own, beside the one in the library.
constexpr char const* kvarnbok = R"(
HSKALA 100 PLSCALE 1.0 DREIESEKT ORG
LSKALA 100 LTSCALE 1.0 DREIESKALA 300
BREDDLSP 1.0 STAMPVAL 1 DTRYKKSKALA 30
VIMSKALA 50 PLANZ NEJ FJELLSKALA 300
SLBSKALA 50 PLANDJUP NEJ PORESKALA -1
HFASKALA 200 PLANLAGER NEJ P1SKALA 50
JBSKALA 100 PROFNAME NEJ P2SKALA 50
TRSKALA 14 DSKALA 1.5 ENKELSKALA 200
TRSTEG 2 TXTVIDD 1.0 VBSKALA -1
SHOWDZ JA DECIMAL 2 DREIETEGNING 1.0
TAUSKALA 40 FONT TEXT DTRYKKTEGNING 5.0
TAUSTEG 10 LINJEBREDD NEJ FJELLTEGNING 1.0
SENSSKALA 80 SEKTDIST 5.0 PORETEGNING 1.0
SENSSTEG 20 SEKTFIXDIST 0.0 P1TEGNING 1.0
VASKALA 80 KODTYP SGF P2TEGNING 1.0
VASTEG 20 VIMFILTER 3 ENKELTEGNING 1.0
DENSSKALA 2.0 LABTEXT 0 CPTTEGNING 1.0
DENSSTEG 0.5 MTRLKOD STANDARD VBTEGNING 1.0
SGFLAB NEJ HFAVRID 10 TOTROTASJON 35
IDHOJD 3.5 IDSORT 1 TOTSPYLE 100
METHOJD 2.5 PLSYMBFAC 1.0 ARSPYLE 1
PROVHOJD 1.8 FILTER 1 QTSKALA 10
SKALHOJD 2.5 SEKTSTOLPE 0 QTSTEG 2
PLHOJDID 3.0 TOTALSEKT ORG FTSKALA 0.10
PLHOJDNIV 2.0 CPTSEKT ORG FTSTEG 0.02
USKALA 0.8 USTEG 0.2 U0 0.1
)";
constexpr char const* jb23 = R"(
SJUNKSKALA 100 SJUNKSTEG 50 HASTSKALA 40 HASTSTEG 10 KRAFTSKALA 30 KRAFTSTEG 10
RPMSKALA 100 RPMSTEG 25 SPOLSKALA 2 SPOLSTEG 0.5 FLODESKALA 50 FLODESTEG 25
HAMMARSKALA 10 HAMMARSTEG 2.5 TRYCKSKALA 10 TRYCKSTEG 2.5
QTSKALA 14 QTSTEG 2 FTSKALA 100 FTSTEG 50 USKALA 600 USTEG 200
)";
constexpr char const* klippbok = R"(
IDHOJD 3.5 JBMAX 100 SEISL0 4500 METHOJD 2.5 VFMAX 40 SEISL1 3500
PROVHOJD 1.8 VFSTEG 10 PROJICERAD NEJ SKALHOJD 2.5 RBMAX 100 KBNAMN1 -
PLHOJDID 3.0 RBSTEG 50 KBNAMN2 - PLHOJDNIV 2.0 RBHMAX 40 KBNAMN3 -
PLSCALE 1.0 RBHSTEG 10 KBNAMN4 - HSKALA 100 RBKMAX 15 KBMAX1 0.0
LSKALA 100 RBKSTEG 5 KBSTEG1 0.0 DSKALA 1.5 RBVMAX 100 KBMAX2 0.0
BREDDLSP 1.0 RBVSTEG 25 KBSTEG2 0.0 TXTVIDD 1.0 RBSMAX 2 KBMAX3 0.0
DECIMAL 2 RBSSTEG 0.5 KBSTEG3 0.0 FONT TEXT RBFMAX 50 KBMAX4 0.0
LINJEBREDD FÄRG RBFSTEG 25 KBSTEG4 0.0 RBMMAX 10 JB23NAMN1 - RBMSTEG 2.5 JB23NAMN2 -
RBVMMAX 15 TUNPXYTOL 1.0 RBVMSTEG 5
)";

TEST_F(KvarnInstTest, DefaultsEntryForEntry) {
    struct {
        char const* file;
        char const* table;
        int keys;
    } const tables[] = {
        {"KVARNBOK.PAR", kvarnbok, 78}, {"JB23.PAR", jb23, 22}, {"KLIPPBOK.PAR", klippbok, 52}};
    for (auto const& table : tables) {
        std::istringstream rows(table.table);
        std::string key;
        std::string value;
        int keys = 0;
        for (; rows >> key >> value; ++keys) {
            std::string const expected = value == "-" ? "" : *kvarn::FromUtf8(value);
            EXPECT_EQ(m_inst.Default(table.file, key.c_str()), expected.c_str()) << key;
        }
        EXPECT_EQ(keys, table.keys);
        EXPECT_EQ(m_inst.Default(table.file, "SAKNAS"), "");
    }
    EXPECT_EQ(m_inst.Default("annan.par", "HSKALA"), "");
}

} // namespace
