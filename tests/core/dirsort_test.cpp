// The sorted listing of real folders.
#include <algorithm>
#include <chrono>

#include <gtest/gtest.h>

#include "core/dirsort.h"
#include "support/testfiles.h"

namespace {

using Names = std::vector<std::string>;

class DirSortTest : public testing::Test {
  protected:
    // Noon, so that no zone moves the day.
    void File(std::string const& name, std::size_t size = 0, int year = 2024, unsigned month = 5,
              unsigned day = 1) const {
        m_folder.Write(name, std::string(size, 'x'));
        using namespace std::chrono;
        sys_days const date =
            std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day);
        auto const age = system_clock::now() - (date + hours(12));
        std::filesystem::last_write_time(
            m_folder / name, std::filesystem::file_time_type::clock::now() -
                                 duration_cast<std::filesystem::file_time_type::duration>(age));
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
    Names expected = List("*", 0);
    std::reverse(expected.begin(), expected.end());
    auto const number = [](std::string const& name) {
        int const n = std::atoi(name.c_str());
        return n != 0 ? n : 99999999;
    };
    std::stable_sort(expected.begin(), expected.end(),
                     [&](auto const& a, auto const& b) { return number(a) > number(b); });
    EXPECT_EQ(List("*", -1), expected);
}

TEST_F(DirSortTest, SizesAndDates) {
    File("small", 500, 2023, 12, 31);
    File("empty", 0, 2024, 1, 2);
    File("thousand", 1000, 2024, 1, 1);
    File("large", 70000, 1965);
    File("future", 2, 2038);
    EXPECT_EQ(List("*", 2).front(), "empty");
    EXPECT_EQ(List("*", -2).back(), "large"); // ascending as well
    EXPECT_EQ(Entry("small").storlek, 1000);
    EXPECT_EQ(Entry("empty").storlek, 0);
    EXPECT_EQ(Entry("large").storlek, 70000);
    EXPECT_STREQ(Entry("small").datum, "2023-12-31");
    EXPECT_STREQ(Entry("large").datum, "1970-01-01");
    EXPECT_STREQ(Entry("future").datum, "1970-01-01");
    std::string const time = Entry("small").tid;
    EXPECT_EQ(time.size(), 5U);
    EXPECT_EQ(time[2], '.');
    File("large", 1, 2020);
    File("future", 1, 2021);
    EXPECT_EQ(List("*", 3), (Names{"large", "future", "small", "thousand", "empty"}));
    Names const years = List("*", -3);
    Names const found = List("*", 0);
    EXPECT_EQ(Names(years.begin() + 2, years.end()), (Names{"small", "future", "large"}));
    bool const thousandFirst = std::find(found.begin(), found.end(), "thousand") <
                               std::find(found.begin(), found.end(), "empty");
    EXPECT_EQ(years[0], thousandFirst ? "empty" : "thousand"); // the reverse
}

TEST_F(DirSortTest, PatternsAndTheirExtension) {
    for (char const* name : {"X.DBFX", "x.dbf", "X.DB", "XY.DBF", "none", "dot.tar.DBF"}) {
        File(name);
    }
    std::filesystem::create_directory(m_folder / "map.DBF");
    struct {
        char const* pattern;
        int folders;
        Names names;
    } const cases[] = {
        {"*.DBF", 0, {"dot.tar.DBF", "x.dbf", "XY.DBF"}},
        {"*.DBF", 1, {"dot.tar.DBF", "map.DBF", "x.dbf", "XY.DBF"}},
        {"*.DBFX", 0, {"X.DBFX"}},
        {"X*.D*", 0, {"X.DB", "x.dbf", "X.DBFX", "XY.DBF"}},
        {"?.DBF", 0, {"x.dbf"}},
        {"NONE", 0, {"none"}},
        {"*.*", 0, {"dot.tar.DBF", "none", "X.DB", "x.dbf", "X.DBFX", "XY.DBF"}},
        {"*.*",
         1,
         {".", "..", "dot.tar.DBF", "map.DBF", "none", "X.DB", "x.dbf", "X.DBFX", "XY.DBF"}},
        {"*.", 0, {}}, // what ends in a dot
        {"*.", 1, {".", ".."}},
        {"?", 1, {"."}},
        {"NON? ", 0, {"none"}},
        {"missing*", 0, {}},
        {"missing\\*", 0, {}},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(List(c.pattern, 1, 1, c.folders), c.names) << c.pattern;
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
