#include "text/scan.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/commalocale.h"

using kvarn::Scan;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Scan, DoublesAsTheRuntimeLibraryReadsThem) {
    std::string const tiny = "0." + std::string(400, '0') + "1e20";
    std::string const huge = std::string(400, '9') + "e-20";
    std::pair<double, std::vector<std::string>> const cases[] = {
        {0, {"0x.", "1e-400", "0e999999999999999999999", "0x1p-1080", tiny}},
        {0.5, {"+.5", "0x.8"}},
        {1, {"1e", "1e+", "0x1p"}}, // an exponent without digits is taken along
        {2, {"2,5"}},
        {2.5, {"2.5"}},
        {3, {"0x1.8p1"}},
        {5, {"5."}},
        {-125, {" \t\n\v\f\r-1.25e2x"}},
        {1e5, {"1e5.5"}},
        {1e299, {"0.000000000000000000001e320"}},
        {5e-324, {"5e-324", "0x1p-1074"}},
        {2.2250738585072011e-308, {"2.2250738585072011e-308"}},
        {infinity, {"1e999999999999999999999", "0x1p1024", "inf", huge}},
        {-infinity, {"-1e400", "-InFiNiTyx"}},
    };
    for (auto const& [expected, texts] : cases) {
        for (std::string const& text : texts) {
            double value = 7;
            EXPECT_EQ(Scan(text, value), 1) << text;
            EXPECT_EQ(value, expected) << text;
        }
    }
    double nan = 0;
    EXPECT_EQ(Scan("-nan(7)", nan), 1);
    EXPECT_TRUE(std::isnan(nan) && std::signbit(nan));
}

// An exponent sends the same number another way.
TEST(Scan, PlainNumbersAreReadAsAllOthers) {
    std::mt19937_64 random(3);
    auto const digits = [&](std::size_t count) {
        std::string text(count, '0');
        std::generate(text.begin(), text.end(), [&] { return "0123456789"[random() % 10]; });
        return text;
    };
    for (int i = 0; i < 200'000; ++i) {
        std::string text(random() % 3 == 0 ? 1 : 0, '-');
        text.append(digits(1 + random() % 12));
        if (random() % 8 != 0) {
            text.append(1, '.').append(digits(random() % 9));
        }
        double plain = 7;
        double other = 7;
        int const count = Scan(text + " 1", plain);
        ASSERT_EQ(count, Scan(text + "e0", other)) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(plain), std::bit_cast<std::uint64_t>(other)) << text;
    }
}

TEST(Scan, WhatIsNoNumberChangesNothing) {
    double value = 5; // a hard blank (octal 240) is no white space
    for (char const* text :
         {"infinit", "in", "na", "0x", "0xg", ".", "-", "--1", "MAX", ".e5", "\2401"}) {
        EXPECT_EQ(Scan(text, value), 0) << text;
    }
    for (char const* text : {"", " \t"}) {
        EXPECT_EQ(Scan(text, value), -1) << text;
    }
    EXPECT_EQ(value, 5);
}

TEST(Scan, IntegersSaturateAtTheirBits) {
    std::tuple<char const*, int, std::int32_t, std::int16_t> const cases[] = {
        {"2.5", 1, 2, 2},
        {"-17 ", 1, -17, -17},
        {"+0", 1, 0, 0},
        {"007", 1, 7, 7},
        {"0x10", 1, 0, 0},
        {"32768", 1, 32768, 32767},
        {"-32769", 1, -32769, -32768},
        {"2147483648", 1, 2147483647, 32767},
        {"-99999999999999999999999", 1, -2147483647 - 1, -32768},
        {"+", 0, 5, 5},
        {"x1", 0, 5, 5},
        {" ", -1, 5, 5},
    };
    for (auto const& [text, count, as32, as16] : cases) {
        SCOPED_TRACE(text);
        std::int32_t wide = 5;
        std::int16_t narrow = 5;
        EXPECT_EQ(Scan(text, wide), count);
        EXPECT_EQ(wide, as32);
        EXPECT_EQ(Scan(text, narrow), count);
        EXPECT_EQ(narrow, as16);
    }
}

TEST(Scan, SeveralValuesStopAtTheFirstThatIsNotThere) {
    double x = 0;
    double y = 0;
    std::int32_t typ = 0;
    char word[5] = "";
    EXPECT_EQ(Scan("6.5 -3e1 7 $Väg", x, y, typ, word), 4);
    EXPECT_EQ(x, 6.5);
    EXPECT_EQ(y, -30);
    EXPECT_EQ(typ, 7);
    EXPECT_STREQ(word, "$V\xC3\xA4");
    EXPECT_EQ(Scan("1 x 3", x, y, typ), 1);
    EXPECT_EQ(Scan("1 2", x, y, typ), 2);
    EXPECT_EQ(Scan("1e 2", x, y), 2);

    // A word longer than its buffer is cut; the rest is the next word.
    char rest[5] = "";
    EXPECT_EQ(Scan(" abcdefg", word, rest), 2);
    EXPECT_STREQ(word, "abcd");
    EXPECT_STREQ(rest, "efg");
    EXPECT_EQ(Scan(std::string_view("1\0 2", 4), x, y), 1); // a zero ends the text
}

TEST(Scan, TheLocaleOfTheProcessDoesNotMatter) {
    CommaLocale const comma;
    double value = 0;
    EXPECT_EQ(Scan("2.5", value), 1);
    EXPECT_EQ(value, 2.5);
}

} // namespace
