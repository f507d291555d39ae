// INI files by Windows' own functions and by what stands in for them: what is in the file after a
// write, and what is read from it.
#include <gtest/gtest.h>

#include "compat/host.h"
#include "support/testfiles.h"

using std::string_literals::operator""s;

namespace {

// In UTF-16 with its mark; a digit from 1 on stands for one of the given units.
std::string Utf16(std::string_view text, std::u16string_view units = u"") {
    std::string bytes = "\xFF\xFE";
    for (char const c : text) {
        auto const index = static_cast<std::size_t>(c - '1');
        bool const given = c >= '1' && index < units.size();
        auto const unit =
            given ? units[index] : static_cast<char16_t>(static_cast<unsigned char>(c));
        bytes += {static_cast<char>(unit & 0xFFU), static_cast<char>(unit >> 8U)};
    }
    return bytes;
}

class ProfileTest : public testing::Test {
  protected:
    // A new file each time: Windows may remember one that it has read.
    void File(std::string_view bytes) {
        m_name = "fil" + std::to_string(++m_serial) + ".ini";
        m_folder.Write(m_name, bytes);
    }
    std::string Value(char const* section, char const* key) const {
        char value[100];
        DWORD const length =
            GetPrivateProfileStringA(section, key, "<none>", value, sizeof value, Path().c_str());
        return {value, length};
    }
    bool Write(char const* section, char const* key, char const* value) const {
        return WritePrivateProfileStringA(section, key, value, Path().c_str()) != FALSE;
    }
    std::string Bytes() const { return m_folder.Read(m_name); }
    std::string Path() const { return m_folder.Api(m_name); }

    TestFolder m_folder;
    std::string m_name;
    int m_serial = 0;
};

TEST_F(ProfileTest, AFileInUtf16IsReadAndStaysSo) {
    File(Utf16("[S]\r\nA=\xE5\r\nC1=x\r\n[T]\r\nB=2\r\n", u"\u0416"));
    EXPECT_EQ(Value("s", "a"), "\xE5");
    EXPECT_EQ(Value("T", "B"), "2");
    EXPECT_EQ(Value("S", "C?"), "<none>"); // the key has another letter
    EXPECT_TRUE(Write("S", "A", "\xE4\x80"));
    EXPECT_TRUE(Write("T", "N", "ny"));
    EXPECT_TRUE(Write("U", "K", "v"));
    EXPECT_TRUE(Write("T", "B", nullptr));
    EXPECT_EQ(Bytes(),
              Utf16("[S]\r\nA=23\r\nC1=x\r\n[T]\r\nN=ny\r\n[U]\r\nK=v\r\n", u"\u0416\u00E4\u20AC"));
    EXPECT_EQ(Value("S", "A"), "\xE4\x80");

    File(Utf16("")); // the mark alone
    EXPECT_TRUE(Write("S", "A", "1"));
    EXPECT_EQ(Bytes(), Utf16("[S]\r\nA=1\r\n"));
    File(Utf16("[S]\r\nA=1")); // without a last line end
    EXPECT_TRUE(Write("S", "B", "2"));
    EXPECT_EQ(Bytes(), Utf16("[S]\r\nA=1\r\nB=2\r\n"));
}

TEST_F(ProfileTest, LettersOutsideTheCodePageAreReadAsQuestionMarksAndKept) {
    // A letter, a letter of two units, and half of one.
    constexpr std::u16string_view units = u"\u0416\xD83D\xDE00\xD800\u010A";
    File(Utf16("; 1234\r\n[S]\r\nA=1a23b4\r\nB=x\r\n5=\r\n", units));
    EXPECT_EQ(Value("S", "A"), "?a\?\?b?");
    EXPECT_TRUE(Write("S", "B", "y"));
    EXPECT_EQ(Bytes(), Utf16("; 1234\r\n[S]\r\nA=1a23b4\r\nB=y\r\n5=\r\n", units));
}

#if !defined(_WIN32)

// Here alone: Windows adds 8-bit text to the first file, which spoils it.
TEST_F(ProfileTest, AFileThatIsNotUnderstoodIsNotWritten) {
    std::string const highFirst = "\xFE\xFF\0[\0S\0]\0\n\0A\0=\0001\0\n"s;
    for (std::string const& bytes : {highFirst, Utf16("[S]\r\nA=1\r\n") + 'x'}) {
        File(bytes);
        EXPECT_FALSE(Write("S", "A", "2"));
        EXPECT_FALSE(Write("S", "A", nullptr));
        EXPECT_FALSE(Write("T", "A", "2"));
        EXPECT_EQ(Bytes(), bytes);
    }
    EXPECT_EQ(Value("S", "A"), "1"); // half a character at the end hides nothing
}

#endif

} // namespace
