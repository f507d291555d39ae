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
    std::string Write(std::string_view bytes, char const* name = "P27.STP") const {
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
    std::tuple<char const*, char const*, float, double, double> const cases[] = {
        // The values come from the message buffer, where their line is not empty; an empty line is
        // a point without a name, whose level is the next line.
        {"1.5\n2\n3\n4\n5\n0\n*\nGVY\n12.25\n\nB\x99R en\n1.5\n9 9 9 9 9 9\nettlangtnamnx\n2\n\n\n"
         "niva\n4\n*\nefter\n1\n2\n",
         "B\xD6R/1.5/1/6.5\nettlangtnam/2/0/0\n/0/1/6.5\n", 12.25, 1.5, 4},
        {"1\n2\n3\n*\n5\n6\n*\n", "", 0, 1, 0},
        {"1\n2\n3\n4\n5\n6\nskippas\n\ngvy\n-2", "", -2, 1, 4},
        {"1\n2\n3\n4\n5\n6\n*\nGvy", "", 0, 1, 4},
        {"1\n2\n3\n4\n5\n6\n*\nA", "A/0/0/0\n", 0, 1, 4},
        {"1\n2\n3\n4\n5\n6\n*\nA\n7", "A/7/0/0\n", 0, 1, 4},
        {"1\n2\n3\nx\n5\n6\n*\nA\n7\n1 2 3\nB", "A/7/1/6.5\nB/0/0/0\n", 0, 1, 0},
    };
    for (auto const& [file, points, gvy, header1, header4] : cases) {
        std::string_view("1 2 3 4 5 6.5 7").copy(MessageBuffer(), 2047);
        CStodPunkt punkter(Write(file).c_str());
        EXPECT_EQ(Points(punkter), points) << file;
        EXPECT_EQ(punkter.m_gvy, gvy) << file;
        EXPECT_EQ(punkter.m_huvud.varden[0], header1) << file;
        EXPECT_EQ(punkter.m_huvud.varden[3], header4) << file;
        EXPECT_EQ(punkter.m_filnamn, m_folder.Api("P27.STP").c_str());
        EXPECT_EQ(punkter.m_skrivkrok, 1);
    }
    std::memset(MessageBuffer(), '7', 2048); // a host's, without an end: it is read no further
    CStodPunkt punkter(Write("1\n2\n3\n4\n5\n6\n*\nA\n1\nx\n").c_str());
    ASSERT_EQ(punkter.Home(), 0);
    EXPECT_TRUE(std::isinf(punkter.Get_aktel()->varden[0]));
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
    EXPECT_EQ(defaults.m_huvud.varde6, 6);
    EXPECT_EQ(kept.m_huvud.varden[0], 1);
    EXPECT_EQ(kept.m_huvud.varden[4], 5);
    EXPECT_EQ(kept.m_huvud.varde6, 0);
    EXPECT_EQ(kept.m_huvud.ovrigt[3], 7);
}

TEST_F(StodPunktTest, TheNameComesFromTheRight) {
    std::string const path = Write("1\n2\n3\n4\n5\n6\n*\n", "P$A.STP");
    std::string const stem = path.substr(0, path.size() - 4);
    EXPECT_EQ(CStodPunkt(path.c_str()).m_namn,
              stem.substr(stem.size() - path.rfind('$') - 1).c_str());
    EXPECT_EQ(CStodPunkt(Write("", "PA.STP").c_str()).m_namn, "");
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
    again.m_gvy = 0;
    EXPECT_EQ(again.Uppdat(nullptr), 0); // to the file that was read
    EXPECT_EQ(m_folder.Read("ny.stp").find("gvy"), std::string::npos);
}

TEST_F(StodPunktTest, FailuresAreShownAndWhatWasNotReadIsNotOverwritten) {
    Boxes const boxes;
    std::string const missing = m_folder.Api("saknas.stp");
    std::string const folder = m_folder.Api("mapp.stp");
    std::filesystem::create_directory(m_folder / "mapp.stp");
    CStodPunkt none(missing.c_str());
    EXPECT_EQ(none.m_filnamn, "");
    EXPECT_EQ(none.Uppdat(folder.c_str()), -1);
    CStodPunkt unread(folder.c_str());
    EXPECT_EQ(unread.Uppdat(nullptr), -1);
    std::string const cannotRead = "Kan ej öppna stödpunkt : "_1252;
    std::string const cannotWrite = "Kan ej skapa/uppdatera stödpunkt : "_1252;
    EXPECT_EQ(Boxes::Shown(), (std::vector<ShownBox>{{cannotRead + missing, "<title>", 48, 0},
                                                     {cannotWrite + folder, "<title>", 48, 0},
                                                     {cannotRead + folder, "<title>", 48, 0},
                                                     {cannotWrite, "<title>", 48, 0}}));
    EXPECT_EQ(none.Uppdat(missing.c_str()), 0); // it did not exist: it is made
    std::filesystem::remove(m_folder / "mapp.stp");
    m_folder.Write("mapp.stp", "kan nu");
    EXPECT_EQ(unread.Uppdat((m_folder.Api() + "/MAPP.stp").c_str()), -1); // spelt in another way
    EXPECT_EQ(m_folder.Read("mapp.stp"), "kan nu");
    EXPECT_EQ(Boxes::Shown().size(), 5U);
    std::filesystem::remove(m_folder / "mapp.stp");
    EXPECT_EQ(unread.Uppdat(folder.c_str()), 0); // it is gone: nothing is lost
#if !defined(_WIN32)
    std::filesystem::remove(m_folder / "mapp.stp");
    std::filesystem::create_symlink("/proc/self/mem", m_folder / "mapp.stp");
    CStodPunkt broken(folder.c_str()); // breaks off while it is read
    EXPECT_EQ(broken.Uppdat(folder.c_str()), -1);
    EXPECT_EQ(Boxes::Shown().size(), 7U);
    FullDisk const full(8);
    EXPECT_EQ(none.Uppdat(missing.c_str()), -1); // is not shown
    EXPECT_EQ(Boxes::Shown().size(), 7U);
    EXPECT_FALSE(m_folder.Read("saknas.stp").empty());
#endif
}

} // namespace
