// Wildcards and times of the folder search, where the host is not Windows.
#include <gtest/gtest.h>

#include "compat/win32/search.h"

namespace {

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
