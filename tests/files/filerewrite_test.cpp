#include "files/filerewrite.h"

#include <chrono>
#include <cstdlib>
#include <functional>
#include <thread>

#include <gtest/gtest.h>

#include "files/filecopy.h"
#include "files/infile.h"
#include "files/outfile.h"
#include "host/calls.h"
#include "support/child.h"
#include "support/fulldisk.h"
#include "support/hostcalls.h"
#include "support/testfiles.h"

#if !defined(_WIN32)
#include <sys/stat.h>
#endif

using kvarn::Existing;
using kvarn::RewriteFile;
using kvarn::Rewritten;

namespace {

using Names = std::vector<std::string>;

class FileRewrite : public testing::Test {
  protected:
    Rewritten Rewrite(std::string const& name, std::string_view text) const {
        return RewriteFile(m_folder.Api(name).c_str(), text);
    }
    bool Copy(char const* from, char const* to, Existing existing = Existing::replaced) const {
        return kvarn::CopyWhole(m_folder.Api(from).c_str(), m_folder.Api(to).c_str(), existing);
    }
    // As another program holds a file open, which lets others do what it shares.
    HANDLE Open(char const* name, DWORD access, DWORD share) const {
        HANDLE const file = CreateFileA(m_folder.Api(name).c_str(), access, share, nullptr,
                                        OPEN_EXISTING, 0, nullptr);
        EXPECT_NE(file, INVALID_HANDLE_VALUE);
        return file;
    }
    void SetAttributes(char const* name, DWORD attributes) const {
        EXPECT_NE(SetFileAttributesA(m_folder.Api(name).c_str(), attributes), FALSE);
    }

    TestFolder m_folder;
};

TEST_F(FileRewrite, WhatCannotBeOpenedForWritingIsLeftAlone) {
    m_folder.Write("mapp/fil", "x");
    for (char const* const name : {"mapp", "saknas\\fil", "mapp\\fil\\fil"}) {
        EXPECT_EQ(Rewrite(name, "y"), Rewritten::cannotOpen) << name;
    }
    EXPECT_EQ(m_folder.Names(), Names{"mapp"});
}

// Two contents of different lengths, neither of which a mixture could be taken for.
std::string const contents[] = {std::string(50000, 'a'), std::string(70000, 'b')};

// Run by processes of their own. A second file tells that both contents have been written.
TEST(FileRewriteChild, DISABLED_Writes) {
    char const* const path = std::getenv("KVARNPROG_TEST_FILE");
    char const* const sign = std::getenv("KVARNPROG_TEST_SIGN");
    char const* const times = std::getenv("KVARNPROG_TEST_TIMES");
    if (path == nullptr || sign == nullptr || times == nullptr) {
        FAIL() << "not started as another's child";
    }
    for (int i = 0; i < std::atoi(times); ++i) {
        ASSERT_EQ(RewriteFile(path, contents[i % 2]), Rewritten::done);
        if (i == 1) {
            WriteBytes(sign, "");
        }
    }
}

class FileRewriteProcesses : public FileRewrite {
  protected:
    FileRewriteProcesses() {
        m_folder.Write("mapp/fil", "old");
        SetVariable("KVARNPROG_TEST_FILE", m_folder.Api("mapp\\fil"));
        SetVariable("KVARNPROG_TEST_SIGN", (m_folder / "sign").string());
    }
    void ExpectOneContentWhole() const {
        std::string const content = m_folder.Read("mapp/fil");
        EXPECT_TRUE(content == contents[0] || content == contents[1]) << content.size();
    }
};

TEST_F(FileRewriteProcesses, TwoAtOnceLeaveOneContentWhole) {
    SetVariable("KVARNPROG_TEST_TIMES", "100");
    Child first("FileRewriteChild.*");
    Child second("FileRewriteChild.*");
    EXPECT_EQ(first.Wait(), 0);
    EXPECT_EQ(second.Wait(), 0);
    ExpectOneContentWhole();
    EXPECT_EQ(NamesIn(m_folder / "mapp"), Names{"fil"});
}

TEST_F(FileRewriteProcesses, AKillLeavesOneContentWhole) {
    SetVariable("KVARNPROG_TEST_TIMES", "1000000000");
    for (int i = 0; i < 8; ++i) {
        Child child("FileRewriteChild.*");
        for (int waited = 0; !std::filesystem::exists(m_folder / "sign"); ++waited) {
            ASSERT_LT(waited, 6000) << "a minute without a write";
            Sleep(10);
        }
        Sleep(static_cast<DWORD>(7 * i)); // at another step of the writing each time
        child.Kill();
        EXPECT_NE(child.Wait(), 0);
        ExpectOneContentWhole();
        std::filesystem::remove(m_folder / "sign");
    }
}

// A content of which the writing waits in the middle.
class SlowContent : public kvarn::Content {
  public:
    SlowContent(std::string text, std::function<void()> pause)
        : m_text(std::move(text)), m_pause(std::move(pause)) {}
    std::uint64_t Size() const override { return m_text.size(); }
    bool WriteTo(kvarn::OutFile& file) override {
        bool const begun = file.Write(m_text.substr(0, 1));
        m_pause();
        return begun && file.Write(m_text.substr(1));
    }

  private:
    std::string m_text;
    std::function<void()> m_pause;
};

TEST_F(FileRewrite, ASlowWriterUnderAKnownNameIsNotTakenForDead) {
    std::string const known = m_folder.Api("fil.tmp");
    auto const write = [&](kvarn::Content& content) {
        return RewriteFile(m_folder.Api("fil").c_str(), content, Existing::replaced,
                           kvarn::Waiting::inTurn, known.c_str());
    };
    m_folder.Write("fil", "old");
    m_folder.Write("fil.tmp", "whole, of a writer that was killed");
    SlowContent quick("quick", [] {});
    SlowContent slower("slower", [&] {
        EXPECT_EQ(write(quick), Rewritten::done);
        EXPECT_EQ(m_folder.Read("fil"), "quick"); // and not the unfinished one
    });
    SlowContent slow("slow", [&] { EXPECT_EQ(write(slower), Rewritten::done); });
    EXPECT_EQ(write(slow), Rewritten::done);
    EXPECT_EQ(m_folder.Read("fil"), "slow");
    EXPECT_EQ(m_folder.Names(), Names{"fil"});
}

TEST_F(FileRewrite, WhatKilledWritersLeftIsSwept) {
    std::string const own = std::to_string(ProcessNumber());
    for (std::string const name :
         {"fil.999999999-1.tmp", "FIL.999999998-12.tmp", "filen.999999999-1.tmp", "fil.9-x.tmp",
          "fil.999999999-1.tmp.bak"}) {
        m_folder.Write(name, "x");
    }
    m_folder.Write("fil." + own + "-1000001.tmp", "of this process");
    m_folder.Write("fil." + own + "-1000002.tmp", "of one that had its number");
    std::filesystem::last_write_time(m_folder / ("fil." + own + "-1000002.tmp"),
                                     std::filesystem::file_time_type::clock::now() -
                                         std::chrono::hours(25));
    EXPECT_EQ(Rewrite("fil", "new"), Rewritten::done);
    Names left = {"fil", "fil." + own + "-1000001.tmp", "fil.9-x.tmp", "fil.999999999-1.tmp.bak",
                  "filen.999999999-1.tmp"};
    std::sort(left.begin(), left.end());
    EXPECT_EQ(m_folder.Names(), left);
}

class FileCopy : public FileRewrite {
  protected:
    FileCopy() {
        m_folder.Write("fran", "ny");
        m_folder.Write("till", "gammal");
    }
};

TEST_F(FileCopy, KeepsTheTimeAndReplacesWhenAsked) {
    auto const time =
        std::filesystem::last_write_time(m_folder / "fran") - std::chrono::hours(5000);
    std::filesystem::last_write_time(m_folder / "fran", time);
    EXPECT_FALSE(Copy("fran", "till", Existing::kept));
    EXPECT_EQ(m_folder.Read("till"), "gammal");
    EXPECT_TRUE(Copy("fran", "till"));
    EXPECT_TRUE(Copy("fran", "ny", Existing::kept));
    EXPECT_FALSE(Copy("saknas", "ny"));
    EXPECT_FALSE(Copy("", "ny")); // the folder
    for (char const* const copy : {"till", "ny"}) {
        EXPECT_EQ(m_folder.Read(copy), "ny");
        auto const off = std::filesystem::last_write_time(m_folder / copy) - time;
        EXPECT_LT(std::chrono::abs(off), std::chrono::seconds(1)) << copy;
    }
    EXPECT_EQ(m_folder.Names().size(), 3U);
}

TEST_F(FileCopy, CarriesTheReadOnlyAttributeOver) {
    SetAttributes("fran", FILE_ATTRIBUTE_READONLY);
    for (char const* const copy : {"till", "ny"}) {
        EXPECT_TRUE(Copy("fran", copy));
        EXPECT_EQ(m_folder.Read(copy), "ny");
        EXPECT_NE(GetFileAttributesA(m_folder.Api(copy).c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    }
    m_folder.Write("mapp/fil", "");
    EXPECT_FALSE(Copy("fran", "mapp"));
    EXPECT_EQ(m_folder.Names().size(), 4U); // a copy that is read-only is removed again, too
    for (char const* const file : {"fran", "till", "ny"}) {
        SetAttributes(file, FILE_ATTRIBUTE_NORMAL);
    }
    m_folder.Write("ny", "kan skrivas");
}

// One who waits takes half a second each time; one who does not may be held up now and then.
TEST_F(FileCopy, DoesNotWaitForAFileThatIsInUse) {
    using Clock = std::chrono::steady_clock;
    HANDLE const owner = Open("till", GENERIC_WRITE, FILE_SHARE_READ);
    auto shortest = Clock::duration::max();
    for (int i = 0; i < 10; ++i) {
        auto const start = Clock::now();
        EXPECT_FALSE(Copy("fran", "till"));
        shortest = std::min(shortest, Clock::now() - start);
    }
    EXPECT_LT(shortest, std::chrono::milliseconds(400));
    CloseHandle(owner);
    EXPECT_EQ(m_folder.Read("till"), "gammal");
}

#if defined(_WIN32)

TEST_F(FileCopy, AFileThatIsHeldOpenForReadingIsWrittenInPlace) {
    HANDLE const reader = Open("till", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(Rewrite("till", "new, and longer"), Rewritten::done);
    EXPECT_EQ(m_folder.Read("till"), "new, and longer");
    EXPECT_TRUE(Copy("fran", "till"));
    CloseHandle(reader);
    EXPECT_EQ(m_folder.Read("till"), "ny");
    EXPECT_EQ(m_folder.Names().size(), 2U);
}

TEST_F(FileCopy, AFileThatIsLockedIsNotOpened) {
    HANDLE const owner = Open("till", GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(Rewrite("till", "new"), Rewritten::cannotOpen);
    CloseHandle(owner);
    EXPECT_EQ(m_folder.Read("till"), "gammal");
}

TEST_F(FileCopy, ARewriteCarriesAttributesOver) {
    SetAttributes("till", FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(Rewrite("till", "new"), Rewritten::done);
    EXPECT_NE(GetFileAttributesA(m_folder.Api("till").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    EXPECT_EQ(m_folder.Read("till"), "new");
}

#else

TEST_F(FileRewrite, TheContentIsOnTheDiskBeforeTheNameIs) {
    m_folder.Write("fil", "old");
    chmod((m_folder / "fil").c_str(), 0600);
    HostCalls const calls;
    EXPECT_EQ(Rewrite("fil", "new"), Rewritten::done);
    std::string const folder = m_folder.Api().substr(m_folder.Api().rfind('/') + 1);
    std::string made = calls.Made({"fsync", "rename"});
    made.erase(made.find("fil."), made.find('\n') - made.find("fil.")); // the unique name
    EXPECT_EQ(made, "fsync \nrename fil\nfsync " + folder + "\n");
    for (HostCall const& call : calls.All()) { // nobody may read it in the meantime
        EXPECT_TRUE(call.name != "open" || (call.mode & 077U) == 0) << call.file;
    }
}

// In place: the content that is there comes back, and readers wait.
TEST_F(FileRewrite, AWriteInPlaceThatFailsPutsTheOldContentBack) {
    std::string const name(250, 'n');
    m_folder.Write(name, "old, and longer");
    int failures = 1;
    HostCalls const disk(
        [&](HostCall const& call) { return call.name == "ftruncate" && failures-- > 0 ? EIO : 0; });
    EXPECT_EQ(Rewrite(name, "new"), Rewritten::failed);
    EXPECT_EQ(m_folder.Read(name), "old, and longer");
    EXPECT_EQ(m_folder.Names(), Names{name});
}

TEST_F(FileRewrite, AReaderWaitsForAWriterInPlace) {
    m_folder.Write("fil", "old");
    std::string const path = m_folder.Api("fil");
    kvarn::OutFile writer(path.c_str(), OPEN_EXISTING, kvarn::shareOneWriter);
    EXPECT_TRUE(writer.LockOut(1) && writer.Write("ne"));
    std::thread rest([&] {
        Sleep(100);
        EXPECT_TRUE(writer.Write("w, and longer") && writer.Finish());
    });
    EXPECT_EQ(kvarn::WholeFile(path.c_str()), "new, and longer");
    rest.join();
}

// Its length needs one byte more than the buffer that the host is first asked with.
TEST_F(FileRewrite, APathOfAnyLengthIsFollowed) {
    for (std::size_t const length : {258U, 259U, 260U, 261U}) {
        std::string const name(length - m_folder.Api().size() - 3, 'n');
        m_folder.Write("d/" + name, "old");
        EXPECT_EQ(Rewrite("d\\" + name, "new"), Rewritten::done);
        EXPECT_EQ(m_folder.Read("d/" + name), "new");
    }
}

// How a process ended that does something and exits with its result.
template <class F> int StatusOf(F act) {
    pid_t const child = fork();
    if (child == 0) {
        _exit(act());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

struct stat StatusOfFile(std::filesystem::path const& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status;
}

TEST_F(FileRewrite, LinksAreFollowedAndModeAndOwnerCarriedOver) {
    m_folder.Write("verklig/fil", "old");
    std::filesystem::create_symlink("verklig/fil", m_folder / "lank");
    std::string const real = (m_folder / "verklig/fil").string();
    ASSERT_EQ(chmod(real.c_str(), 0640), 0);
    bool const root = geteuid() == 0;
    ASSERT_TRUE(!root || chown(real.c_str(), 1234, 2345) == 0);
    EXPECT_EQ(Rewrite("lank", "new"), Rewritten::done);
    EXPECT_EQ(m_folder.Read("verklig/fil"), "new");
    struct stat const status = StatusOfFile(real);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_TRUE(!root || (status.st_uid == 1234 && status.st_gid == 2345));

    std::filesystem::remove(real); // the link leads nowhere now
    EXPECT_EQ(Rewrite("lank", "newer"), Rewritten::done);
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder / "lank"));
    EXPECT_EQ(m_folder.Read("verklig/fil"), "newer");
}

std::string const large(5000, 'x');

// Beside a name so long no other can be made: that file is written in place.
TEST_F(FileRewrite, AFullDiskKeepsTheOldContent) {
    for (std::string const& name : {std::string("fil"), std::string(250, 'n')}) {
        SCOPED_TRACE(name);
        m_folder.Write(name, "old");
        {
            FullDisk const disk(1000);
            EXPECT_EQ(Rewrite(name, large), Rewritten::failed);
        }
        EXPECT_EQ(m_folder.Read(name), "old");
        EXPECT_EQ(Rewrite(name, "newer"), Rewritten::done);
        EXPECT_EQ(Rewrite(name, "x"), Rewritten::done);
        EXPECT_EQ(m_folder.Read(name), "x");
    }
    EXPECT_EQ(m_folder.Names().size(), 2U);
}

TEST_F(FileRewrite, AKillInTheMiddleOfTheWriteKeepsTheOldContent) {
    m_folder.Write("fil", "old");
    int const status = StatusOf([&] {
        FullDisk const disk(1000);
        std::signal(SIGXFSZ, SIG_DFL); // which kills
        return static_cast<int>(Rewrite("fil", large));
    });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(m_folder.Read("fil"), "old");
}

TEST_F(FileRewrite, WhatIsNoFileIsNotReplaced) {
    std::filesystem::create_symlink("/dev/full", m_folder / "full");
    EXPECT_EQ(Rewrite("full", "new"), Rewritten::failed);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
    ASSERT_EQ(mkfifo((m_folder / "pipe").c_str(), 0666), 0);
    EXPECT_EQ(Rewrite("pipe", "new"), Rewritten::cannotOpen);
}

TEST_F(FileRewrite, WhoMayWriteASharedFileReplacesItToo) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs a second user";
    }
    m_folder.Write("fil", "old");
    chmod(m_folder.Api().c_str(), 0777);
    chmod((m_folder / "fil").c_str(), 0666);
    struct stat const before = StatusOfFile(m_folder / "fil");
    EXPECT_EQ(StatusOf([&] {
                  constexpr uid_t nobody = 65534;
                  bool const other = setgid(nobody) == 0 && setuid(nobody) == 0;
                  return other && Rewrite("fil", "new") == Rewritten::done ? 0 : 1;
              }),
              0);
    EXPECT_EQ(m_folder.Read("fil"), "new");
    struct stat const after = StatusOfFile(m_folder / "fil");
    EXPECT_EQ(after.st_mode & 07777U, 0666U);
    EXPECT_NE(after.st_ino, before.st_ino); // replaced, not written in place
}

#endif

} // namespace
