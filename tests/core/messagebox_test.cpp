// Real message boxes on a real desktop: what a client's user sees.
#include <atomic>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "core/message.h"
#include "project/projpath.h"
#include "settings/autoini.h"
#include "support/installation.h"
#include "support/privatemember.h"
#include "support/window.h"

struct CreateFolderTag : PrivateMember<int (CProjPath::*)(CString, int)> {};
template struct Reveal<CreateFolderTag, &CProjPath::CreateFolder>;

namespace {

std::string TextOf(HWND window) {
    char text[512] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

struct Seen {
    std::string title;
    std::string text;
    HWND owner = nullptr;
    bool found = false;
};

// Waits for a box of this process, reads it and presses its OK button.
class Reader {
  public:
    Reader() : m_thread([this] { Read(); }) {}
    Seen Result() {
        m_thread.join();
        return m_seen;
    }

  private:
    static BOOL CALLBACK TakeBox(HWND window, LPARAM found) {
        char name[16] = "";
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        GetClassNameA(window, name, sizeof name);
        bool const box = process == GetCurrentProcessId() && std::string(name) == "#32770";
        if (box) {
            *reinterpret_cast<HWND*>(found) = window;
        }
        return box ? FALSE : TRUE;
    }
    static BOOL CALLBACK TakeText(HWND window, LPARAM text) {
        char name[16] = "";
        GetClassNameA(window, name, sizeof name);
        std::string const shown = TextOf(window);
        if (std::string(name) == "Static" && !shown.empty()) {
            *reinterpret_cast<std::string*>(text) = shown;
        }
        return TRUE;
    }
    void Read() {
        HWND box = nullptr;
        for (int i = 0; i < 500 && box == nullptr; ++i) { // ten seconds at most
            Sleep(20);
            EnumWindows(TakeBox, reinterpret_cast<LPARAM>(&box));
        }
        if (box == nullptr) {
            return;
        }
        m_seen.found = true;
        m_seen.title = TextOf(box);
        m_seen.owner = GetWindow(box, GW_OWNER);
        EnumChildWindows(box, TakeText, reinterpret_cast<LPARAM>(&m_seen.text));
        PostMessageA(box, WM_COMMAND, IDOK, 0);
    }

    Seen m_seen;
    std::thread m_thread; // last: it uses the others
};

// A message that the library shows with the application title.
Seen Provoke() {
    Reader reader;
    CProjPath projekt;
    EXPECT_EQ((projekt.*CreateFolderTag::value)("C:\\saknas\\ny", 1), 0);
    return reader.Result();
}

TEST(MessageBox, StandsOverTheMainWindowWithTheApplicationTitle) {
    TestWindow window;
    CWinApp application;
    application.m_pMainWnd = &window;
    Seen const seen = Provoke();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.title, "Markvida"); // the library's, since this program has none
    EXPECT_EQ(seen.text, "Fel, kan EJ skapa katalog:\nC:\\saknas\\ny");
    EXPECT_EQ(seen.owner, window.m_hWnd);
}

// The framework's own box has the program's name; the window's, which the first start uses, does
// not.
TEST(MessageBox, OfTheFirstStartHasTheApplicationTitleWhateverTheProgramsName) {
    Installation installation;
    installation.Install("R20", "C:\\Kvarnbok");
    TestWindow window;
    CWinApp application("Provrita");
    application.m_pMainWnd = &window;
    EXPECT_EQ(Provoke().title, "Provrita");
    Reader reader;
    CAutoIni ini;
    EXPECT_EQ(ini.InitXPWay(20, "AX", nullptr), -2);
    Seen const seen = reader.Result();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.title, "Markvida");
    EXPECT_EQ(seen.owner, window.m_hWnd);
}

TEST(MessageBox, HasNoOwnerWithoutAMainWindow) {
    Seen const seen = Provoke();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.title, "Markvida");
    EXPECT_EQ(seen.text, "Fel, kan EJ skapa katalog:\nC:\\saknas\\ny");
    EXPECT_EQ(seen.owner, nullptr);
}

TEST(LibraryModule, HoldsTheStringTable) {
    char text[8] = "";
    EXPECT_GT(LoadStringA(LibraryModule(), 57344, text, sizeof text), 0);
    EXPECT_STREQ(text, "Markvid"); // cut to its buffer
}

} // namespace
