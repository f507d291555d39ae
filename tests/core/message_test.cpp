#include "core/message.h"

#include <gtest/gtest.h>

#include "core/messageout.h"
#include "support/boxes.h"
#include "support/window.h"

namespace {

constexpr unsigned exclamation = 48;
constexpr unsigned toForeground = 65536;

TEST(Message, WithoutAMainWindowTheDesktopOwnsTheBox) {
    Boxes const boxes(6);
    EXPECT_EQ(MessageOut("text", 260, exclamation, nullptr), 6);
    CString const caption("rubrik");
    MessageOut(CString("text"), 0, exclamation, &caption);
    CWinApp application; // no main window yet
    MessageOut("text", 0, exclamation, "rubrik");
    TestWindow window;
    application.m_pMainWnd = &window;
    window.Destroy();
    MessageOut("text", 0, exclamation, nullptr);
    EXPECT_EQ(Boxes::Shown(), (std::vector<ShownBox>{{"text", "<title>", 260 | exclamation, 0},
                                                     {"text", "rubrik", exclamation, 0},
                                                     {"text", "rubrik", exclamation, 0},
                                                     {"text", "<title>", exclamation, 0}}));
}

#if !defined(_WIN32)
TEST(Message, TheStandInForABoxHasWindowsCaptionWithoutOne) {
    testing::internal::CaptureStderr();
    CWnd window;
    EXPECT_EQ(window.MessageBox("text", nullptr, MB_YESNO), IDYES);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: text\n");
}
#endif

TEST(Message, OverTheMainWindowTheBoxComesToTheForeground) {
    Boxes const boxes;
    TestWindow window;
    CWinApp application;
    application.m_pMainWnd = &window;
    CString const caption("rubrik");
    MessageOut("text", 0, exclamation, "not used by the framework's box");
    MessageOut(CString("text"), 0, exclamation, &caption);
    MessageOut(CString("text"), 0, exclamation, nullptr);
    kvarn::DesktopMessage("text", "egen rubrik"); // quotes its caption: never owned
    constexpr unsigned style = exclamation | toForeground;
    EXPECT_EQ(Boxes::Shown(), (std::vector<ShownBox>{{"text", "<title>", style, 1},
                                                     {"text", "rubrik", style, 1},
                                                     {"text", "<title>", style, 1},
                                                     {"text", "egen rubrik", exclamation, 0}}));
}

TEST(Message, StatusTextGoesToALiveBarAlone) {
    StatusText("no bar: dropped");
    CStatusBar bar;
    SetStatusBar(&bar);
    StatusText("no window: dropped");
    EXPECT_EQ(bar.GetPaneText(0), "");
    TestWindow window;
    bar.m_hWnd = window.m_hWnd;
    StatusText("Fel rad");
    EXPECT_EQ(bar.GetPaneText(0), "Fel rad");
    SetStatusBar(nullptr);
    StatusText("dropped again");
    EXPECT_EQ(bar.GetPaneText(0), "Fel rad");
}

TEST(Message, BufferAndLastMessageAreTwoTextsOf2048Bytes) {
    std::string const longText(5000, 'x');
    EXPECT_EQ(std::string(kvarn::ToMessageBuffer(longText)), longText.substr(0, 2047));
    kvarn::SetLastMessage("sist");
    EXPECT_STREQ(LastMessage(), "sist");
    EXPECT_EQ(MessageBuffer()[0], 'x');
    kvarn::SetLastMessage(longText);
    EXPECT_EQ(std::string(LastMessage()).size(), 2047U);
    kvarn::ToMessageBuffer("");
    EXPECT_EQ(std::string(LastMessage()).size(), 2047U);
}

} // namespace
