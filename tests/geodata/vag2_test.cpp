// The road: plan and profile in one file, and the area file of a project.
#include <sstream>

#include <gtest/gtest.h>

#include "geodata/vag2.h"
#include "support/boxes.h"
#include "support/statusbar.h"
#include "support/testfiles.h"
#include "support/vertices.h"

namespace {

class Vag2Test : public testing::Test {
  protected:
    Vag2Test() {
        std::filesystem::create_directories(m_folder / "KVARNBOK.DBF");
        m_projekt.SetPath(m_folder.Api().c_str());
    }
    ~Vag2Test() override { *MessageBuffer() = '\0'; }

    std::string Api(char const* name) const {
        return m_folder.Api("KVARNBOK.DBF\\" + std::string(name));
    }
    void Write(std::string const& name, std::string_view bytes) const {
        m_folder.Write("KVARNBOK.DBF/" + name, bytes);
    }
    std::string Read(std::string const& name) const {
        return m_folder.Read("KVARNBOK.DBF/" + name);
    }

    TestFolder m_folder;
    CProjPath m_projekt;
    Boxes m_boxes;
    StatusBar m_status;
};

std::string const combined = "1.0000 2.0000 0.1000 0.0000 1 $V\xE4g 27\r\n"
                             "3.0000 4.0000 0.0000 2.8500\r\n"
                             "*\r\nProfil\r\n*\r\n"
                             "10.5000 0.0000 0.0000\r\n"
                             "11.5000 2.8500 -0.0010\r\n";

TEST_F(Vag2Test, ACombinedFileComesBackByteForByte) {
    Write("vag.vl", combined);
    CVag2 vag;
    EXPECT_EQ(vag.Init(CString(Api("vag.vl").c_str())), 0);
    EXPECT_STREQ(vag.namn, "V\xE4g 27");
    EXPECT_STREQ(vag.filnamn, "vag.vl");
    EXPECT_EQ(VerticesOf(vag.plan), (Vertices{{1, 2, 0.1, 0}, {3, 4, 0, 2.85}}));
    EXPECT_EQ(VerticesOf(vag.profil), (Vertices{{10.5, 0, 0, 0}, {11.5, 2.85, -0.001, 2.85}}));
    EXPECT_EQ(vag.plan.omrSekTill, 2.85);
    EXPECT_EQ(vag.profil.omrAvstMin, -30);
    EXPECT_EQ(vag.omrSekTill, 0);
    EXPECT_EQ(vag.Uppdat(CString(Api("ny.vl").c_str())), 0);
    EXPECT_EQ(Read("ny.vl"), combined);

    EXPECT_EQ(vag.Init(Api("ny.vl").c_str()), 0); // appends
    EXPECT_EQ(VerticesOf(vag.plan).size(), 4U);
    EXPECT_EQ(VerticesOf(vag.profil).size(), 4U);
    EXPECT_EQ(vag.Init(static_cast<char const*>(nullptr)), 0);
    EXPECT_EQ(vag.Init(Api("saknas").c_str()), -1); // and what cannot be read changes nothing
    EXPECT_EQ(VerticesOf(vag.plan).size(), 4U);
    EXPECT_STREQ(vag.filnamn, "ny.vl");
}

TEST_F(Vag2Test, TheHeaderOrTheStationsTellAPlanFromAProfile) {
    std::tuple<char const*, std::size_t, std::size_t> const cases[] = {
        {"5 0 0 9 10 $p\r\n6 7 0 8\r\n", 0, 2}, // by the type
        {"5 0 0 0 1 $p\r\n6 7 0 7\r\n", 2, 0},
        {"5 0 0 0\r\n6 7 0 7\r\n8 9 0 1\r\n", 0, 3}, // by two equal stations
        {"5 0 0 0 5 $typ 5\r\n6 7 0 7\r\n", 0, 2},   // a type that is neither
        {"5 0 0 0.1\r\n6 7 0 7.09\r\n", 0, 2},       // the limit counts in the first line
        {"5 0 0 0\r\n6 0 0 0.1\r\n", 2, 0},          // and not in the second
        {"5 0 0 0.11\r\n6 7 0 7\r\n", 2, 0},
        {"5 0 0 0\r\n6 7 0\r\n8 9 0 9\r\n", 2, 0},  // the second line is bad
        {"5 0 0 0\r\n", 1, 0},                      // or missing
        {"rubrik\r\n5 0 0 0\r\n6 7 0 7\r\n", 2, 0}, // a header without numbers
        {"5 0 0 nan\r\n6 7 0 7\r\n", 2, 0},
        {"*\r\nProfil\r\n*\r\n5 0 0\r\n6 7 0\r\n", 0, 2}, // a profile part alone
        {"1 2 0 0 1\r\n*\r\n3 4 0 9", 1, 0}, // two lines are skipped, whatever they are
        {"", 0, 0},
    };
    for (auto const& [file, plan, profil] : cases) {
        Write("fil", file);
        CVag2 vag;
        EXPECT_EQ(vag.Init(Api("fil").c_str()), 0);
        EXPECT_EQ(VerticesOf(vag.plan).size(), plan) << file;
        EXPECT_EQ(VerticesOf(vag.profil).size(), profil) << file;
    }
}

TEST_F(Vag2Test, ABadLineOfTheProfileIsKeptWhereTheMessageBufferBeginsWithAStar) {
    Write("fil",
          "1 2 0 0 1 $A\r\nbad plan\r\n*\r\nProfil\r\n*\r\nx\r\n5 6 7\r\n8\r\n\r\n9 1 2\r\n");
    std::tuple<char, Vertices, char const*> const cases[] = {
        {'-', {{5, 6, 7, 6}, {9, 1, 2, 1}}, ""},
        {'*', {{0, 0, 0, 0}, {5, 6, 7, 6}, {8, 6, 7, 6}, {8, 6, 7, 6}, {9, 1, 2, 1}}, "bad plan"},
    };
    for (auto const& [buffer, profil, last] : cases) {
        *MessageBuffer() = buffer;
        CVag2 vag;
        EXPECT_EQ(vag.Init(Api("fil").c_str()), 0);
        EXPECT_EQ(VerticesOf(vag.profil), profil);
        EXPECT_EQ(LastMessage(), std::string("Fel rad : ") + last);
        EXPECT_EQ(m_status.Text(), last);
    }
}

TEST_F(Vag2Test, AProfileWithoutAPlanIsWrittenAsARoadLine) {
    CVag2 vag;
    std::strcpy(vag.namn, "P");
    EXPECT_EQ(vag.Uppdat(Api("fil").c_str()), 0);
    EXPECT_EQ(Read("fil"), "");
    EXPECT_STREQ(vag.profil.namn, ""); // only a profile that is written gets the name
    Append(vag.profil, {{5, 6, 0, 6}, {7, 8, 0, 8}});
    EXPECT_EQ(vag.Uppdat(Api("fil").c_str()), 0);
    EXPECT_EQ(Read("fil"), "5.0000 6.0000 0.0000 6.0000 10 $P\r\n7.0000 8.0000 0.0000 8.0000\r\n");
    EXPECT_STREQ(vag.profil.namn, "P");
}

TEST_F(Vag2Test, TheAreaFileNamesTheRoadItsStationsAndItsOffsets) {
    Write("27.vl", combined);
    std::string const stars = "*\r\n*\r\n";
    std::tuple<std::string, int, std::string> const cases[] = {
        {"free\r\n*\r\nfree\r\n* too\r\n27.vl\r\n1 2 x\r\n-3 4\r\nfree *\r\n*\r\n", 0, "1 2 -3 4"},
        {stars + "27.vl\r\n1 2\r\n-3\r\n-5 6\r\n", -1, "1 2 -30 30"}, // one number: the end
        {stars + "27.vl\r\n1\r\n-3 4\r\n", -1, "0 0 -30 30"},
        {stars + "27.vl\r\n1 2\r\n", -1, "1 2 -30 30"},
        {stars + "\r\n1 2\r\n-3 4\r\n", -1, "1 2 -3 4"}, // no name
        {"*\r\n27.vl\r\n1 2\r\n-3 4\r\n", -1, "0 0 -30 30"},
        {stars + "27.vl\r\n*\r\n-3 4\r\n", 0, "0 0 -3 4"}, // a star in a line's place
        // A full piece has no room for its line end, which is then taken for the stations' line.
        {stars + std::string(255, 'n') + "\r\n1 2\r\n-3 4\r\n", -1, "0 0 -30 30"},
        {"", -1, "0 0 -30 30"},
    };
    CVag2 vag;
    EXPECT_EQ(vag.ReadOmr(&m_projekt), -1);
    EXPECT_EQ(vag.ReadOmr(nullptr), -1);
    for (auto const& [file, result, area] : cases) {
        Write("KVARNBOK.VL", file);
        CVag2 one;
        EXPECT_EQ(one.ReadOmr(&m_projekt), result) << file;
        std::ostringstream read;
        read << one.omrSekFran << ' ' << one.omrSekTill << ' ' << one.omrAvstMin << ' '
             << one.omrAvstMax;
        EXPECT_EQ(read.str(), area) << file;
        EXPECT_EQ(VerticesOf(one.plan).size(), result == 0 ? 2U : 0U);
    }
    EXPECT_TRUE(Boxes::Shown().empty());
    Write("KVARNBOK.VL", stars + "saknas.vl\r\n1 2\r\n3 4\r\n");
    EXPECT_EQ(vag.ReadOmr(&m_projekt), -1);
    EXPECT_EQ(Boxes::Shown().size(), 1U);
}

TEST_F(Vag2Test, SavingTheAreaKeepsTheUsersOwnLines) {
    std::string const own = std::string(300, 'x') + "*\r\n* mitt\r\n\r\n*slut\r\n";
    std::string const area = "27.vl\r\n1.000 2.500\r\n-3.000 1000000.125\r\n";
    CVag2 vag;
    std::strcpy(vag.filnamn, "27.vl");
    vag.omrSekFran = 1;
    vag.omrSekTill = 2.5;
    vag.omrAvstMin = -3;
    vag.omrAvstMax = 1000000.125;
    EXPECT_EQ(vag.SaveOmr(&m_projekt), 0);
    EXPECT_EQ(Read("KVARNBOK.VL"), "*\r\n*\r\n" + area);
    for (std::string const rest : {"gammal.vl\r\n1 2\r\n", "", "*\r\n*\r\n"}) {
        Write("KVARNBOK.VL", own + rest);
        Write("vl.tmp", "left by a program that was killed");
        EXPECT_EQ(vag.SaveOmr(&m_projekt), 0);
        EXPECT_EQ(Read("KVARNBOK.VL"), own + area);
        EXPECT_FALSE(std::filesystem::exists(m_folder / "KVARNBOK.DBF/vl.tmp"));
    }
    Write("KVARNBOK.VL", "no stars\r\n*but one");
    EXPECT_EQ(vag.SaveOmr(&m_projekt), 0);
    EXPECT_EQ(Read("KVARNBOK.VL"), "no stars\r\n*but one\r\n" + area);

    std::filesystem::create_directory(m_folder / "KVARNBOK.DBF/vl.tmp");
    vag.omrSekFran = 9;
    EXPECT_EQ(vag.SaveOmr(&m_projekt), -1);
    EXPECT_EQ(Read("KVARNBOK.VL"), "no stars\r\n*but one\r\n" + area);
    EXPECT_EQ(vag.SaveOmr(nullptr), -1);
    EXPECT_TRUE(Boxes::Shown().empty());
}

} // namespace
