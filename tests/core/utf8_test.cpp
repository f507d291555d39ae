// Texts between code page 1252 and UTF-8, as clients convert them.
#include <gtest/gtest.h>

#include "core/utf8.h"

namespace {

TEST(Utf8, EveryByteOfTheCodePageComesBack) {
    char all[256];
    for (int i = 0; i < 255; ++i) {
        all[i] = static_cast<char>(i + 1);
    }
    all[255] = '\0';
    CString const utf8 = TextToUtf8(all);
    EXPECT_EQ(utf8.GetLength(), 127 + 128 * 2 + 17); // 17 of them take three bytes: "€" to "›", "™"
    CString back;
    ASSERT_EQ(TextFromUtf8(utf8, back), 0);
    EXPECT_STREQ(back, all);
}

TEST(Utf8, LettersAreThoseOfTheCodePage) {
    EXPECT_STREQ(TextToUtf8("V\xE4g 27, 5 \x80"), "V\xC3\xA4g 27, 5 \xE2\x82\xAC");
    EXPECT_STREQ(TextToUtf8(nullptr), "");
    CString text = "f\xF6re";
    EXPECT_EQ(TextFromUtf8("\xC3\x84ndring", text), 0);
    EXPECT_STREQ(text, "\xC4ndring");
    EXPECT_EQ(TextFromUtf8(nullptr, text), 0);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(Utf8, WhatTheCodePageCannotHoldLeavesTheTextAsItWas) {
    char const* const refused[] = {
        "\xCE\xB1",     // a Greek letter
        "a\xCC\x8A",    // a ring that is to be put over the letter before it
        "\xE4",         // code page 1252, not UTF-8
        "\xC3",         // a letter that breaks off
        "\xC0\xAF",     // a letter that is longer than it must be
        "\xED\xA0\x80", // half of a pair of UTF-16
    };
    for (char const* const utf8 : refused) {
        CString text = "f\xF6re";
        EXPECT_EQ(TextFromUtf8(utf8, text), -1) << utf8;
        EXPECT_STREQ(text, "f\xF6re");
    }
}

} // namespace
