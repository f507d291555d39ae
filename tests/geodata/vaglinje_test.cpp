// The road line's file.
#include <gtest/gtest.h>

#include "geodata/vaglinje.h"
#include "support/boxes.h"
#include "support/statusbar.h"
#include "support/testfiles.h"
#include "support/vertices.h"
#include "text/codepage.h"

namespace {

using namespace std::string_literals;
class VaglinjeTest : public testing::Test {
  protected:
    // Into a line that has a type, a name and a record already.
    void Read(std::string_view bytes) {
        m_folder.Write("fil.vl", bytes);
        linje.typ = 7;
        std::strcpy(linje.namn, "before");
        linje.Ny(1, nullptr);
        EXPECT_EQ(linje.Init(CString(Path().c_str())), 0);
    }
    std::string Path() const { return m_folder.Api("fil.vl"); }
    ShownBox CannotOpen(std::string const& path) const {
        return {"Kan ej öppna väglinje : "_1252 + path, "<title>", 48, 0};
    }

    TestFolder m_folder;
    Boxes m_boxes;
    StatusBar m_status;
    CVaglinje linje;
};

TEST_F(VaglinjeTest, TheHeaderGivesTypeAndNameAndIsTheFirstVertex) {
    std::string const letters255(255, 'n');
    std::tuple<std::string, int, std::string, std::size_t> const cases[] = {
        {"1 2 3 4 10 $Gamla v\x84gen\r\n5 6 7 8 1 $x\r\n", 10, "Gamla v\xE4gen", 2},
        {"1 2 3 4\r\n5 6 7 8", 7, "", 2},
        {"1 2 3 4 typ $ A $B", 7, " A ", 1},
        {"$A\r\n1 2 3 4 5\r\n", 7, "A", 1},
        {"1 2 3 4 -1 $" + letters255 + "x\r\n", -1, letters255, 1},
        {"1 2 3 4 1 $\x8F\x99\xED\x82\r\n", 1, "\xC5\xD6\xD8\xE9", 1},
        {"", 7, "before", 0},
    };
    for (auto const& [file, typ, namn, vertices] : cases) {
        Read(file);
        EXPECT_EQ(linje.typ, typ) << file;
        EXPECT_EQ(linje.namn, namn) << file;
        EXPECT_EQ(VerticesOf(linje).size(), vertices) << file;
    }
    EXPECT_STREQ(linje.filnamn, "fil.vl");
    EXPECT_TRUE(Boxes::Shown().empty());
}

TEST_F(VaglinjeTest, ALineWithoutFourNumbersIsReportedAndSkipped) {
    std::string const before = MessageBuffer();
    for (std::string const bad : {"1 2 3", "v\x84gen", "1 2 x 4", "   "}) {
        Read("1 2 0 0\r\n" + bad + "\r\n3 4 0 9\r\n");
        EXPECT_EQ(VerticesOf(linje), (Vertices{{1, 2, 0, 0}, {3, 4, 0, 9}})) << bad;
        EXPECT_EQ(LastMessage(), "Fel rad : " + bad);
        EXPECT_EQ(m_status.Text(), bad.c_str());
    }
    EXPECT_EQ(MessageBuffer(), before); // another text
}

TEST_F(VaglinjeTest, AFileThatCannotBeReadLeavesAnEmptyLineAndSaysSo) {
    Read("1 2 0 0 1 $A\r\n");
    linje.Reset();
    std::filesystem::create_directory(m_folder / "katalog");
    for (std::string const& path : {m_folder.Api("saknas.vl"), m_folder.Api("katalog")}) {
        linje.Ny(1, nullptr);
        EXPECT_EQ(linje.Init(path.c_str()), -1);
        EXPECT_EQ(linje.Home(), -1);
        EXPECT_EQ(Boxes::Shown().back(), CannotOpen(path));
        EXPECT_EQ(MessageBuffer(), CannotOpen(path).text);
    }
    linje.Ny(1, nullptr);
    EXPECT_EQ(linje.Init(nullptr), 0);
    EXPECT_EQ(linje.Home(), -1);
    EXPECT_EQ(Boxes::Shown().size(), 2U);
    EXPECT_STREQ(linje.filnamn, "fil.vl");
    EXPECT_STREQ(linje.namn, "A");
    EXPECT_EQ(linje.omrAvstMax, 30);
}

TEST_F(VaglinjeTest, WritingKeepsFourDecimals) {
    linje.typ = 1;
    std::strcpy(linje.namn, "v\xE4g \x84"); // not converted back
    Append(linje, {{6580000.12346, -153000.00006, 0.41421356, 0}, {1e15, 0, -1, 12.5}});
    EXPECT_EQ(linje.Uppdat(CString(Path().c_str())), 0);
    EXPECT_EQ(m_folder.Read("fil.vl"), "6580000.1235 -153000.0001 0.4142 0.0000 1 $v\xE4g \x84\r\n"
                                       "1000000000000000.0000 0.0000 -1.0000 12.5000\r\n");
    EXPECT_EQ(CVaglinje().Uppdat(Path().c_str()), 0);
    EXPECT_EQ(m_folder.Read("fil.vl"), "");
    EXPECT_EQ(m_folder.Names(), std::vector<std::string>{"fil.vl"});
}

TEST_F(VaglinjeTest, WhatCannotBeWrittenStaysAsItIs) {
    Append(linje, {{1, 2, 3, 4}});
    std::filesystem::create_directory(m_folder / "katalog");
    for (std::string const& path : {m_folder.Api("katalog"), m_folder.Api("saknas\\fil.vl"), ""s}) {
        EXPECT_EQ(linje.Uppdat(path.c_str()), -1);
        ASSERT_FALSE(Boxes::Shown().empty()) << path;
        EXPECT_EQ(Boxes::Shown().back(), CannotOpen(path));
    }
    EXPECT_EQ(linje.Uppdat(static_cast<char const*>(nullptr)), -1);
#if !defined(_WIN32)
    // A file that breaks off while it is read is not overwritten from that.
    std::filesystem::create_symlink("/proc/self/mem", m_folder / "fil");
    EXPECT_EQ(linje.Init(m_folder.Api("fil").c_str()), -1);
    std::filesystem::remove(m_folder / "fil");
    m_folder.Write("fil", "1 2 3 4\r\n");
    EXPECT_EQ(linje.Uppdat(m_folder.Api("fil").c_str()), -1);
    EXPECT_EQ(m_folder.Read("fil"), "1 2 3 4\r\n");
    EXPECT_EQ(linje.Init(nullptr), 0); // another reading, be it of nothing
    EXPECT_EQ(linje.Uppdat(m_folder.Api("fil").c_str()), 0);
#endif
}

TEST_F(VaglinjeTest, ResetGivesTheAreaAndKeepsTheCurrentVertex) {
    auto const area = [&] {
        return std::vector{linje.omrSekFran, linje.omrSekTill, linje.omrAvstMin, linje.omrAvstMax};
    };
    linje.omrSekTill = 5;
    EXPECT_EQ(linje.Reset(), -1);
    EXPECT_EQ(area(), std::vector<double>(4, 0));
    Append(linje, {{1, 2, 0, 100}, {3, 4, 0, 150}, {5, 6, 0, 200}});
    linje.Home();
    linje.Set_mark();
    linje++;
    EXPECT_EQ(linje.Reset(), 0);
    EXPECT_EQ(area(), (std::vector<double>{100, 200, -30, 30}));
    EXPECT_EQ(linje.Where(nullptr), 2);
    linje.Home();
    EXPECT_EQ(linje.Goto_mark(), 0);
    double x = 0;
    double y = 0;
    double sektion = 0;
    EXPECT_EQ(linje.Vagnu(&x, &y, &sektion), 0);
    EXPECT_EQ((kovltype{x, y, 0, sektion}), (kovltype{3, 4, 0, 150}));
    linje.typ = 10;
    EXPECT_EQ(linje.Vagnu(&x, &y, &sektion), -1);
    EXPECT_EQ(CVaglinje().Vagnu(&x, &y, &sektion), -1);
}

} // namespace
