// The library as a program meets it that loads it at run time: what it carries, and that nothing of
// the program's is left in it when it is unloaded.
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "core/message.h"

namespace {

class Library {
  public:
    Library() : m_module(LoadLibraryA(KVARNPROG_DLL)) {}
    ~Library() { FreeLibrary(m_module); }
    Library(Library const&) = delete;
    Library& operator=(Library const&) = delete;

    HMODULE Module() const { return m_module; }
    template <class Function> Function* Get(char const* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_module, name)));
    }

  private:
    HMODULE m_module;
};

std::string VersionText(char const* name) {
    char data[4096];
    void* text = nullptr;
    UINT length = 0;
    std::string const path = std::string("\\StringFileInfo\\041D04E4\\") + name;
    return GetFileVersionInfoA(KVARNPROG_DLL, 0, sizeof data, data) != FALSE &&
                   VerQueryValueA(data, path.c_str(), &text, &length) != FALSE
               ? static_cast<char const*>(text)
               : "";
}

TEST(Loading, NoApplicationOfTheLibrarysOwn) {
    Library const library;
    ASSERT_NE(library.Module(), nullptr);
    auto* const application = library.Get<void*()>("_Z9AfxGetAppv");
    ASSERT_NE(application, nullptr);
    EXPECT_EQ(application(), nullptr);
}

TEST(Loading, UnloadingForgetsWhatIsThePrograms) {
    using SetHandler = void(MessageBoxHandler);
    using Buffer = char*();
    {
        Library const library;
        library.Get<SetHandler>("_Z20SetMessageBoxHandlerPFiRK17MessageBoxRequestE")(
            [](MessageBoxRequest const&) { return 1; });
        library.Get<void(void*)>("_Z12SetStatusBarP10CStatusBar")(nullptr);
        library.Get<Buffer>("_Z13MessageBufferv")()[0] = 'x';
    }
    EXPECT_EQ(GetModuleHandleA("Markvida.Core.IO.KvarnProg10064.dll"), nullptr);
    Library const again;
    EXPECT_EQ(again.Get<Buffer>("_Z13MessageBufferv")()[0], '\0');
}

TEST(Loading, TheVersionNamesWhoseClientsItServes) {
    EXPECT_EQ(VersionText("FileVersion"), KVARNPROG_VERSION_TEXT);
    EXPECT_EQ(VersionText("ProductVersion"), KVARNPROG_VERSION_TEXT);
    EXPECT_NE(VersionText("FileDescription").find("MinGW-w64"), std::string::npos);
    EXPECT_EQ(VersionText("OriginalFilename"), "Markvida.Core.IO.KvarnProg10064.dll");
}

TEST(Loading, StringsAreSwedish) {
    Library const library;
    char text[256] = "";
    for (UINT id = 5006; id <= 5012; ++id) {
        EXPECT_GT(LoadStringA(library.Module(), id, text, sizeof text), 0) << id;
    }
    EXPECT_GT(LoadStringA(library.Module(), 6040, text, sizeof text), 0);
    EXPECT_STREQ(text, "Katalog: %s\nfinns redan! Ska denna anv\xE4ndas \xE4nd\xE5?");
    EXPECT_EQ(LoadStringA(library.Module(), 4711, text, sizeof text), 0);
}

} // namespace
