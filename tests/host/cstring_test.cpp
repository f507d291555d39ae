// What MFC documents of its string, on the stand-in for it.
#include <gtest/gtest.h>

#include "host/host.h"
#include "text/codepage.h"

namespace {

TEST(CStringStandIn, PartsAreCutAtTheEnds) {
    CString const text("Kvarnbok");
    std::pair<CString, char const*> const cases[] = {
        {text.Left(5), "Kvarn"}, {text.Left(50), "Kvarnbok"},  {text.Left(-1), ""},
        {text.Right(3), "bok"},  {text.Right(50), "Kvarnbok"}, {text.Right(0), ""},
        {text.Mid(5), "bok"},    {text.Mid(2, 3), "arn"},      {text.Mid(50, 1), ""},
    };
    for (auto const& [part, expected] : cases) {
        EXPECT_EQ(part, expected);
    }
}

TEST(CStringStandIn, Finds) {
    CString const text("C:\\Kvarnbok\\Cfg");
    EXPECT_EQ(text.Find('\\'), 2);
    EXPECT_EQ(text.Find('\\', 3), 11);
    EXPECT_EQ(text.Find("Cfg"), 12);
    EXPECT_EQ(text.Find("cfg"), -1);
    EXPECT_EQ(text.ReverseFind('\\'), 11);
    EXPECT_EQ(text.FindOneOf("K\\"), 2);
    EXPECT_EQ(text.Find('x', 100), -1);
}

TEST(CStringStandIn, TrimsAndFolds) {
    EXPECT_EQ(CString(" \t a b\r\n").Trim(), "a b");
    EXPECT_EQ(CString("   ").Trim(), "");
    EXPECT_EQ(CString("path\\\\").TrimRight('\\'), "path");
    EXPECT_EQ(CString("xxaxx").TrimLeft("x"), "axx");
    EXPECT_EQ(CString("åÄö"_1252).MakeUpper(), "ÅÄÖ"_1252);
    EXPECT_EQ(CString("ÅÄÖ"_1252).MakeLower(), "åäö"_1252);
    EXPECT_LT(CString("a").CompareNoCase("B"), 0);
}

TEST(CStringStandIn, FormatsEvenFromItsOwnText) {
    CString text("bok");
    text.Format("%s-%d-%s", text.GetString(), 7, text.GetString());
    EXPECT_EQ(text, "bok-7-bok");
    text = text.GetString() + 4;
    EXPECT_EQ(text, "7-bok");
    text += CString("!") + '?' + "x";
    EXPECT_EQ("a" + text, "a7-bok!?x");
}

TEST(CStringStandIn, LendsItsBuffer) {
    CString text("ab");
    char* const buffer = text.GetBuffer(100);
    std::memcpy(buffer, "abcdef", 7);
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), 6);
    text.GetBuffer();
    text.ReleaseBuffer(2);
    EXPECT_EQ(text, "ab");
    EXPECT_TRUE(CString(static_cast<char const*>(nullptr)).IsEmpty());
}

} // namespace
