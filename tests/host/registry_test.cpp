// The registry's text file, where the host is not Windows.
#include <gtest/gtest.h>

#include "core/registry.h"
#include "host/calls.h"
#include "host/win32/regstore.h"
#include "support/child.h"
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
        "\"z\"=\"\xE2\x82\xAC\xCE\xA9\"\n\"X\"=\"again\"\n\"y\"=-\n"
        "[-HKEY_CURRENT_USER\\B]\n");
    EXPECT_TRUE(store.Whole());
    EXPECT_EQ(store.CountKeysBelow(u"HKEY_CURRENT_USER\\A"), 1U);
    kvarn::RegStore noHeader("[HKEY_CURRENT_USER\\A]\n\"x\"=dword:5\n");
    EXPECT_FALSE(noHeader.Whole()); // but it is read
    EXPECT_NE(noHeader.Find(u"HKEY_CURRENT_USER\\A"), nullptr);
    kvarn::RegStore const twice(head +
                                "[HKEY_CURRENT_USER]\n; one\n\"x\"=\"1\"\n; two\n\"x\"=\"2\"");
    EXPECT_NE(twice.Bytes().find(kvarn::ToBytes(u"; one\r\n; two\r\n")), std::string::npos);
    kvarn::RegKey const* const key = store.Find(u"HKEY_CURRENT_USER\\a\\\u00E5");
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->Values().size(), 2U);
    EXPECT_EQ(key->Find(u"x")->type, REG_SZ);
    EXPECT_EQ(kvarn::FromUtf16(kvarn::FromBytes(key->Find(u"z")->data)),
              std::string("\x80?\0", 3)); // the letter stays in the store
}

TEST(RegStore, ALineThatIsNotUnderstoodIsNoticed) {
    for (char const* line :
         {"no header", "[HKEY_NOWHERE\\A]", "[HKEY_CURRENT_USER", "\"x\"", "\"x=1", "\"x\"=5",
          "\"x\"=\"a\" b", "\"x\"=\"C:\\Temp\"", "\"x\"=dword:", "\"x\"=dword:123456789",
          "\"x\"=hex:1,g", "\"x\"=hex:1 2", "\"x\"=hex(:1", "\"x\"=hex(2)1", "\"\"=\"a\"", "x=1"}) {
        std::string const text =
            std::string(line) == "no header" ? line : head + "[HKEY_USERS]\r\n" + line;
        EXPECT_FALSE(kvarn::RegStore(text).Whole()) << line;
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

// A store with one value of one letter, so that all have the same size.
std::string StoreWith(char letter) {
    return head + "[HKEY_CURRENT_USER\\A]\r\n\"x\"=\"" + letter + "\"\r\n";
}

TEST(RegStore, AChangeByAnyHandIsSeenByTheNextRead) {
    TestFolder const folder;
    folder.Write("store.reg", StoreWith('1'));
    folder.Write("other.reg", StoreWith('4'));
    SetVariable("KVARNPROG_REGISTRY", (folder / "store.reg").string());
    CRegistry registry;
    EXPECT_EQ(registry.SetKey("A", 0, KEY_READ), 1);
    for (int i = 0; i < 100; ++i) { // some within one step of the clock
        char const letter = "abc"[i % 3];
        folder.Write("store.reg", StoreWith(letter));
        EXPECT_EQ(registry.ReadString("x", "none"), CString(letter));
    }
    folder.Write("store.reg", StoreWith('2'));
    constexpr DWORD longerThanAnyStep = 2100; // milliseconds
    Sleep(longerThanAnyStep);
    EXPECT_EQ(registry.ReadString("x", "none"), "2"); // kept from here on
    EXPECT_EQ(registry.ReadString("x", "none"), "2");
    folder.Write("store.reg", StoreWith('3')); // the same file
    EXPECT_EQ(registry.ReadString("x", "none"), "3");
    std::filesystem::rename(folder / "other.reg", folder / "store.reg");
    EXPECT_EQ(registry.ReadString("x", "none"), "4");
    EXPECT_EQ(Child("RegStoreChild.*").Wait(), 0);
    EXPECT_EQ(registry.ReadString("x", "none"), "C");
    EXPECT_EQ(registry.WriteString("x", "5"), 1);
    EXPECT_EQ(registry.ReadString("x", "none"), "5");

    std::filesystem::remove(folder / "store.reg");
    EXPECT_EQ(registry.ReadString("x", "none"), "none");
    folder.Write("store.reg", StoreWith('6'));
    EXPECT_EQ(registry.ReadString("x", "none"), "6");
    std::filesystem::remove(folder / "store.reg");
    std::filesystem::create_directory(folder / "store.reg"); // cannot be read
    EXPECT_EQ(registry.ReadString("x", "none"), "none");
    std::filesystem::remove(folder / "store.reg");
    folder.Write("store.reg", StoreWith('7'));
    EXPECT_EQ(registry.ReadString("x", "none"), "7");
    SetVariable("KVARNPROG_REGISTRY", "");
}

TEST(RegStore, AStoreThatIsNotUnderstoodIsReadAndNeverWritten) {
    TestFolder const folder;
    std::string const store = (folder / "made/store.reg").string();
    SetVariable("KVARNPROG_REGISTRY", store);
    CRegistry registry;
    EXPECT_EQ(registry.SetKey("A", 0, KEY_READ), 0);
    EXPECT_FALSE(std::filesystem::exists(store));
    EXPECT_EQ(registry.SetKey("A", 1, KEY_ALL_ACCESS), 1);
    EXPECT_EQ(registry.WriteString("x", "1"), 1);
    EXPECT_EQ(registry.WriteString("a\nb", "no line can hold the name"), 0);
    EXPECT_EQ(registry.SetKey("A\\\\B", 1, KEY_ALL_ACCESS), 0);
    std::string text =
        head + "[HKEY_CURRENT_USER]\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n\"x\"=\"1\"\r\n";
    EXPECT_EQ(folder.Read("made/store.reg"), InUtf16(text));
    text += "this line is not understood\r\n";
    folder.Write("made/store.reg", text);
    EXPECT_EQ(registry.ReadString("x", ""), "1");
    EXPECT_EQ(registry.WriteString("x", "2"), 0);
    EXPECT_EQ(registry.DeleteValue("x"), 0);
    EXPECT_EQ(registry.DeleteKey("A"), 0);
    EXPECT_EQ(registry.SetKey("B", 1, KEY_ALL_ACCESS), 0);
    EXPECT_EQ(folder.Read("made/store.reg"), text);
    SetVariable("KVARNPROG_REGISTRY", "");
}

} // namespace
