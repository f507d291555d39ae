#include "files/filerewrite.h"

#include <chrono>
#include <cstdlib>
#include <thread>

#include <gtest/gtest.h>

#include "files/filecopy.h"
#include "host/calls.h"
#include "support/child.h"
#include "support/testfiles.h"

#if !defined(_WIN32)
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#endif

using kvarn::Existing;
using kvarn::RewriteFile;
using kvarn::Rewritten;

namespace {

TEST(FileRewrite, MakesAndReplacesAFileAndLeavesNothingBeside) {
    TestFolder const folder;
    std::string const path = folder.Api("fil");
    EXPECT_EQ(RewriteFile(path.c_str(), "first, and longer"), Rewritten::done);
    EXPECT_EQ(folder.Read("fil"), "first, and longer");
    EXPECT_EQ(RewriteFile(path.c_str(), "second"), Rewritten::done);
    EXPECT_EQ(folder.Read("fil"), "second");
    EXPECT_EQ(RewriteFile(path.c_str(), ""), Rewritten::done);
    EXPECT_EQ(folder.Read("fil"), "");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"fil"});
}

TEST(FileRewrite, WhatCannotBeOpenedForWritingIsLeftAlone) {
    TestFolder const folder;
    folder.Write("mapp/fil", "x");
    EXPECT_EQ(RewriteFile(folder.Api("mapp").c_str(), "y"), Rewritten::cannotOpen);
    EXPECT_EQ(RewriteFile(folder.Api("saknas\\fil").c_str(), "y"), Rewritten::cannotOpen);
    EXPECT_EQ(RewriteFile(folder.Api("mapp\\fil\\fil").c_str(), "y"), Rewritten::cannotOpen);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"mapp"});
}

// Two contents of different lengths, neither of which a mixture could be taken for.
std::string const contents[] = {std::string(50000, 'a'), std::string(70000, 'b')};

bool IsWhole(std::string const& content) {
    return content == contents[0] || content == contents[1];
}

// Run by processes of their own.
TEST(FileRewriteChild, DISABLED_Writes) {
    char const* const path = std::getenv("KVARNPROG_TEST_FILE");
    char const* const number = std::getenv("KVARNPROG_TEST_TIMES");
    ASSERT_TRUE(path != nullptr && number != nullptr);
    int const times = std::atoi(number);
    for (int i = 0; i < times; ++i) {
        ASSERT_EQ(RewriteFile(path, contents[i % 2]), Rewritten::done);
    }
}

class FileRewriteProcesses : public testing::Test {
  protected:
    FileRewriteProcesses() {
        m_folder.Write("fil", contents[0]);
        SetVariable("KVARNPROG_TEST_FILE", m_folder.Api("fil"));
    }
    TestFolder m_folder;
};

TEST_F(FileRewriteProcesses, TwoAtOnceLeaveOneContentWhole) {
    SetVariable("KVARNPROG_TEST_TIMES", "100");
    Child first("FileRewriteChild.*");
    Child second("FileRewriteChild.*");
    EXPECT_EQ(first.Wait(), 0);
    EXPECT_EQ(second.Wait(), 0);
    EXPECT_TRUE(IsWhole(m_folder.Read("fil")));
    EXPECT_EQ(m_folder.Names(), std::vector<std::string>{"fil"});
}

TEST_F(FileRewriteProcesses, AKillLeavesOneContentWhole) {
    SetVariable("KVARNPROG_TEST_TIMES", "1000000");
    for (int i = 0; i < 8; ++i) {
        Child const child("FileRewriteChild.*");
        Sleep(static_cast<DWORD>(300 + 37 * i));
        child.Kill();
    }
    EXPECT_TRUE(IsWhole(m_folder.Read("fil")));
}

TEST(FileCopy, KeepsTheTimeAndReplacesWhenAsked) {
    TestFolder const folder;
    folder.Write("fran", "ny");
    folder.Write("till", "gammal");
    auto const time = std::filesystem::last_write_time(folder / "fran") - std::chrono::hours(5000);
    std::filesystem::last_write_time(folder / "fran", time);
    EXPECT_FALSE(
        kvarn::CopyWhole(folder.Api("fran").c_str(), folder.Api("till").c_str(), Existing::kept));
    EXPECT_EQ(folder.Read("till"), "gammal");
    EXPECT_TRUE(kvarn::CopyWhole(folder.Api("fran").c_str(), folder.Api("till").c_str(),
                                 Existing::replaced));
    EXPECT_TRUE(
        kvarn::CopyWhole(folder.Api("fran").c_str(), folder.Api("ny").c_str(), Existing::kept));
    for (char const* const copy : {"till", "ny"}) {
        EXPECT_EQ(folder.Read(copy), "ny");
        auto const off = std::filesystem::last_write_time(folder / copy) - time;
        EXPECT_LT(std::chrono::abs(off), std::chrono::seconds(1));
    }
    EXPECT_FALSE(kvarn::CopyWhole(folder.Api("saknas").c_str(), folder.Api("ny").c_str(),
                                  Existing::replaced));
    EXPECT_FALSE(
        kvarn::CopyWhole(folder.Api().c_str(), folder.Api("ny").c_str(), Existing::replaced));
    EXPECT_EQ(folder.Read("ny"), "ny");
    EXPECT_EQ(folder.Names().size(), 3U);
}

TEST(FileCopy, CarriesTheReadOnlyAttributeOver) {
    TestFolder const folder;
    auto const setAttributes = [&](char const* name, DWORD attributes) {
        ASSERT_NE(SetFileAttributesA(folder.Api(name).c_str(), attributes), FALSE);
    };
    folder.Write("fran", "ny");
    folder.Write("till", "gammal");
    setAttributes("fran", FILE_ATTRIBUTE_READONLY);
    for (char const* const copy : {"till", "ny"}) {
        EXPECT_TRUE(kvarn::CopyWhole(folder.Api("fran").c_str(), folder.Api(copy).c_str(),
                                     Existing::replaced));
        EXPECT_EQ(folder.Read(copy), "ny");
        EXPECT_NE(GetFileAttributesA(folder.Api(copy).c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    }
    folder.Write("mapp/fil", "");
    EXPECT_FALSE(kvarn::CopyWhole(folder.Api("fran").c_str(), folder.Api("mapp").c_str(),
                                  Existing::replaced));
    EXPECT_EQ(folder.Names().size(), 4U); // a copy that is read-only is removed again, too
    for (char const* const file : {"fran", "till", "ny"}) {
        setAttributes(file, FILE_ATTRIBUTE_NORMAL);
    }
    WriteBytes(folder / "ny", "kan skrivas");
}

// Let go soon: whoever waited would find the file free.
TEST(FileCopy, DoesNotWaitForAFileThatIsInUse) {
    TestFolder const folder;
    folder.Write("fran", "ny");
    folder.Write("till", "gammal");
    HANDLE const owner = CreateFileA(folder.Api("till").c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(owner, INVALID_HANDLE_VALUE);
    std::thread letsGo([owner] {
        Sleep(300);
        CloseHandle(owner);
    });
    EXPECT_FALSE(kvarn::CopyWhole(folder.Api("fran").c_str(), folder.Api("till").c_str(),
                                  Existing::replaced));
    letsGo.join();
    EXPECT_EQ(folder.Read("till"), "gammal");
}

#if defined(_WIN32)

TEST(FileCopy, ReplacesAFileThatIsHeldOpen) {
    TestFolder const folder;
    folder.Write("fran", "ny");
    folder.Write("till", "gammal");
    HANDLE const reader =
        CreateFileA(folder.Api("till").c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(kvarn::CopyWhole(folder.Api("fran").c_str(), folder.Api("till").c_str(),
                                 Existing::replaced));
    CloseHandle(reader);
    EXPECT_EQ(folder.Read("till"), "ny");
}

TEST(FileRewrite, AFileThatIsHeldOpenForReadingIsWrittenInPlace) {
    TestFolder const folder;
    folder.Write("fil", "the old content, which is longer");
    HANDLE const reader =
        CreateFileA(folder.Api("fil").c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    EXPECT_EQ(RewriteFile(folder.Api("fil").c_str(), "new"), Rewritten::done);
    CloseHandle(reader);
    EXPECT_EQ(folder.Read("fil"), "new");
    EXPECT_EQ(folder.Names().size(), 1U);
}

TEST(FileRewrite, AFileThatIsLockedIsNotOpened) {
    TestFolder const folder;
    folder.Write("fil", "old");
    HANDLE const owner = CreateFileA(folder.Api("fil").c_str(), GENERIC_READ, FILE_SHARE_READ,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(RewriteFile(folder.Api("fil").c_str(), "new"), Rewritten::cannotOpen);
    CloseHandle(owner);
    EXPECT_EQ(folder.Read("fil"), "old");
}

TEST(FileRewrite, AttributesAreCarriedOver) {
    TestFolder const folder;
    folder.Write("fil", "old");
    SetFileAttributesA(folder.Api("fil").c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(RewriteFile(folder.Api("fil").c_str(), "new"), Rewritten::done);
    EXPECT_NE(GetFileAttributesA(folder.Api("fil").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    EXPECT_EQ(folder.Read("fil"), "new");
}

#else

TEST(FileRewrite, LinksAreFollowedAndModeAndOwnerCarriedOver) {
    TestFolder const folder;
    folder.Write("verklig/fil", "old");
    std::filesystem::create_symlink("verklig/fil", folder / "lank");
    std::string const real = (folder / "verklig/fil").string();
    ASSERT_EQ(chmod(real.c_str(), 0640), 0);
    bool const root = geteuid() == 0;
    ASSERT_TRUE(!root || chown(real.c_str(), 1234, 2345) == 0);

    EXPECT_EQ(RewriteFile(folder.Api("lank").c_str(), "new"), Rewritten::done);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "lank"));
    EXPECT_EQ(folder.Read("verklig/fil"), "new");
    struct stat status {};
    ASSERT_EQ(stat(real.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_TRUE(!root || (status.st_uid == 1234 && status.st_gid == 2345));
}

std::string const large(5000, 'x');

// A limit on the size of files fails the write as a full disk does, in a child of its own.
template <class F> Rewritten ResultWithLimit(F rewrite) {
    pid_t const child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const limit = {1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(static_cast<int>(rewrite()));
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    return static_cast<Rewritten>(WEXITSTATUS(status));
}

TEST(FileRewrite, AFullDiskKeepsTheOldContent) {
    TestFolder const folder;
    folder.Write("fil", "old");
    EXPECT_EQ(ResultWithLimit([&] { return RewriteFile(folder.Api("fil").c_str(), large); }),
              Rewritten::failed);
    EXPECT_EQ(folder.Read("fil"), "old");
    EXPECT_EQ(folder.Names().size(), 1U);
}

TEST(FileRewrite, ADeviceIsWrittenInPlaceAndNotReplaced) {
    TestFolder const folder;
    std::filesystem::create_symlink("/dev/full", folder / "full");
    EXPECT_EQ(RewriteFile(folder.Api("full").c_str(), "new"), Rewritten::failed);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(FileRewrite, AKillInTheMiddleOfTheWriteKeepsTheOldContent) {
    TestFolder const folder;
    folder.Write("fil", "old");
    pid_t const child = fork();
    if (child == 0) {
        rlimit const limit = {1000, 1000}; // its signal kills
        setrlimit(RLIMIT_FSIZE, &limit);
        RewriteFile(folder.Api("fil").c_str(), std::string(5000, 'x'));
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(folder.Read("fil"), "old");
}

// A name so long that none can be made beside it: the file is written in place.
TEST(FileRewrite, InPlaceAFullDiskIsMetBeforeAnythingIsOverwritten) {
    TestFolder const folder;
    std::string const name(250, 'n');
    folder.Write(name, "old");
    EXPECT_EQ(RewriteFile(folder.Api(name).c_str(), "newer"), Rewritten::done);
    EXPECT_EQ(folder.Read(name), "newer");
    EXPECT_EQ(ResultWithLimit([&] { return RewriteFile(folder.Api(name).c_str(), large); }),
              Rewritten::failed);
    EXPECT_EQ(folder.Read(name), "newer");
    EXPECT_EQ(RewriteFile(folder.Api(name).c_str(), "x"), Rewritten::done);
    EXPECT_EQ(folder.Read(name), "x");
}

TEST(FileRewrite, WhoMayWriteASharedFileReplacesItToo) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs a second user";
    }
    TestFolder const folder;
    folder.Write("fil", "old");
    chmod(folder.Api().c_str(), 0777);
    chmod((folder / "fil").c_str(), 0666);
    struct stat before {};
    stat((folder / "fil").c_str(), &before);
    pid_t const child = fork();
    if (child == 0) {
        constexpr uid_t nobody = 65534;
        bool const other = setgid(nobody) == 0 && setuid(nobody) == 0;
        _exit(other && RewriteFile(folder.Api("fil").c_str(), "new") == Rewritten::done ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.Read("fil"), "new");
    struct stat after {};
    stat((folder / "fil").c_str(), &after);
    EXPECT_EQ(after.st_mode & 07777U, 0666U);
    EXPECT_NE(after.st_ino, before.st_ino); // replaced, not written in place
}

TEST(FileRewrite, ALinkIntoNowhereIsFollowed) {
    TestFolder const folder;
    folder.Write("verklig/annan", "");
    std::filesystem::create_symlink("verklig/fil", folder / "lank");
    EXPECT_EQ(RewriteFile(folder.Api("lank").c_str(), "new"), Rewritten::done);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "lank"));
    EXPECT_EQ(folder.Read("verklig/fil"), "new");
}

TEST(FileRewrite, APipeIsRefused) {
    TestFolder const folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0666), 0);
    EXPECT_EQ(RewriteFile(folder.Api("pipe").c_str(), "new"), Rewritten::cannotOpen);
}

#endif

} // namespace
