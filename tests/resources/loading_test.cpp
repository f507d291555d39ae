// The library as a program meets it that loads it at run time: what it carries, and that nothing of
// the program's is left in it when it is unloaded.
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include "core/message.h"
#include "support/shownbox.h"
#include "support/testfiles.h"

namespace {

class Library {
  public:
    explicit Library(char const* path = KVARNPROG_DLL) : m_module(LoadLibraryA(path)) {}
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

int handledBoxes = 0;
int statusTexts = 0;

LRESULT CALLBACK CountStatusTexts(HWND window, UINT message, WPARAM w, LPARAM l) {
    statusTexts += message == SB_SETTEXTA ? 1 : 0;
    return DefWindowProcA(window, message, w, l);
}

TEST(Loading, UnloadingForgetsWhatIsThePrograms) {
    TestFolder const folder;
    folder.Write("VAG.VL", "0 0 0 0 1 $namn\r\nno vertex\r\n");
    auto const showBoth = [&](Library const& client) {
        client.Get<void(char const*)>("ShowBoth")(folder.Api("VAG.VL").c_str());
    };
    HWND const bar = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                     GetModuleHandleA(nullptr), nullptr);
    SetWindowLongPtrA(bar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountStatusTexts));
    {
        Library const client(LOADED_CLIENT);
        ASSERT_NE(client.Module(), nullptr);
        client.Get<void(HWND, MessageBoxHandler)>("HandOver")(
            bar, [](MessageBoxRequest const&) { return ++handledBoxes; });
        showBoth(client);
        EXPECT_EQ(handledBoxes, 1);
        EXPECT_EQ(statusTexts, 1);
    }
    EXPECT_EQ(GetModuleHandleA("Markvida.Core.IO.KvarnProg10064.dll"), nullptr);
    Library const again;
    EXPECT_EQ(again.Get<char*()>("_Z13MessageBufferv")()[0], '\0');
    BoxReader reader;
    showBoth(Library(LOADED_CLIENT));
    EXPECT_TRUE(reader.Result().found); // on the desktop
    EXPECT_EQ(handledBoxes, 1);
    EXPECT_EQ(statusTexts, 1);
    DestroyWindow(bar);
}

TEST(Loading, TheVersionNamesWhoseClientsItServes) {
    EXPECT_EQ(VersionText("FileVersion"), BUILD_VERSION);
    EXPECT_EQ(VersionText("ProductVersion"), BUILD_VERSION);
    EXPECT_NE(VersionText("FileDescription").find("MinGW-w64"), std::string::npos);
    EXPECT_EQ(VersionText("OriginalFilename"), "Markvida.Core.IO.KvarnProg10064.dll");
}

} // namespace
