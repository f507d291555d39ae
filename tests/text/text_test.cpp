#include "files/pathparts.h"
#include "text/letters.h"
#include "text/text.h"

#include <gtest/gtest.h>

#include "text/codepage.h"

namespace {

// Every byte but zero through a conversion that turns each of some letters into its counterpart,
// and no other byte into anything.
void ExpectLetters(void (*convert)(char*), std::string_view from, std::string_view to) {
    ASSERT_EQ(from.size(), to.size());
    for (int byte = 1; byte < 256; ++byte) {
        char text[] = {static_cast<char>(byte), '\0'};
        convert(text);
        std::size_t const at = from.find(static_cast<char>(byte));
        EXPECT_EQ(text[0], at == from.npos ? static_cast<char>(byte) : to[at]) << "byte " << byte;
    }
}

TEST(Text, TheNordicConversionsConvertTheirLettersAndNoOthers) {
    ExpectLetters(ToUpperNordic, "abcdefghijklmnopqrstuvwxyz\xE5\xE4\xF6\x86\x84\x94",
                  "ABCDEFGHIJKLMNOPQRSTUVWXYZ\xC5\xC4\xD6\x8F\x8E\x99");
    ExpectLetters(OemToAnsiNordic, "\x86\x8F\x84\x8E\x94\x99\x91\x92\x9B\xED\x82\x90",
                  "åÅäÄöÖæÆøØéÉ"_1252);
    char text[] = "K\x84llarm\x84stare";
    OemToAnsiNordic(text);
    EXPECT_STREQ(text, "Källarmästare"_1252);
}

TEST(Text, SplitPathTakesBlanksAndQuotesOffFirst) {
    std::tuple<char const*, char const*, char const*> const cases[] = {
        {R"("C:\Prog\Tool.exe" )", "C:\\Prog", "Tool.exe"},
        {"  C:\\Prog\\Tool.exe\t\r\n", "C:\\Prog", "Tool.exe"},
        {R"(""C:\A b\c"")", R"(C:\A b)", "c"},
        {R"(C:\Prog\"quoted")", "C:\\Prog", R"("quoted")"}, // not at the front: they stay
        {R"("C:\Prog\Tool.exe" /x C:\data\p)", R"(C:\Prog\Tool.exe" /x C:\data)", "p"},
        {"Tool.exe", "", "Tool.exe"},
        {"\\Tool.exe", "", "Tool.exe"},
        {"C:\\Prog\\", "C:\\Prog", ""},
        {"\"", "", ""},
        {"", "", ""},
    };
    for (auto const& [argument, folder, name] : cases) {
        kvarn::PathParts const parts = kvarn::SplitPathArgument(argument);
        EXPECT_EQ(parts.folder, folder) << argument;
        EXPECT_EQ(parts.name, name) << argument;
    }
}

TEST(Text, ComparisonFoldsTheLettersOfTheCodePageAndOnlyThem) {
    EXPECT_TRUE(kvarn::SameText("HSkala", "hsKALA"));
    EXPECT_TRUE(kvarn::SameText("ÅÄÖÉÆØŠŽŒŸ"_1252, "åäöéæøšžœÿ"_1252));
    EXPECT_FALSE(kvarn::SameText("×"_1252, "÷"_1252));
    EXPECT_FALSE(kvarn::SameText("A", "AB"));
    EXPECT_FALSE(kvarn::SameText("[", "{")); // 32 apart, and no letters
    for (int byte = 0; byte < 256; ++byte) {
        char const c = static_cast<char>(byte);
        EXPECT_EQ(kvarn::Lower1252(kvarn::Upper1252(c)), kvarn::Lower1252(c)) << byte;
    }
}

TEST(Text, CodePageConversionGoesThereAndBack) {
    for (int byte = 0; byte < 256; ++byte) {
        std::string const text(1, static_cast<char>(byte));
        EXPECT_EQ(kvarn::FromUtf8(kvarn::ToUtf8(text)), text) << byte;
    }
    EXPECT_EQ(kvarn::ToUtf8("\x80\xE5"), "€å");
    for (char const* bad : {"\xCE\xB1", "\xC3", "\xFF", "\xC0\x80", "\xE2\x82", "a\x80",
                            "\xE0\x81\x81", "\xF0\x80\x81\x81"}) { // A, in too many bytes
        EXPECT_EQ(kvarn::FromUtf8(bad), std::nullopt);
    }
}

} // namespace
