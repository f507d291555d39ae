#include "text/format.h"

#include <bit>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "host/host.h"
#include "support/commalocale.h"

using kvarn::Format;

namespace {

TEST(Format, EveryConversionAsPrintfGivesIt) {
    EXPECT_EQ(Format("%s=%s\n", "NYCKEL", CString("1.0")), "NYCKEL=1.0\n");
    EXPECT_EQ(Format("%4d-%02d-%02d", 2026, 1, 9), "2026-01-09");
    EXPECT_EQ(Format("%2.2d.%04.2d|%ld", 9, 5, -7), "09.  05|-7");
    EXPECT_EQ(Format("%d %d", 2147483647, -2147483647 - 1), "2147483647 -2147483648");
    EXPECT_EQ(Format("%.0d|%05d|%-5d|%5s|%.2s|%-4s|", 0, -42, 42, "ab", "abc", "x"),
              "|-0042|42   |   ab|ab|x   |");
    EXPECT_EQ(Format("%9.4f|%6.2f|%-8.1f|%08.2f", 1.5, -2.346, 0.25, -3.14159),
              "   1.5000| -2.35|0.2     |-0003.14");
    EXPECT_EQ(Format("%f %lf %.*lf %*d 100%%", 0.1, 1e3, 3, 2.0, 4, 7),
              "0.100000 1000.000000 2.000    7 100%");
    EXPECT_EQ(Format("%.*lf", -1, 2.0), "2.000000"); // a negative precision counts as none
    EXPECT_EQ(Format("%*d|", -4, 7), "7   |");
    EXPECT_EQ(Format("%06.1f", std::numeric_limits<double>::infinity()), "   inf");
    EXPECT_EQ(Format("%.0f %.0f %.0f %.1f", 0.5, 1.5, -0.4, 0.25), "0 2 -0 0.2");
}

TEST(Format, NumbersAgreeWithTheRuntimeLibrary) {
#if defined(_WIN32)
    GTEST_SKIP() << "msvcrt prints 17 digits, ours are exact; compared on the other host";
#endif
    std::mt19937_64 random(99);
    char expected[2048];
    for (int i = 0; i < 20000; ++i) {
        std::uint64_t const bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (i % 2 != 0) {
            value = static_cast<double>(static_cast<std::int64_t>(bits >> 40U)) / 1024.0; // halves
        }
        int const decimals = static_cast<int>(random() % 12);
        std::snprintf(expected, sizeof expected, "%.*f", decimals, value);
        ASSERT_EQ(Format("%.*lf", decimals, value), expected);
    }
    EXPECT_EQ(Format("%.1100lf", 1.0).size(), 1102U);
    EXPECT_EQ(Format("%.*lf", 2000000000, 1.0).size(), 1102U); // only zeros are left out
}

// With up to four decimals another way is gone than with more.
TEST(Format, FewDecimalsAreExactToo) {
    std::mt19937_64 random(7);
    char expected[512];
    for (int i = 0; i < 100'000; ++i) {
        std::uint64_t const bits = random();
        auto const number = static_cast<double>(bits >> 24U);
        double const values[] = {
            std::bit_cast<double>(bits),
            number / 1048576,                                                    // halves
            std::nextafter(static_cast<double>(bits % 2'000'001) / 2e4, number), // beside a half
            std::ldexp(number, static_cast<int>(bits % 140) - 110),
        };
        double const value = std::copysign(values[i % 4], static_cast<double>(random() % 2) - 0.5);
        for (int decimals = 0; decimals < 6; ++decimals) {
            auto const end = std::to_chars(expected, std::end(expected), value,
                                           std::chars_format::fixed, decimals)
                                 .ptr;
            std::string text;
            kvarn::AppendFixed(text, value, decimals);
            ASSERT_EQ(text, std::string(expected, end)) << decimals;
        }
    }
}

TEST(Format, TheLocaleOfTheProcessDoesNotMatter) {
    CommaLocale const comma;
    EXPECT_EQ(Format("%.2lf", 2.5), "2.50");
}

} // namespace
