// Values of the settings files as users see them, and back.
#include <gtest/gtest.h>

#include "resources/resource.h"
#include "shownvalue.h"

namespace {

TEST(ShownValue, WordsStandBesideACodeAndAreNotWritten) {
    for (PageLanguage const language : {PageLanguage::swedish, PageLanguage::norwegian}) {
        for (char const* const code : {"MAX", "-1", "NEJ", "F\xC4RG", "SGF"}) {
            EXPECT_NE(WithWords(code, language), code);
            EXPECT_EQ(WithoutWords(WithWords(code, language)), code);
        }
    }
    EXPECT_EQ(WithWords("F\xC4RG", PageLanguage::norwegian), "F\xC4RG \x96 etter farge");
    EXPECT_EQ(WithWords("50", PageLanguage::swedish), "50");
    EXPECT_EQ(WithoutWords("MAX \x96 annat"), "MAX \x96 annat");
}

TEST(ShownValue, OneUnitIsShownAndTheFilesIsWritten) {
    struct {
        char const* filed;
        char const* shown;
    } const rows[] = {{"0.1", "100"}, {"0.8", "800"},     {"12.3456", "12345.6"},
                      {"0", "0"},     {"-0.02", "-20"},   {"0.0005", "0.5"},
                      {"MAX", "MAX"}, {"0.1.2", "0.1.2"}, {"", ""},
                      {".", "."},     {"0,10", "0,10"},   {"1e3", "1e3"}};
    for (auto const& row : rows) {
        EXPECT_EQ(InUsersUnit(IDC_KVARNBOK_FTSKALA, row.filed), row.shown);
        EXPECT_EQ(InFilesUnit(IDC_KVARNBOK_FTSKALA, row.shown), row.filed);
        EXPECT_EQ(InUsersUnit(IDC_JB23_FTSKALA, row.filed), row.filed);
    }
    EXPECT_EQ(InUsersUnit(IDC_KVARNBOK_USKALA, "0.10"), "100");
}

TEST(ShownValue, ANumberHasDigitsAndAPoint) {
    for (char const* const number : {"0", "100", "-1", "2.50", "007"}) {
        EXPECT_TRUE(IsNumber(number)) << number;
    }
    for (char const* const text :
         {"", "-", ".", "1.", ".5", "1,5", "1 000", "10 m", "1.2.3", "MAX"}) {
        EXPECT_FALSE(IsNumber(text)) << text;
    }
}

} // namespace
