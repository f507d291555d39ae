#include "project/projektstatus.h"

#include <gtest/gtest.h>

#include "core/message.h"
#include "support/statusmodul.h"
#include "text/codepage.h"

namespace {

TEST(ProjektStatus, TheLibrarysTexts) {
    CProjektStatus status;
    status.SetHandle(LibraryModule());
    EXPECT_EQ(status.GetStatus(), "");
    EXPECT_EQ(status.SetStatus(3), -1);
    EXPECT_EQ(status.Find("Levererat"), 999);
    status.Load();
    status.Home();
    status++;
    status.Load(); // a filled list stays as it is, its current entry too
    int antal = 0;
    EXPECT_EQ(status.Where(&antal), 2);
    EXPECT_EQ(antal, 7);
    char const* const texts[] = {"Pågående"_1252, "Avslutat", "Arkiverat",
                                 "Levererat",     "Vilande",  "Ska arkiveras"};
    for (int kod = 0; kod < 6; ++kod) {
        EXPECT_EQ(status.SetStatus(kod), 0);
        EXPECT_EQ(status.GetStatus(), texts[kod]);
    }
    status.m_funnen = 0;
    EXPECT_EQ(status.SetStatus(7), 0);
    EXPECT_EQ(status.m_funnen, 0);
    EXPECT_EQ(status.m_status, 999);
    EXPECT_EQ(status.GetStatus(), "Status okänd"_1252);
    EXPECT_EQ(status.Find("PÅGÅENDE"_1252), 0);
    EXPECT_EQ(status.Find("status OKÄND"_1252), 999);
    EXPECT_EQ(status.m_funnen, 1); // by Find
    EXPECT_EQ(status.m_status, 999);
    status.m_funnen = 0;
    status.SetStatus(2);
    EXPECT_EQ(status.m_funnen, 1);
}

TEST(ProjektStatus, AnotherModulesTexts) {
    CProjektStatus status;
    status.SetHandle(StatusModul());
    ASSERT_NE(status.m_modul, nullptr);
    status.Load();
    EXPECT_EQ(status.Find("finished"), 1);
    EXPECT_EQ(status.TxLoadString(5010).GetLength(), 254); // cut, and to 79 in the list
    status.SetStatus(4);
    EXPECT_EQ(status.GetStatus().GetLength(), 79);
    status.SetStatus(5);
    EXPECT_EQ(status.GetStatus(), ""); // not in the module
    status.SetStatus(999);
    EXPECT_EQ(status.GetStatus(), "Unknown");
    CProjektStatus none;
    none.Load();
    EXPECT_EQ(none.TxLoadString(5006), "");
    EXPECT_EQ(none.m_funnen, 0);
    EXPECT_EQ(none.Find(""), 0);
    EXPECT_EQ(none.SetStatus(5), 0);
    EXPECT_EQ(none.GetStatus(), "");
}

TEST(ProjektStatus, TheStateIsReadAsAPosition) {
    CProjektStatus status;
    status.SetHandle(LibraryModule());
    projektstatustype post = {2, "två"};
    status.Ny(1, &post);
    post = {1, "ett"};
    status.Ny(0, &post); // before it
    status.Ny(1, nullptr);
    EXPECT_EQ(status.SetStatus(2), 0); // there, as the second entry
    EXPECT_EQ(status.GetStatus(), ""); // the third
    status.m_status = 1;
    EXPECT_EQ(status.GetStatus(), "två");
    status.m_status = -4;
    EXPECT_EQ(status.GetStatus(), "ett");
    status.m_status = 3;
    EXPECT_EQ(status.GetStatus(), "Status okänd"_1252);
    EXPECT_EQ(status.m_status, 999);
    EXPECT_THROW(CProjektStatus(status).SetHandle(nullptr), ListFel);
}

} // namespace
