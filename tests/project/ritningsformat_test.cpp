#include "project/ritningsformat.h"

#include <sstream>

#include <gtest/gtest.h>

namespace {

// A second copy of the table, typed on its own.
constexpr char const* table = "A0 1122 793 1141 823 1189 841\n"
                              "A1 774 574 793 577 840 594\n"
                              "A1L 1122 574 1141 577 1189 594\n"
                              "A2 527 373 547 403 594 420\n"
                              "A2L 774 373 793 403 841 420\n"
                              "A3 353 250 373 280 420 297\n"
                              "A3L 527 250 547 280 594 297\n"
                              "A3XL 774 250 794 280 843 297\n"
                              "A4 143 250 183 280 210 297\n";

TEST(RitningsFormat, NineEntries) {
    CRitningsFormat const original;
    CRitningsFormat copy;
    copy = CRitningsFormat(original);
    ASSERT_EQ(copy.m_antal, 9);
    std::ostringstream text;
    for (ritningsformattype const& f : copy.m_format) {
        text << f.namn << ' ' << f.inreBredd << ' ' << f.inreHojd << ' ' << f.ramBredd << ' '
             << f.ramHojd << ' ' << f.arkBredd << ' ' << f.arkHojd << '\n';
    }
    EXPECT_EQ(text.str(), table);
}

TEST(RitningsFormat, NamesAreExactAndTheLastCounts) {
    CRitningsFormat format;
    EXPECT_EQ(format.Format2Index("A0"), 0);
    EXPECT_EQ(format.Format2Index("A3XL"), 7);
    EXPECT_EQ(format.Format2Index("A4"), 8);
    for (char const* const none : {"a3", "A4 ", "", "A5", static_cast<char const*>(nullptr)}) {
        EXPECT_EQ(format.Format2Index(none), -1);
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
