// Real message boxes on a real desktop: what a client's user sees.
#include <gtest/gtest.h>

#include "core/message.h"
#include "project/projpath.h"
#include "settings/autoini.h"
#include "support/installation.h"
#include "support/shownbox.h"

namespace {

// A message that the library shows with the application title.
SeenBox Provoke() {
    BoxReader reader;
    CProjPath projekt;
    EXPECT_EQ(projekt.CreateProjectStructure("C:\\saknas", nullptr, 0, 1, 1, 0, 0, 0, 0), 0);
    return reader.Result();
}

void ExpectBox(SeenBox const& seen, char const* title, HWND owner) {
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.title, title);
    EXPECT_EQ(seen.text, "Fel, kan EJ skapa katalog:\nC:\\saknas\\KVARNBOK.DBF");
    EXPECT_EQ(seen.owner, owner);
}

TEST(MessageBox, StandsOverTheMainWindowWithTheApplicationTitle) {
    ExpectBox(Provoke(), "Markvida", nullptr); // without a main window
    TestWindow window;
    CWinApp application;
    application.m_pMainWnd = &window;
    ExpectBox(Provoke(), "Markvida", window.m_hWnd); // the library's, since this program has none
}

// The framework's own box has the program's name; the window's, which the first start uses, does
// not.
TEST(MessageBox, OfTheFirstStartHasTheApplicationTitleWhateverTheProgramsName) {
    Installation installation;
    installation.Install("R20", "C:\\Kvarnbok");
    TestWindow window;
    CWinApp application("Provrita");
    application.m_pMainWnd = &window;
    ExpectBox(Provoke(), "Provrita", window.m_hWnd);
    BoxReader reader;
    CAutoIni ini;
    EXPECT_EQ(ini.InitXPWay(20, "AX", nullptr), -2);
    SeenBox const seen = reader.Result();
    EXPECT_EQ(seen.title, "Markvida");
    EXPECT_EQ(seen.owner, window.m_hWnd);
}

} // namespace
