// The registry's text file, where the host is not Windows.
#include <gtest/gtest.h>

#include "core/registry.h"
#include "host/calls.h"
#include "host/win32/regstore.h"
#include "support/child.h"
#include "support/hostcalls.h"
#include "support/testfiles.h"
#include "text/utf16.h"

namespace {

std::string const head = "Windows Registry Editor Version 5.00\r\n\r\n";

std::string InUtf16(std::string_view text) {
    return "\xFF\xFE" + kvarn::ToBytes(kvarn::ToUtf16(text));
}

// What the store becomes when it is read and written.
std::string Rewritten(std::string const& text) {
    kvarn::RegStore const store(text);
    EXPECT_TRUE(store.Whole()) << text;
    return store.Bytes();
}

TEST(RegStore, ComesBackInTheEditorsForm) {
    std::string const canonical =
        head +
        "[HKEY_CURRENT_USER]\r\n\r\n; of a person\r\n[HKEY_CURRENT_USER\\Program]\r\n"
        "@=\"default\"\r\n\"p\\\\a\\\"th\"=\"C:\\\\x \\\"y\\\"\"\r\n; above a value\r\n"
        "\"d\"=dword:0000002a\r\n\"b\"=hex:00,ff\r\n\"e\"=hex(2):25,00,00,00\r\n"
        "\"none\"=hex(0):\r\n\"l\xE5ng\"=hex:" +
        std::string("00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,\\\r\n"
                    "  01\r\n") +
        "\r\n; at the end\r\n";
    EXPECT_EQ(Rewritten(InUtf16(canonical)), InUtf16(canonical));
    EXPECT_EQ(Rewritten(canonical), InUtf16(canonical)); // code page 1252
}

TEST(RegStore, WhatAPersonWroteIsRead) {
    kvarn::RegStore store(
        "\xEF\xBB\xBFWindows Registry Editor Version 5.00\n"
        "[hkey_current_user\\A\\\xC3\x85]\n \"x\" = dword:5 \n\"y\"=hex:1,\\\n 2\n"
        "\"z\"=\"\xE2\x82\xAC\xCE\xA9\"\n; one\n\"X\"=\"1\"\n; two\n\"x\"=\"2\"\n\"y\"=-\n"
        "[-HKEY_CURRENT_USER\\B]\n");
    EXPECT_TRUE(store.Whole());
    EXPECT_EQ(store.CountKeysBelow(u"HKEY_CURRENT_USER\\A"), 1U);
    EXPECT_NE(store.Bytes().find(kvarn::ToBytes(u"; one\r\n; two\r\n")), std::string::npos);
    kvarn::RegKey const* const key = store.Find(u"HKEY_CURRENT_USER\\a\\\u00E5");
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->Values().size(), 2U);
    EXPECT_EQ(key->Find(u"x")->type, REG_SZ);
    EXPECT_EQ(kvarn::FromUtf16(kvarn::FromBytes(key->Find(u"z")->data)),
              std::string("\x80?\0", 3)); // the letter stays in the store
    kvarn::RegStore noHeader("[HKEY_CURRENT_USER\\A]\n\"x\"=dword:5\n");
    EXPECT_FALSE(noHeader.Whole()); // but it is read
    EXPECT_NE(noHeader.Find(u"HKEY_CURRENT_USER\\A"), nullptr);
}

TEST(RegStore, ALineThatIsNotUnderstoodIsNoticed) {
    EXPECT_FALSE(kvarn::RegStore("no header").Whole());
    for (char const* line :
         {"[HKEY_NOWHERE\\A]", "[HKEY_CURRENT_USER", "\"x\"", "\"x=1", "\"x\"=5", "\"x\"=\"a\" b",
          "\"x\"=\"C:\\Temp\"", "\"x\"=dword:", "\"x\"=dword:123456789", "\"x\"=hex:1,g",
          "\"x\"=hex:1 2", "\"x\"=hex(:1", "\"x\"=hex(2)1", "\"\"=\"a\"", "x=1"}) {
        EXPECT_FALSE(kvarn::RegStore(head + "[HKEY_USERS]\r\n" + line).Whole()) << line;
    }
    EXPECT_FALSE(kvarn::RegStore(head + "\"no\"=\"key\"").Whole());
    EXPECT_TRUE(kvarn::RegStore("").Whole());
}

TEST(RegStore, ValuesKeepTheirOrderAndAreDeletedByName) {
    kvarn::RegStore store;
    kvarn::RegKey& key = store.Make(u"HKEY_USERS\\A");
    for (char16_t const* name : {u"b", u"\u00E5", u"a", u"B", u"\u00C5"}) {
        key.Make(name).type = REG_BINARY;
    }
    key.Delete(u"\u00C5");
    key.Delete(u"missing");
    key.Make(u"\u00E5").type = REG_BINARY;
    EXPECT_EQ(store.Bytes(), InUtf16(head + "[HKEY_USERS]\r\n\r\n[HKEY_USERS\\A]\r\n"
                                            "\"b\"=hex:\r\n\"a\"=hex:\r\n\"\xE5\"=hex:\r\n"));
}

// By a process of its own.
TEST(RegStoreChild, DISABLED_Writes) {
    CRegistry registry;
    ASSERT_EQ(registry.SetKey("A", 0, KEY_ALL_ACCESS), 1);
    ASSERT_EQ(registry.WriteString("x", "C"), 1);
}

TEST(RegStoreChild, DISABLED_Counts) {
    CRegistry registry;
    ASSERT_EQ(registry.SetKey("A", 1, KEY_ALL_ACCESS), 1);
    std::string const name = "K" + std::to_string(ProcessNumber());
    for (int i = 1; i <= 50; ++i) {
        ASSERT_EQ(registry.WriteString(name.c_str(), std::to_string(i).c_str()), 1);
    }
}

class RegFile : public testing::Test {
  protected:
    // A store with one value of one letter, so that all have the same size.
    void Write(char letter, char const* name = "made/store.reg") const {
        m_folder.Write(name, head + "[HKEY_CURRENT_USER\\A]\r\n\"x\"=\"" + letter + "\"\r\n");
    }
    void Expect(CString const& value) { EXPECT_EQ(m_registry.ReadString("x", "none"), value); }

    TestFolder m_folder;
    Variable m_store{"KVARNPROG_REGISTRY", (m_folder / "made/store.reg").string()};
    CRegistry m_registry;
};

TEST_F(RegFile, AChangeByAnyHandIsSeenByTheNextRead) {
    Write('1');
    Write('4', "other.reg");
    EXPECT_EQ(m_registry.SetKey("A", 0, KEY_READ), 1);
    for (int i = 0; i < 100; ++i) { // some within one step of the clock
        Write("abc"[i % 3]);
        Expect(CString("abc"[i % 3]));
    }
    Write('2');
    constexpr DWORD longerThanAnyStep = 2100; // milliseconds
    Sleep(longerThanAnyStep);
    Expect("2"); // kept from here on
    Expect("2");
    Write('3'); // the same file
    Expect("3");
    auto const store = m_folder / "made/store.reg";
    std::filesystem::rename(m_folder / "other.reg", store);
    Expect("4");
    EXPECT_EQ(Child("RegStoreChild.DISABLED_Writes").Wait(), 0);
    Expect("C");
    EXPECT_EQ(m_registry.WriteString("x", "5"), 1);
    Expect("5");

    std::filesystem::remove(store);
    Expect("none");
    Write('6');
    Expect("6");
    std::filesystem::remove(store);
    std::filesystem::create_directory(store); // cannot be read
    Expect("none");
    std::filesystem::remove(store);
    Write('7');
    Expect("7");
}

TEST_F(RegFile, ManyAtOnceLoseNoUpdate) {
    {
        Child one("RegStoreChild.DISABLED_Counts");
        Child other("RegStoreChild.DISABLED_Counts");
        EXPECT_EQ(one.Wait() + other.Wait(), 0);
    }
    EXPECT_EQ(m_registry.SetKey("A", 0, KEY_READ), 1);
    EXPECT_EQ(m_registry.GetValueCount(), 2);
    EXPECT_EQ(m_folder.Names(), std::vector<std::string>{"made"});
    EXPECT_EQ(NamesIn(m_folder / "made"), std::vector<std::string>{"store.reg"});
}

TEST_F(RegFile, AHomeInAnotherAlphabetHoldsAStoreToo) {
    Variable const store("KVARNPROG_REGISTRY", (m_folder / "дом/store.reg").string());
    EXPECT_EQ(m_registry.SetKey("A", 1, KEY_ALL_ACCESS), 1);
    HostCalls const calls;
    EXPECT_EQ(m_registry.WriteString("x", "1"), 1);
    Expect("1");
    EXPECT_EQ(calls.Made({"rename"}), "rename store.reg\n");
}

TEST_F(RegFile, AStoreThatIsNotUnderstoodIsReadAndNeverWritten) {
    EXPECT_EQ(m_registry.SetKey("A", 0, KEY_READ), 0);
    EXPECT_TRUE(m_folder.Names().empty());
    EXPECT_EQ(m_registry.SetKey("A", 1, KEY_ALL_ACCESS), 1);
    EXPECT_EQ(m_registry.WriteString("x", "1"), 1);
    EXPECT_EQ(m_registry.WriteString("a\nb", "no line can hold the name"), 0);
    EXPECT_EQ(m_registry.SetKey("A\\\\B", 1, KEY_ALL_ACCESS), 0);
    std::string text =
        head + "[HKEY_CURRENT_USER]\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n\"x\"=\"1\"\r\n";
    EXPECT_EQ(m_folder.Read("made/store.reg"), InUtf16(text));
    text += "this line is not understood\r\n";
    m_folder.Write("made/store.reg", text);
    Expect("1");
    EXPECT_EQ(m_registry.WriteString("x", "2"), 0);
    EXPECT_EQ(m_registry.DeleteValue("x"), 0);
    EXPECT_EQ(m_registry.DeleteKey("A"), 0);
    EXPECT_EQ(m_registry.SetKey("B", 1, KEY_ALL_ACCESS), 0);
    EXPECT_EQ(m_folder.Read("made/store.reg"), text);
}

} // namespace
