#include "project/ritningsformat.h"

#include <sstream>

#include <gtest/gtest.h>

#include "support/checksum.h"

namespace {

TEST(RitningsFormat, TheEntriesAreTheKnownOnes) {
    CRitningsFormat const format;
    std::ostringstream text;
    for (ritningsformattype const& f : format.m_format) {
        text << f.namn << ' ' << f.inreBredd << ' ' << f.inreHojd << ' ' << f.ramBredd << ' '
             << f.ramHojd << ' ' << f.arkBredd << ' ' << f.arkHojd << '\n';
    }
    std::string const all = text.str();
    EXPECT_EQ(format.m_antal, 9);
    EXPECT_EQ(Checksum(all), 0x435B862DA70F601) << all;
    EXPECT_TRUE(all.starts_with("A0 1122 793 1141 823 1189 841\n")) << all;
    EXPECT_TRUE(all.ends_with("A4 143 250 183 280 210 297\n")) << all;
}

TEST(RitningsFormat, NamesAreExactAndTheLastCounts) {
    CRitningsFormat format;
    EXPECT_EQ(format.Format2Index("A3XL"), 7);
    for (char const* const none : {"a3", "A4 ", "", "A5", static_cast<char const*>(nullptr)}) {
        EXPECT_EQ(format.Format2Index(none), -1) << testing::PrintToString(none);
    }
    format.m_format[3].namn = "A0";
    EXPECT_EQ(format.Format2Index("A0"), 3);
    format.m_antal = 3;
    EXPECT_EQ(format.Format2Index("A0"), 0);
    format.m_antal = 0;
    EXPECT_EQ(format.Format2Index("A0"), -1);
    format.m_antal = 1000000;
    EXPECT_EQ(format.Format2Index("A4"), 8);
}

} // namespace
