// The sorted listing of real folders.
#include <chrono>
#include <random>

#include <gtest/gtest.h>

#include "core/dirsort.h"
#include "support/testfiles.h"

namespace {

using Names = std::vector<std::string>;

class DirSortTest : public testing::Test {
  protected:
    // Noon, so that no zone moves the day.
    void File(std::string const& name, std::size_t size = 0, int year = 2024, int month = 5,
              int day = 1) const {
        m_folder.Write(name, std::string(size, 'x'));
        using namespace std::chrono;
        auto const age =
            system_clock::now() - (sys_days(std::chrono::year(year) / month / day) + 12h);
        using Time = std::filesystem::file_time_type;
        std::filesystem::last_write_time(m_folder / name,
                                         Time::clock::now() - duration_cast<Time::duration>(age));
    }
    Names List(char const* pattern, int key, int clear = 1, int folders = 0) {
        EXPECT_EQ(m_list.Init(m_folder.Api(pattern).c_str(), key, clear, 0, folders), 0);
        Names names;
        for (bool there = m_list.Home() == 0; there; there = m_list++ != nullptr) {
            names.emplace_back(m_list.Get_aktel()->namn);
        }
        return names;
    }
    dirsorttype Entry(char const* name) {
        EXPECT_EQ(List(name, 0), Names{name});
        return *m_list.Get_aktel();
    }

    TestFolder m_folder;
    CDirSort m_list;
};

TEST_F(DirSortTest, NamesAreSortedByTheirNumberThenInCapitals) {
    for (char const* name : {"10.DBF", "9.DBF", "A.DBF", "b.dbf", "_c.DBF", "010.dbf", "9b.DBF"}) {
        File(name);
    }
    EXPECT_EQ(List("*", 1),
              (Names{"9.DBF", "9b.DBF", "010.dbf", "10.DBF", "A.DBF", "b.dbf", "_c.DBF"}));
    // Descending by the number alone: equal ones in the reverse of the order in which they came.
    EXPECT_EQ(List("*", -1),
              (Names{"_c.DBF", "b.dbf", "A.DBF", "10.DBF", "010.dbf", "9b.DBF", "9.DBF"}));
}

struct ModeList : CDirSort {
    using CDirSort::m_lage;
    int during = 0;
    int Sortval(int) override {
        during = m_lage;
        return 0;
    }
};

TEST_F(DirSortTest, TheModeIsTheCallersDuringTheCallAlone) {
    File("a");
    File("b");
    ModeList list;
    list.m_lage = 7;
    EXPECT_EQ(list.Init(m_folder.Api("*").c_str(), 1, 1, 3, 0), 0);
    EXPECT_EQ(list.during, 3);
    EXPECT_EQ(list.m_lage, 7);
}

// A list of a deriving class is sorted by Sortval, record by record.
TEST_F(DirSortTest, TakenKeysGiveTheOrderOfSortval) {
    struct Deriving : CDirSort {};
    auto const names = [](CDirSort& list) {
        Names all;
        for (bool there = list.Home() == 0; there; there = list++ != nullptr) {
            all.emplace_back(list.Get_aktel()->namn);
        }
        return all;
    };
    std::mt19937 random(5);
    for (unsigned i = 0; i < 300; ++i) {
        std::string name;
        for (unsigned rest = i; rest > 0 || name.empty(); rest /= 7) {
            constexpr char const* parts[] = {"1", "0", "a", "_", "A", "+", "-"};
            name += parts[rest % 7];
        }
        File("f/" + name + "x", random() % 4 * 1000, 1968 + static_cast<int>(random() % 4),
             2 + static_cast<int>(random() % 2));
    }
    std::string const pattern = m_folder.Api("f\\*");
    for (int key = -4; key <= 4; ++key) {
        Deriving plain;
        CDirSort taken;
        for (int clear : {1, 0}) { // the second time every record is there twice
            plain.Init(pattern.c_str(), key, clear, 0, 0);
            taken.Init(pattern.c_str(), key, clear, 0, 0);
            ASSERT_EQ(names(taken), names(plain)) << key;
            taken.End();
            EXPECT_EQ(taken++, nullptr);
            EXPECT_NE(taken--, nullptr);
        }
    }
}

TEST_F(DirSortTest, SizesAndDates) {
    File("small", 500, 2023, 12, 31);
    File("empty", 0, 2024, 1, 2);
    File("thousand", 1000, 2024, 1, 1);
    File("large", 70000, 1965);
    File("future", 2, 2038);
    EXPECT_EQ(List("*", 2), List("*", -2)); // ascending as well
    EXPECT_EQ(List("*", 2).front(), "empty");
    EXPECT_EQ(List("*", 2).back(), "large");
    std::tuple<char const*, int, char const*> const cases[] = {
        {"small", 1000, "2023-12-31"},
        {"empty", 0, "2024-01-02"},
        {"large", 70000, "1970-01-01"},
        {"future", 1000, "1970-01-01"},
    };
    for (auto const& [name, size, date] : cases) {
        EXPECT_EQ(Entry(name).storlek, size) << name;
        EXPECT_STREQ(Entry(name).datum, date) << name;
    }
    std::string const time = Entry("small").tid;
    EXPECT_EQ(time.size(), 5U);
    EXPECT_EQ(time[2], '.');
    File("large", 1, 2020);
    File("future", 1, 2021);
    EXPECT_EQ(List("*", 3), (Names{"large", "future", "small", "thousand", "empty"}));
    // By the year alone, equal ones in reverse again.
    EXPECT_EQ(List("*", -3), (Names{"thousand", "empty", "small", "future", "large"}));
}

TEST_F(DirSortTest, PatternsAndTheirExtension) {
    for (char const* name : {"X.DBFX", "x.dbf", "X.DB", "XY.DBF", "none", "dot.tar.DBF"}) {
        File(name);
    }
    std::filesystem::create_directory(m_folder / "map.DBF");
    std::tuple<char const*, int, Names> const cases[] = {
        {"*.DBF", 0, {"dot.tar.DBF", "x.dbf", "XY.DBF"}},
        {"*.DBF", 1, {"dot.tar.DBF", "map.DBF", "x.dbf", "XY.DBF"}},
        {"*.DBFX", 0, {"X.DBFX"}},
        {"X*.D*", 0, {"X.DB", "x.dbf", "X.DBFX", "XY.DBF"}},
        {"*.", 0, {}}, // what ends in a dot
        {"*.", 1, {".", ".."}},
    };
    for (auto const& [pattern, folders, names] : cases) {
        EXPECT_EQ(List(pattern, 1, 1, folders), names) << pattern;
    }
}

TEST_F(DirSortTest, WithoutClearingNewEntriesJoinTheList) {
    File("a/2.txt");
    File("b/1.txt");
    EXPECT_EQ(List("a\\*", 0), Names{"2.txt"});
    EXPECT_EQ(List("b\\*", 1, 0), (Names{"1.txt", "2.txt"}));
    EXPECT_EQ(List("missing\\*", 1, 0), (Names{"1.txt", "2.txt"}));
    EXPECT_EQ(List("missing\\*", 1, 1), Names{});
}

TEST_F(DirSortTest, WithoutAShortNameTheLongOneIsCut) {
    File("a name that is long.text");
    std::string const name = Entry("a name that is long.text").kortNamn;
    EXPECT_TRUE(name == "a name that " || name.find('~') != std::string::npos) << name;
    File("short.txt");
    EXPECT_STRCASEEQ(Entry("short.txt").kortNamn, "short.txt");
}

} // namespace
