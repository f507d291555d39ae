// The registry class, on the host's registry.
#include <gtest/gtest.h>

#include "host/calls.h"

#include "core/registry.h"
#include "support/child.h"
#include "support/testfiles.h"

using namespace std::string_literals;

namespace {

char const* const path = "Software\\Kvarnprog test\\\xC5kern";

class RegistryTest : public testing::Test {
  protected:
    RegistryTest() { EXPECT_EQ(m_registry.SetKey(path, 1, KEY_ALL_ACCESS), 1); }
    ~RegistryTest() override {
        CRegistry whole;
        for (char const* key : {"\\below", ""}) {
            EXPECT_EQ(whole.DeleteKey((std::string(path) + key).c_str()), 1);
        }
        EXPECT_EQ(whole.DeleteKey("Software\\Kvarnprog test"), 1);
    }
    // By the system's own calls.
    void Store(char const* name, DWORD type, std::string_view bytes) {
        HKEY key = nullptr;
        ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_WRITE, &key), 0);
        ASSERT_EQ(RegSetValueExA(key, name, 0, type, reinterpret_cast<BYTE const*>(bytes.data()),
                                 static_cast<DWORD>(bytes.size())),
                  0);
        RegCloseKey(key);
    }
    std::string Stored(char const* name) {
        HKEY key = nullptr;
        std::string bytes(1000, '?');
        auto size = static_cast<DWORD>(bytes.size());
        EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_READ, &key), 0);
        EXPECT_EQ(RegQueryValueExA(key, name, nullptr, nullptr,
                                   reinterpret_cast<BYTE*>(bytes.data()), &size),
                  0);
        RegCloseKey(key);
        return bytes.substr(0, size);
    }

    void ExpectStored(DWORD type, std::string const& bytes) {
        EXPECT_EQ(m_registry.GetDataType("value"), type);
        EXPECT_EQ(m_registry.GetDataSize("value"), static_cast<int>(bytes.size()));
        EXPECT_EQ(Stored("value"), bytes);
    }
    // A value that is written and read; the default comes for one that is missing or too long.
    template <class T>
    void ExpectValue(int (CRegistry::*write)(CString, T), T (CRegistry::*read)(CString, T),
                     std::type_identity_t<T> value, std::string const& bytes) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        EXPECT_EQ((m_registry.*write)("value", value), 1);
        ExpectStored(REG_BINARY, bytes);
        EXPECT_EQ((m_registry.*read)("value", 0), value);
        EXPECT_EQ((m_registry.*read)("missing", value), value);
        EXPECT_EQ((m_registry.*read)("long", value), value);
    }
    template <class Plain, class T>
    void ExpectShape(int (CRegistry::*write)(CString, T*), int (CRegistry::*read)(CString, T*),
                     T shape, std::string const& bytes) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        EXPECT_EQ((m_registry.*write)("value", &shape), 1);
        ExpectStored(REG_BINARY, bytes);
        T back;
        EXPECT_EQ((m_registry.*read)("value", &back), 1);
        EXPECT_TRUE(back == static_cast<Plain>(shape));
        EXPECT_EQ((m_registry.*read)("missing", &back), 0);
        EXPECT_EQ((m_registry.*read)("long", &back), 0);
    }

    TestFolder m_folder;
    Variable m_store{"KVARNPROG_REGISTRY", (m_folder / "store.reg").string()};
    CRegistry m_registry;
};

TEST_F(RegistryTest, EveryFormatIsStoredInItsLayoutAndReadsBack) {
    Store("long", REG_BINARY, "123456789012345678901234567890");
    ExpectValue(&CRegistry::WriteInt, &CRegistry::ReadInt, -5, "\xFB\xFF\xFF\xFF");
    ExpectValue(&CRegistry::WriteDword, &CRegistry::ReadDword, 0xFFFFFFFE, "\xFE\xFF\xFF\xFF");
    ExpectValue(&CRegistry::WriteBool, &CRegistry::ReadBool, 1, "\1\0\0\0"s);
    ExpectValue(&CRegistry::WriteColor, &CRegistry::ReadColor, 0x332211, "\x11\x22\x33\0"s);
    ExpectValue(&CRegistry::WriteFloat, &CRegistry::ReadFloat, -2.0, "\0\0\0\0\0\0\0\xC0"s);
    ExpectShape<SIZE>(&CRegistry::WriteSize, &CRegistry::ReadSize, CSize(1, -2),
                      "\1\0\0\0\xFE\xFF\xFF\xFF"s);
    ExpectShape<POINT>(&CRegistry::WritePoint, &CRegistry::ReadPoint, CPoint(3, 256),
                       "\3\0\0\0\0\1\0\0"s);
    ExpectShape<RECT>(&CRegistry::WriteRect, &CRegistry::ReadRect, CRect(1, 2, 3, -1),
                      "\1\0\0\0\2\0\0\0\3\0\0\0\xFF\xFF\xFF\xFF"s);
    COleDateTime date(2.5);
    date.SetStatus(COleDateTime::null);
    EXPECT_EQ(m_registry.WriteDateTime("value", date), 1);
    ExpectStored(REG_BINARY, "\0\0\0\0\0\0\4@\2\0\0\0\0\0\0\0"s);
    COleDateTime const read = m_registry.ReadDateTime("value", COleDateTime());
    EXPECT_EQ(read.m_dt, 2.5);
    EXPECT_EQ(read.GetStatus(), COleDateTime::null);
    EXPECT_EQ(m_registry.ReadDateTime("missing", COleDateTime(9)).m_dt, 9);
    EXPECT_EQ(m_registry.WriteString("value", "\xE5 b"), 1);
    ExpectStored(REG_SZ, "\xE5 b\0"s);
    EXPECT_EQ(m_registry.ReadString("VALUE", ""), "\xE5 b");
    EXPECT_EQ(m_registry.ReadString("missing", "def"), "def");
    EXPECT_EQ(m_registry.ReadString("long", "def"), "def");
    EXPECT_EQ(m_registry.GetValueCount(), 2);
}

TEST_F(RegistryTest, OtherTypesAndShortValuesAreReadAsFarAsTheyGo) {
    Store("short", REG_BINARY, "\x07");
    Store("dword", REG_DWORD, "\5\0\0\0"s);
    EXPECT_EQ(m_registry.ReadInt("dword", 0), 5);
    EXPECT_EQ(m_registry.ReadInt("short", 0), 7);
    m_registry.ClearKey();
    EXPECT_EQ(m_registry.GetDataSize("dword"), -1);
    EXPECT_EQ(m_registry.GetDataType("dword"), 0U);
}

TEST_F(RegistryTest, TextsHaveAtMost254Characters) {
    std::string const longest(254, 'x');
    EXPECT_EQ(m_registry.WriteString("text", longest.c_str()), 1);
    EXPECT_EQ(m_registry.ReadString("text", ""), longest.c_str());
    EXPECT_EQ(m_registry.WriteString("text", (longest + "x").c_str()), 0);
    EXPECT_EQ(m_registry.ReadString("text", ""), longest.c_str());
    Store("stored", REG_SZ, longest + "x" + '\0');
    EXPECT_EQ(m_registry.ReadString("stored", "def"), "def");
    EXPECT_EQ(m_registry.ReadStringKey3264(path, "stored", "def"), "def");
    Store("expand", REG_EXPAND_SZ, std::string_view("%X%\0y\0", 6));
    EXPECT_EQ(m_registry.ReadString("expand", ""), "%X%");
    Store("binary", REG_BINARY, "bytes");
    EXPECT_EQ(m_registry.ReadString("binary", "def"), "def");
    CRegistry other;
    EXPECT_EQ(other.ReadStringKey3264(path, "binary", "def"), "bytes");
    EXPECT_EQ(other.ReadStringKey3264(path, "missing", "def"), "def");
    EXPECT_EQ(other.ReadStringKey3264("Software\\no such key", "binary", "def"), "def");
    EXPECT_EQ(other.PathIsValid(), 0);
}

TEST_F(RegistryTest, KeysAreChosenMadeAndDeleted) {
    EXPECT_EQ(m_registry.PathIsValid(), 1);
    EXPECT_EQ(m_registry.SetRootKey(HKEY_CURRENT_CONFIG), 0);
    EXPECT_EQ(m_registry.GetRootKey(), HKEY_CURRENT_USER);
    std::string const below = std::string(path) + "\\below";
    EXPECT_EQ(m_registry.KeyExists(below.c_str()), 0);
    EXPECT_EQ(m_registry.SetKey(below.c_str(), 0, KEY_READ), 0);
    EXPECT_EQ(m_registry.GetCurrentPath(), path);
    EXPECT_EQ(m_registry.CreateKey(below.c_str()), 1);
    EXPECT_EQ(m_registry.GetCurrentPath(), below.c_str());
    EXPECT_EQ(m_registry.DeleteKey(path), 0); // one lies below it
    m_registry.SetKey(path, 0, KEY_READ);
    EXPECT_EQ(m_registry.GetSubKeyCount(), 1);
    EXPECT_EQ(m_registry.DeleteKey(below.c_str()), 1);
    EXPECT_EQ(m_registry.GetSubKeyCount(), 0);
    EXPECT_EQ(m_registry.DeleteKey(below.c_str()), 1); // deleted already
    EXPECT_EQ(m_registry.WriteInt("value", 1), 1);
    m_registry.RenameValue("value", "other"); // does nothing
    EXPECT_EQ(m_registry.ValueExists("value"), 1);
    EXPECT_EQ(m_registry.DeleteValue("VALUE"), 1);
    EXPECT_EQ(m_registry.DeleteValue("value"), 0);
    EXPECT_EQ(m_registry.ValueExists("value"), 0);
    EXPECT_EQ(m_registry.SetRootKey(HKEY_LOCAL_MACHINE), 1);
    EXPECT_EQ(m_registry.ClearKey(), 1);
    EXPECT_EQ(m_registry.GetRootKey(), HKEY_CURRENT_USER);
    EXPECT_EQ(m_registry.PathIsValid(), 0);
    EXPECT_EQ(m_registry.SetKey("", 0, KEY_READ), 1);
    EXPECT_EQ(m_registry.PathIsValid(), 0);
    EXPECT_GE(m_registry.GetSubKeyCount(), 1); // the root's own
}

TEST_F(RegistryTest, NamesOfKeysHaveAtMost255Characters) {
    std::string const longest(255, 'k');
    std::string const tooLong = longest + "kk"; // Windows makes one with 256
    CRegistry registry;
    EXPECT_EQ(registry.CreateKey(longest.c_str()), 1);
    EXPECT_EQ(registry.SetKey(longest.c_str(), 0, KEY_READ), 1);
    EXPECT_EQ(registry.CreateKey(tooLong.c_str()), 0);
    HKEY key = nullptr;
    constexpr LSTATUS invalidParameter = 87;
    EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, tooLong.c_str(), 0, KEY_READ, &key),
              invalidParameter);
#if !defined(_WIN32) // Wine refuses longer paths by the functions for the code page.
    EXPECT_EQ(registry.CreateKey((longest + "k").c_str()), 0);
    std::string const below = longest + '\\' + longest;
    EXPECT_EQ(registry.CreateKey(below.c_str()), 1);
    EXPECT_EQ(registry.CreateKey((below + "\\x" + longest).c_str()), 0);
    EXPECT_EQ(registry.DeleteKey(below.c_str()), 1);
#endif
    EXPECT_EQ(registry.DeleteKey(longest.c_str()), 1);
}

TEST_F(RegistryTest, AFontComesBackAsANewOne) {
    LOGFONTA description{};
    description.lfHeight = -17;
    std::strcpy(description.lfFaceName, "Arial");
    CFont font;
    EXPECT_EQ(m_registry.ReadFont("missing", &font), 0);
    EXPECT_TRUE(font.CreateFontIndirect(&description));
    EXPECT_EQ(m_registry.WriteFont("font", &font), 1);
    EXPECT_EQ(Stored("font").size(), 60U);
    HGDIOBJ const before = font.GetSafeHandle();
    EXPECT_EQ(m_registry.ReadFont("font", &font), 1);
    EXPECT_NE(font.GetSafeHandle(), before);
    LOGFONTA read{};
    EXPECT_EQ(font.GetLogFont(&read), 60);
    EXPECT_EQ(read.lfHeight, -17);
    EXPECT_STREQ(read.lfFaceName, "Arial");
    EXPECT_TRUE(DeleteObject(before)); // still there, and the caller's
}

} // namespace
