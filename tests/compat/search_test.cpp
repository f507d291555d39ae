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
    Names const files = {"a.b", "aab", "none", "x.y.z"};
    for (std::string const& name : files) {
        folder.Write(name, "");
    }
    Names all = {".", ".."};
    all.insert(all.end(), files.begin(), files.end());
    struct {
        char const* pattern;
        Names names;
    } const cases[] = {
        {"aa? ", {"aab"}},   {"aa?.", {"aab"}},   {"aa? . .", {"aab"}},
        {"NONE ", {"none"}}, {"none.", {"none"}}, {"*.b ", {"a.b"}},
        {"*.b.", {"a.b"}},   {"* ", all},         {"*.* ", all},
        {"*.*.", all},       {"*. ", all},        {"?. ", {"."}},
        {"?", {"."}},        {".. .", {}},        {" ", {}},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(Found(folder, c.pattern), c.names) << c.pattern;
    }
}

#if !defined(_WIN32)

// By the stand-in's own function: in these Wine differs from what is documented.
TEST(Search, WildcardsMatchAsWindowsDocumentsThem) {
    struct {
        char const* pattern;
        char const* name;
        bool matches;
    } const cases[] = {
        {"*", "", true},
        {"*", "a.b", true},
        {"*.*", "none", true},
        {"*.", "none", true}, // names without an extension
        {"*.", "a.b", false},
        {"*.", ".hid", false},
        {"*.", ".", true},
        {"*.", "..", true},
        {"*..", "a.b", false},
        {"a*.", "ab", true},
        {"a*.", "a.b", false},
        {"??.", "ab", true},
        {"??.", "a", true},
        {"??.", "a.b", false},
        {"?", "..", false},
        {"??", ".", true},
        {"??", "..", false},
        {"?.*", ".", true},
        {"a.*", "a", true},
        {"a.?", "a", true},
        {"a.?", "a.b", true},
        {"a.?", "a.bc", false},
        {"???.x", "ab.x", true}, // a mark matches the end of a part too
        {"???.x", "abcd.x", false},
        {"a?", "a", true},
        {"a?b", "ab", false},
        {"*.DBF?", "x.dbf", true},
        {"*.b", "a.b.c", false}, // up to the last dot
        {"*.b", "a.a.b", true},
        {"*.b.c", "a.b.c", true},
        {"a*b*c", "a1b2b3c", true},
        {"a*b*c", "a1b2b3", false},
        {"\xC5*", "\xE5sa", true},
        {"*a*a*a*a*a*a*a*a*a*a*a*b", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", false},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(kvarn::MatchesWildcards(c.pattern, c.name), c.matches)
            << c.pattern << " on " << c.name;
    }
}

#endif

TEST(Search, TimesAreCountedFrom1601) {
    constexpr std::uint64_t ticks = 132'223'104'001'230'000; // 1 January 2020, and 123 ms
    FILETIME const time = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32U)};
    SYSTEMTIME t{};
    EXPECT_EQ(FileTimeToSystemTime(&time, &t), TRUE);
    EXPECT_EQ(t.wYear, 2020);
    EXPECT_EQ(t.wMonth, 1);
    EXPECT_EQ(t.wDay, 1);
    EXPECT_EQ(t.wHour, 0);
    EXPECT_EQ(t.wMilliseconds, 123);
    EXPECT_EQ(t.wDayOfWeek, 3);
}

} // namespace
