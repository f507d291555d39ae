// Windows paths on a host that is not Windows.
#include "compat/win32/paths.h"

#include <gtest/gtest.h>

#include "compat/calls.h"
#include "files/filerewrite.h"
#include "support/child.h"
#include "support/hostcalls.h"
#include "support/testfiles.h"
#include "text/codepage.h"

using kvarn::HostPath;

namespace {

class PathsTest : public testing::Test {
  protected:
    // A path below the drives, as the host spells it.
    std::string Below(std::string const& name) const { return m_folder.Api() + "/" + name; }

    TestFolder m_folder;
    Variable m_drives{"KVARNPROG_DRIVES", m_folder.Api()};
};

TEST_F(PathsTest, DrivesAndSeparators) {
    EXPECT_EQ(HostPath("C:\\Kvarnbok\\Cfg"), Below("c/Kvarnbok/Cfg"));
    EXPECT_EQ(HostPath("d:/a\\\\b"), Below("d/a/b"));
    EXPECT_EQ(HostPath("\\KVARNBOK.CFG"), "/KVARNBOK.CFG");
    EXPECT_EQ(HostPath("/host/folder\\fil"), "/host/folder/fil");
    EXPECT_EQ(HostPath("a\\b"), "a/b");
    EXPECT_EQ(HostPath(""), "");
}

TEST_F(PathsTest, NamesAreFoundWithoutRegardToCase) {
    m_folder.Write("c/Kvarnbok/Åtgärd.par", "");
    m_folder.Write("c/Kvarnbok/fil", "");
    m_folder.Write("c/Kvarnbok/FIL", "");
    EXPECT_EQ(HostPath("C:\\KVARNBOK\\åTGÄRD.PAR"_1252), Below("c/Kvarnbok/Åtgärd.par"));
    EXPECT_EQ(HostPath("C:\\kvarnbok\\fil"), Below("c/Kvarnbok/fil")); // as it is spelt
    EXPECT_EQ(HostPath("C:\\kvarnbok\\Fil"), Below("c/Kvarnbok/FIL")); // else the first
    EXPECT_EQ(HostPath("C:\\kvarnbok\\Ny\\Fil"), Below("c/Kvarnbok/Ny/Fil"));
    EXPECT_EQ(HostPath("C:\\kvarnbok\\fil\\x"), Below("c/Kvarnbok/fil/x"));
}

// A folder that was read is remembered, and read again when it has changed, however soon.
TEST_F(PathsTest, NamesThatComeAndGoAreSeen) {
    m_folder.Write("c/k/fil", "");
    for (int round = 0; round < 100; ++round) { // many of them within one step of the file times
        EXPECT_EQ(HostPath("C:\\K\\NY"), Below("c/k/NY"));
        EXPECT_NE(CreateDirectoryA("C:\\k\\Ny", nullptr), FALSE);
        EXPECT_EQ(HostPath("C:\\K\\NY"), Below("c/k/Ny"));
        EXPECT_EQ(CreateDirectoryA("C:\\K\\nY", nullptr), FALSE); // it is there
        m_folder.Write("c/k/Annan", "");
        EXPECT_EQ(HostPath("C:\\K\\ANNAN"), Below("c/k/Annan"));
        std::filesystem::remove(m_folder / "c/k/Annan");
        EXPECT_EQ(HostPath("C:\\K\\ANNAN"), Below("c/k/ANNAN"));
        std::filesystem::remove(m_folder / "c/k/Ny");
    }
    HostPath("C:\\k\\X");
    std::filesystem::rename(m_folder / "c/k", m_folder / "c/gammal");
    m_folder.Write("c/k/NY", "");
    EXPECT_EQ(HostPath("C:\\K\\ny"), Below("c/k/NY"));
}

// A home of another alphabet: what lies below a drive is found by its letter.
TEST(Paths, ADrivesFolderOutsideTheCodePageIsItsDrive) {
    TestFolder const folder;
    Variable const drives("KVARNPROG_DRIVES", (folder / "дом").string());
    folder.Write("дом/c/Åsa/a.par", "old");
    auto const path = kvarn::FromHostPath((folder / "дом/c/Åsa/a.par").string());
    EXPECT_EQ(path, "c:/Åsa/a.par"_1252);
    HostCalls const calls;
    EXPECT_EQ(kvarn::RewriteFile("C:\\ÅSA\\A.PAR"_1252, "new"), kvarn::Rewritten::done);
    EXPECT_EQ(calls.Made({"rename"}), "rename a.par\n");
    EXPECT_EQ(folder.Read("дом/c/Åsa/a.par"), "new");
}

TEST_F(PathsTest, NamesOutsideTheCodePageAreNotFound) {
    m_folder.Write("c/α", "");
    EXPECT_EQ(kvarn::FromHostPath("/α"), std::nullopt);
    EXPECT_EQ(HostPath("C:\\?"), Below("c/?"));
}

} // namespace
