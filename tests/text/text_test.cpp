#include "files/pathparts.h"
#include "text/letters.h"
#include "text/text.h"

#include <map>

#include <gtest/gtest.h>

#include "text/codepage.h"

namespace {

// Every byte but zero through a conversion; those that are not in the table must stay.
void ExpectTable(void (*convert)(char*), std::map<int, int> const& table) {
    for (int byte = 1; byte < 256; ++byte) {
        char text[] = {static_cast<char>(byte), '\0'};
        convert(text);
        auto const found = table.find(byte);
        EXPECT_EQ(static_cast<unsigned char>(text[0]), found == table.end() ? byte : found->second)
            << "byte " << byte;
    }
}

TEST(Text, ToUpperNordicConvertsItsLettersAndNoOthers) {
    std::map<int, int> table = {{229, 197}, {228, 196}, {246, 214},
                                {134, 143}, {132, 142}, {148, 153}};
    for (int letter = 97; letter <= 122; ++letter) {
        table[letter] = letter - 32;
    }
    ExpectTable(ToUpperNordic, table);
}

TEST(Text, OemToAnsiNordicConvertsItsLettersAndNoOthers) {
    ExpectTable(OemToAnsiNordic, {{134, 229},
                                  {143, 197},
                                  {132, 228},
                                  {142, 196},
                                  {148, 246},
                                  {153, 214},
                                  {145, 230},
                                  {146, 198},
                                  {155, 248},
                                  {237, 216},
                                  {130, 233},
                                  {144, 201}});
    char text[] = "K\x84llarm\x84stare";
    OemToAnsiNordic(text);
    EXPECT_STREQ(text, "Källarmästare"_1252);
    OemToAnsiNordic(text); // a converted text stays
    EXPECT_STREQ(text, "Källarmästare"_1252);
}

TEST(Text, SplitPathTakesBlanksAndQuotesOffFirst) {
    struct {
        char const* argument;
        char const* folder;
        char const* name;
    } const cases[] = {
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
    for (auto const& c : cases) {
        kvarn::PathParts const parts = kvarn::SplitPathArgument(c.argument);
        EXPECT_EQ(parts.folder, c.folder) << c.argument;
        EXPECT_EQ(parts.name, c.name) << c.argument;
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
    for (char const* bad : {"\xCE\xB1", "\xC3", "\xFF", "\xC0\x80", "\xE2\x82", "a\x80"}) {
        EXPECT_EQ(kvarn::FromUtf8(bad), std::nullopt);
    }
}

} // namespace
