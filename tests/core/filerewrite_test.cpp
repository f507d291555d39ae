#include "core/filerewrite.h"

#include <cstring>
#include <thread>

#include <gtest/gtest.h>

#include "compat/host.h"
#include "support/testfiles.h"

#if !defined(_WIN32)
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#endif

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

TEST(FileRewrite, TwoWritersLeaveOneContentWhole) {
    TestFolder const folder;
    std::string const path = folder.Api("fil");
    std::string const contents[] = {std::string(50000, 'a'), std::string(70000, 'b')};
    folder.Write("fil", contents[0]);
    auto const write = [&](std::string const& content) {
        for (int i = 0; i < 50; ++i) {
            EXPECT_EQ(RewriteFile(path.c_str(), content), Rewritten::done);
        }
    };
    std::thread first(write, contents[0]);
    std::thread second(write, contents[1]);
    first.join();
    second.join();
    std::string const left = folder.Read("fil");
    EXPECT_TRUE(left == contents[0] || left == contents[1]) << left.size();
    for (std::string const& name : folder.Names()) {
        EXPECT_EQ(name, "fil");
    }
}

#if defined(_WIN32)

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

TEST(FileRewrite, AFullDiskKeepsTheOldContent) {
    TestFolder const folder;
    folder.Write("fil", "old");
    // A limit on the size of files fails the write as a full disk does, in a child of its own.
    pid_t const child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const limit = {1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        auto const result = RewriteFile(folder.Api("fil").c_str(), std::string(5000, 'x'));
        _exit(static_cast<int>(result));
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), static_cast<int>(Rewritten::failed));
    EXPECT_EQ(folder.Read("fil"), "old");
    EXPECT_EQ(folder.Names().size(), 1U);
}

TEST(FileRewrite, ADeviceIsWrittenInPlaceAndNotReplaced) {
    TestFolder const folder;
    std::filesystem::create_symlink("/dev/full", folder / "full");
    EXPECT_EQ(RewriteFile(folder.Api("full").c_str(), "new"), Rewritten::failed);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(FileRewrite, AKillLeavesOneContentWhole) {
    TestFolder const folder;
    std::string const contents[] = {std::string(300000, 'a'), std::string(200000, 'b')};
    folder.Write("fil", contents[0]);
    for (int i = 0; i < 40; ++i) {
        pid_t const child = fork();
        if (child == 0) {
            for (int n = 0;; ++n) {
                RewriteFile(folder.Api("fil").c_str(), contents[n % 2]);
            }
        }
        usleep(static_cast<useconds_t>(500 + 700 * i));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        std::string const left = folder.Read("fil");
        ASSERT_TRUE(left == contents[0] || left == contents[1]) << left.size();
    }
}

#endif

} // namespace
