#include "geodata/stodpunkt.h"

#include <cmath>
#include <cstring>

#include <gtest/gtest.h>

#include "core/message.h"
#include "support/boxes.h"
#include "support/fulldisk.h"
#include "support/testfiles.h"
#include "text/codepage.h"

namespace {

class StodPunktTest : public testing::Test {
  protected:
    ~StodPunktTest() override { std::memset(MessageBuffer(), 0, 2048); }
    std::string Write(std::string_view bytes, char const* name = "P27$A.STP") const {
        m_folder.Write(name, bytes);
        return m_folder.Api(name);
    }
    TestFolder m_folder;
};

std::string Points(CStodPunkt& punkter) {
    std::string all;
    for (bool more = punkter.Home() == 0; more; more = punkter++ != nullptr) {
        stdpkttype const& p = *punkter.Get_aktel();
        char text[120];
        std::snprintf(text, sizeof text, "%s/%g/%g/%g\n", p.namn, double{p.niva},
                      double{p.varden[0]}, double{p.varden[5]});
        all += text;
    }
    return all;
}

TEST_F(StodPunktTest, HeaderGvyAndPoints) {
    std::string_view("1 2 3 4 5 6.5 7").copy(MessageBuffer(), 2047);
    std::string const path = Write("1.5\n2\n3\n4\n5\n0\n*\nGVY\n12.25\n\n"
                                   "B\x99R en\n1.5\n9 9 9 9 9 9\n"
                                   "ettlangtnamnx\n2\n\n\nniva\n4\n*\nefter\n1\n2\n");
    CStodPunkt punkter(path.c_str());
    EXPECT_EQ(punkter.m_huvud.varden[0], 1.5);
    EXPECT_EQ(punkter.m_huvud.varden[4], 5);
    EXPECT_EQ(punkter.m_gvy, 12.25F);
    EXPECT_EQ(punkter.m_filnamn, path.c_str());
    EXPECT_EQ(punkter.m_skrivkrok, 1);
    // The values come from the message buffer, where their line is not empty; an empty line is a
    // point without a name, whose level is the next line.
    EXPECT_EQ(Points(punkter), "BÖR/1.5/1/6.5\nettlangtnam/2/0/0\n/0/1/6.5\n"_1252);
}

TEST_F(StodPunktTest, AHostsBufferWithoutAnEndIsReadNoFurther) {
    std::memset(MessageBuffer(), '7', 2048);
    CStodPunkt punkter(Write("1\n2\n3\n4\n5\n6\n*\nA\n1\nx\n").c_str());
    ASSERT_EQ(punkter.Home(), 0);
    EXPECT_TRUE(std::isinf(punkter.Get_aktel()->varden[0]));
}

TEST_F(StodPunktTest, FilesThatEndEarly) {
    struct {
        char const* file;
        char const* points;
        float gvy;
        double header4;
    } const cases[] = {
        {"", "", 0, 0},
        {"1\n2\n3\n4\n5\n6\n*\n", "", 0, 4},
        {"1\n2\n3\n*\n5\n6\n*\n", "", 0, 0},
        {"1\n2\n3\n4\n5\n6\nskippas\n\ngvy\n-2", "", -2, 4},
        {"1\n2\n3\n4\n5\n6\n*\nGvy", "", 0, 4},
        {"1\n2\n3\n4\n5\n6\n*\nA", "A/0/0/0\n", 0, 4},
        {"1\n2\n3\n4\n5\n6\n*\nA\n7", "A/7/0/0\n", 0, 4},
        {"1\n2\n3\nx\n5\n6\n*\nA\n7\n1 2 3\nB", "A/7/0/0\nB/0/0/0\n", 0, 0},
    };
    for (auto const& c : cases) {
        CStodPunkt punkter(Write(c.file).c_str());
        EXPECT_EQ(Points(punkter), c.points) << c.file;
        EXPECT_EQ(punkter.m_gvy, c.gvy) << c.file;
        EXPECT_EQ(punkter.m_huvud.varden[3], c.header4) << c.file;
    }
}

TEST_F(StodPunktTest, TheSixthNumberLiesOverTheFloat) {
    double const read = 6.25e10;
    float low = 0;
    std::memcpy(&low, &read, sizeof low); // little-endian hosts
    CStodPunkt punkter(Write("1\n2\n3\n4\n5\n6.25e10\n*\n").c_str());
    EXPECT_EQ(punkter.m_huvud.varde6, low);
    EXPECT_NE(low, 0);
    stdhuvudtype const before = CStodPunkt::m_standardhuvud;
    CStodPunkt::m_standardhuvud = {{1, 2, 3, 4, 5}, 6, {7, 7, 7, 7}};
    CStodPunkt defaults;
    CStodPunkt kept(Write("*\n*\n*\n*\nx\n*\n").c_str());
    CStodPunkt::m_standardhuvud = before;
    EXPECT_EQ(defaults.m_huvud.varden[4], 5);
    EXPECT_EQ(defaults.m_huvud.varde6, 6);
    EXPECT_EQ(kept.m_huvud.varden[0], 1);
    EXPECT_EQ(kept.m_huvud.varden[4], 5);
    EXPECT_EQ(kept.m_huvud.varde6, 0);
    EXPECT_EQ(kept.m_huvud.ovrigt[3], 7);
}

TEST_F(StodPunktTest, TheNameComesFromTheRight) {
    std::string const content = "1\n2\n3\n4\n5\n6\n*\n";
    std::string const path = Write(content, "P$A.STP");
    std::size_t const dollar = path.rfind('$');
    CStodPunkt with(path.c_str());
    std::string const stem = path.substr(0, path.size() - 4);
    EXPECT_EQ(with.m_namn, stem.substr(stem.size() - dollar - 1).c_str());
    CStodPunkt without(Write(content, "PA.STP").c_str());
    EXPECT_EQ(without.m_namn, "");
}

TEST_F(StodPunktTest, WrittenAsItIsHeld) {
    CStodPunkt punkter;
    std::string const path = m_folder.Api("ny.stp");
    EXPECT_EQ(punkter.Uppdat(path.c_str()), 0);
    std::string const zeros = "0.000000\r\n0.000000\r\n0.000000\r\n0.000000\r\n0.000000\r\n";
    EXPECT_EQ(m_folder.Read("ny.stp"), zeros + "0.000000\r\n*\r\n");
    punkter.m_huvud.varde6 = 1.5F;
    punkter.m_gvy = -0.5F;
    stdpkttype punkt = {"A", 1234.56789F, {1, -2.345F, 3, 4, 5, 12345.678F}};
    punkter.Ny(1, &punkt);
    EXPECT_EQ(punkter.Uppdat(CString(path.c_str())), 0);
    EXPECT_EQ(m_folder.Read("ny.stp"),
              zeros + "1.500000\r\n*\r\ngvy\r\n  -0.5000\r\n\r\nA\r\n1234.5679\r\n"
                      "  1.00  -2.35   3.00   4.00   5.00 12345.68\r\n*\r\n");
    CStodPunkt again(path.c_str());
    EXPECT_EQ(again.m_gvy, -0.5F);
    EXPECT_EQ(again.Uppdat(nullptr), 0); // to the file that was read
    ASSERT_EQ(again.Home(), 0);
    EXPECT_STREQ(again.Get_aktel()->namn, "A");
}

TEST_F(StodPunktTest, FailuresAreShown) {
    Boxes const boxes;
    std::string const missing = m_folder.Api("saknas.stp");
    CStodPunkt none(missing.c_str());
    EXPECT_EQ(none.m_filnamn, "");
    std::filesystem::create_directory(m_folder / "mapp.stp");
    EXPECT_EQ(none.Uppdat(m_folder.Api("mapp.stp").c_str()), -1);
    CStodPunkt folder(m_folder.Api("mapp.stp").c_str());
    EXPECT_EQ(folder.Uppdat(nullptr), -1);
    ASSERT_EQ(Boxes::Shown().size(), 4U);
    EXPECT_EQ(Boxes::Shown()[0],
              (ShownBox{"Kan ej öppna stödpunkt : "_1252 + missing, "<title>", 48, 0}));
    EXPECT_EQ(Boxes::Shown()[1],
              (ShownBox{"Kan ej skapa/uppdatera stödpunkt : "_1252 + m_folder.Api("mapp.stp"),
                        "<title>", 48, 0}));
    EXPECT_EQ(none.Uppdat(missing.c_str()), 0); // it did not exist: it is made
}

#if !defined(_WIN32)

TEST_F(StodPunktTest, AFileThatCouldNotBeReadIsNotOverwritten) {
    Boxes const boxes;
    std::filesystem::create_symlink("/proc/self/mem", m_folder / "fel.stp");
    CStodPunkt punkter(m_folder.Api("fel.stp").c_str());
    EXPECT_EQ(punkter.Uppdat(m_folder.Api("fel.stp").c_str()), -1);
    std::string const spelt = m_folder.Api() + "/FEL.stp"; // in another way
    EXPECT_EQ(punkter.Uppdat(spelt.c_str()), -1);
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder / "fel.stp"));
    EXPECT_EQ(Boxes::Shown().size(), 3U);
    std::filesystem::remove(m_folder / "fel.stp");
    {
        FullDisk const full(8);
        EXPECT_EQ(punkter.Uppdat(spelt.c_str()), -1);
    }
    EXPECT_TRUE(m_folder.Names().empty());
    EXPECT_EQ(punkter.Uppdat(spelt.c_str()), 0); // it is gone: nothing is lost
}

#endif

} // namespace
