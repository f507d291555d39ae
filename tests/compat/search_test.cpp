// Wildcards and times of the folder search.
#include <algorithm>

#include <gtest/gtest.h>

#include "host/calls.h"
#include "support/testfiles.h"

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
