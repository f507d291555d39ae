// Wildcards and times of the folder search.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <random>

#include <gtest/gtest.h>

#include "core/dirsort.h"
#include "files/filesearch.h"
#include "host/calls.h"
#include "support/testfiles.h"
#include "text/format.h"

namespace {

using Names = std::vector<std::string>;

Names Found(TestFolder const& folder, char const* pattern) {
    Names names;
    WIN32_FIND_DATAA entry{};
    HANDLE const search = FindFirstFileA(folder.Api(pattern).c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) {
        return names;
    }
    do {
        names.emplace_back(entry.cFileName);
    } while (FindNextFileA(search, &entry) != FALSE);
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

TEST(Search, BlanksAndDotsAtThePatternsEndAreDropped) {
    TestFolder const folder;
    for (char const* name : {"a.b", "aab", "none", "x.y.z"}) {
        folder.Write(name, "");
    }
    Names const all = {".", "..", "a.b", "aab", "none", "x.y.z"};
    std::pair<char const*, Names> const cases[] = {
        {"aa? ", {"aab"}}, {"aa?.", {"aab"}}, {"aa? . .", {"aab"}}, {"NONE ", {"none"}},
        {"*.b ", {"a.b"}}, {"*.b.", {"a.b"}}, {"* ", all},          {"*.* ", all},
        {"*.*.", all},     {"*. ", all},      {"?. ", {"."}},       {"?", {"."}},
        {".. .", {}},      {" ", {}},
    };
    for (auto const& [pattern, names] : cases) {
        EXPECT_EQ(Found(folder, pattern), names) << pattern;
    }
}

#if !defined(_WIN32)

// By the stand-in's own function: in these Wine differs from what is documented.
TEST(Search, WildcardsMatchAsWindowsDocumentsThem) {
    std::string const many(50, 'a');
    std::tuple<char const*, Names, Names> const cases[] = {
        // which match, and which do not
        {"*", {"", "a.b"}, {}},
        {"*.*", {"none", "a.b"}, {}},
        {"*.", {"none", ".", ".."}, {"a.b", ".hid"}}, // names without an extension
        {"*..", {}, {"a.b"}},
        {"a*.", {"ab"}, {"a.b"}},
        {"?", {"."}, {".."}},
        {"??", {"."}, {".."}},
        {"?.*", {"."}, {}},
        {"a.*", {"a"}, {}},
        {"a.?", {"a", "a.b"}, {"a.bc"}},
        {"???.x", {"ab.x"}, {"abcd.x"}}, // a mark matches the end of a part too
        {"a?", {"a"}, {}},
        {"a?b", {}, {"ab"}},
        {"*.DBF?", {"x.dbf"}, {}},
        {"*.b", {"a.a.b"}, {"a.b.c"}}, // up to the last dot
        {"a*b*c", {"a1b2b3c"}, {"a1b2b3"}},
        {"\xC5*", {"\xE5sa"}, {}},
        {"*a*a*a*a*a*a*a*a*a*a*a*b", {many + 'b'}, {many}}, // and soon
    };
    for (auto const& [pattern, matching, others] : cases) {
        SCOPED_TRACE(pattern);
        for (std::string const& name : matching) {
            EXPECT_TRUE(kvarn::MatchesWildcards(pattern, name.c_str())) << name;
        }
        for (std::string const& name : others) {
            EXPECT_FALSE(kvarn::MatchesWildcards(pattern, name.c_str())) << name;
        }
    }
}

#endif

// The process's time zone; that of the system stays on Windows.
class Zone {
  public:
    explicit Zone(std::string const& zone) : m_before(Now()) { Set(zone); }
    ~Zone() { Set(m_before); }
    Zone(Zone const&) = delete;
    Zone& operator=(Zone const&) = delete;

  private:
    static std::string Now() {
        char const* const zone = std::getenv("TZ");
        return zone != nullptr ? zone : ":/etc/localtime";
    }
    static void Set([[maybe_unused]] std::string const& zone) {
#if !defined(_WIN32)
        setenv("TZ", zone.c_str(), 1);
        tzset();
#endif
    }

    std::string m_before;
};

// As the system converts each file's time, whatever half of the year that is in.
TEST(Search, TheListingShowsLocalTimes) {
    TestFolder const folder;
    std::mt19937_64 random(4);
    auto const now = std::filesystem::file_time_type::clock::now();
    for (int i = 0; i < 200; ++i) {
        folder.Write(std::to_string(i), "");
        constexpr std::int64_t tenYears = 315'532'800; // seconds
        std::chrono::seconds const age(static_cast<std::int64_t>(random() % (6 * tenYears)) -
                                       tenYears);
        std::filesystem::last_write_time(folder / std::to_string(i), now - age);
    }
    for (char const* zone : {"UTC0", "CET-1CEST,M3.5.0,M10.5.0/3", "XXX+9:30"}) {
        Zone const set(zone);
        CDirSort list;
        list.Init(folder.Api("*").c_str(), 0, 1, 0, 0);
        bool there = list.Home() == 0;
        for (kvarn::FileSearch search(folder.Api("*").c_str()); search.Found(); search.Next()) {
            if ((search.Entry().dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
                continue;
            }
            FILETIME local{};
            SYSTEMTIME t{};
            FileTimeToLocalFileTime(&search.Entry().ftLastWriteTime, &local);
            FileTimeToSystemTime(&local, &t);
            bool const shown = t.wYear >= 1970 && t.wYear <= 2037;
            ASSERT_TRUE(there);
            dirsorttype const& post = *list.Get_aktel();
            EXPECT_STREQ(post.namn, search.Entry().cFileName);
            EXPECT_EQ(post.datum, shown ? kvarn::Format("%d-%02d-%02d", int{t.wYear}, int{t.wMonth},
                                                        int{t.wDay})
                                        : "1970-01-01")
                << zone;
            EXPECT_EQ(post.tid, kvarn::Format("%02d.%02d", int{t.wHour}, int{t.wMinute})) << zone;
            there = list++ != nullptr;
        }
        EXPECT_FALSE(there);
    }
}

TEST(Search, TimesAreCountedFrom1601) {
    constexpr std::uint64_t ticks = 132'223'104'001'230'000; // 1 January 2020, and 123 ms
    FILETIME const time = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32U)};
    SYSTEMTIME t{};
    EXPECT_EQ(FileTimeToSystemTime(&time, &t), TRUE);
    std::vector<int> const parts = {t.wYear, t.wMonth,  t.wDayOfWeek, t.wDay,
                                    t.wHour, t.wMinute, t.wSecond,    t.wMilliseconds};
    EXPECT_EQ(parts, (std::vector<int>{2020, 1, 3, 1, 0, 0, 0, 123}));
}

} // namespace
