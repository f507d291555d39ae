#include "filerewrite.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "outfile.h"

namespace kvarn {
namespace {

// Others hold a file for some milliseconds: a writer of a settings file, or a virus scanner. After
// half a second their program hangs or was killed, and the user is waiting.
constexpr DWORD pause = 20; // milliseconds between attempts
constexpr int attemptsInTurn = 25;

class TextContent : public Content {
  public:
    explicit TextContent(std::string_view text) : m_text(text) {}
    std::uint64_t Size() const override { return m_text.size(); }
    bool WriteTo(OutFile& file) override { return file.Write(m_text); }

  private:
    std::string_view m_text;
};

// What the caller wants, for every way of writing.
struct Job {
    char const* path;
    Content& content;
    char const* besidePath; // null: a unique name
    Existing existing;
    Waiting waiting;

    int Attempts(int most) const { return waiting == Waiting::inTurn ? most : 1; }
};

// Opens the file; waits a while for another program that is writing it in place.
OutFile Open(Job const& job, DWORD disposition, DWORD share) {
    OutFile file(job.path, disposition, share);
    for (int i = 1; i < job.Attempts(attemptsInTurn) && !file.IsOpen() &&
                    GetLastError() == ERROR_SHARING_VIOLATION;
         ++i) {
        Sleep(pause);
        file = OutFile(job.path, disposition, share);
    }
    return file;
}

// Writes the content, then its time: writing changes the time.
bool Fill(OutFile& file, Content& content) {
    std::optional<Looks> const looks = content.Look();
    return content.WriteTo(file) && (!looks || file.SetTime(looks->written));
}

// Sets attributes such as read-only and hidden. A new file has none of them, so the common case
// needs no call.
bool SetAttributes(char const* path, DWORD attributes) {
    constexpr DWORD everyday = FILE_ATTRIBUTE_NORMAL | FILE_ATTRIBUTE_ARCHIVE;
    DWORD const special = attributes & ~everyday;
    return special == 0 || SetFileAttributesA(path, special | FILE_ATTRIBUTE_ARCHIVE) != FALSE;
}

Rewritten WriteInPlace(Job const& job) {
    OutFile file = Open(job, OPEN_ALWAYS, shareOneWriter);
    if (!file.IsOpen()) {
        return Rewritten::cannotOpen;
    }
    std::optional<Looks> const looks = job.content.Look();
    bool const written = file.Reserve(job.content.Size()) && Fill(file, job.content) &&
                         file.Cut() && file.Finish() &&
                         (!looks || SetAttributes(job.path, looks->attributes));
    return written ? Rewritten::done : Rewritten::failed;
}

// Gives a file the access rights of another, and its owner and group where the system lets us: most
// who may change a shared file may not give files away.
bool CarryOverRights(char const* from, char const* to) {
    constexpr SECURITY_INFORMATION parts[] = {
        OWNER_SECURITY_INFORMATION, GROUP_SECURITY_INFORMATION, DACL_SECURITY_INFORMATION};
    constexpr SECURITY_INFORMATION all = parts[0] | parts[1] | parts[2];
    alignas(std::max_align_t) std::array<std::byte, 512> usual{};
    std::vector<std::byte> longer;
    void* rights = usual.data();
    DWORD size = usual.size();
    if (GetFileSecurityA(from, all, rights, size, &size) == FALSE) {
        longer.resize(size);
        rights = longer.data();
        if (GetFileSecurityA(from, all, rights, size, &size) == FALSE) {
            return false;
        }
    }
    if (SetFileSecurityA(to, all, rights) != FALSE) {
        return true;
    }
    bool carried = false;
    for (SECURITY_INFORMATION const part : parts) {
        carried = SetFileSecurityA(to, part, rights) != FALSE;
    }
    return carried; // the last: the access rights themselves
}

// What a path names when it is about to be written.
struct Target {
    bool opens = false; // for writing, or it does not exist
    bool exists = false;
    bool replaceable = false; // an ordinary file whose place is known, or none yet
    bool gone = false;        // another program replaced it while it was looked at
    std::string path;         // without links
};

Target Look(Job const& job) {
    char const* const path = job.path;
    // First of all: a target that cannot be opened for writing fails, though it could be replaced.
    OutFile const file = Open(job, OPEN_EXISTING, shareAll);
    if (!file.IsOpen()) {
        bool const missing = GetLastError() == ERROR_FILE_NOT_FOUND;
        return {.opens = missing, .replaceable = missing, .path = path};
    }
    bool const ordinary = file.IsOrdinary();
    std::string real = ordinary ? file.RealPath() : std::string();
    bool const known = !real.empty();
    bool const gone = ordinary && !known && GetLastError() == ERROR_FILE_NOT_FOUND;
    return {.opens = true,
            .exists = true,
            .replaceable = known,
            .gone = gone,
            .path = known ? std::move(real) : path};
}

Target Find(Job const& job) {
    constexpr int attempts = 10; // so many programs do not replace it in a row
    Target target = Look(job);
    for (int i = 1; i < attempts && target.gone; ++i) {
        target = Look(job);
    }
    return target;
}

bool FileWasThere() {
    DWORD const error = GetLastError();
    return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS;
}

// A new file beside another, deleted with its scope unless it was kept or has become the other.
class Beside {
  public:
    Beside(Job const& job, Target const& target) : m_job(job), m_target(target) {
        job.besidePath != nullptr ? MakeKnown() : MakeOwn();
        // Before the content: nobody may read it who may not read the target.
        m_rights =
            m_made && (!m_target.exists || CarryOverRights(m_target.path.c_str(), m_path.c_str()));
    }
    ~Beside() {
        m_file = OutFile();
        if (m_made && !m_kept) {
            SetFileAttributesA(m_path.c_str(), FILE_ATTRIBUTE_NORMAL); // a read-only file stays
            DeleteFileA(m_path.c_str());
        }
    }
    Beside(Beside const&) = delete;
    Beside& operator=(Beside const&) = delete;

    bool Made() const { return m_made; }
    bool DiskFull() const { return m_diskFull; }
    bool Fill() { return kvarn::Fill(m_file, m_job.content) && m_file.Finish(); }

    bool TakePlace() {
        // A scanner or another reader often lets go of the file at once.
        constexpr int mostAttempts = 3;
        DWORD const attributes = Attributes();
        bool const ready = m_rights && attributes != INVALID_FILE_ATTRIBUTES &&
                           SetAttributes(m_path.c_str(), attributes);
        for (int i = 0; i < m_job.Attempts(mostAttempts) && ready && !m_kept; ++i) {
            if (i > 0) {
                Sleep(pause);
            }
            // A name that did not exist is not replaced: it may be a link into nowhere.
            m_kept = MoveFileExA(m_path.c_str(), m_target.path.c_str(),
                                 MOVEFILE_WRITE_THROUGH |
                                     (m_target.exists ? MOVEFILE_REPLACE_EXISTING : 0U)) != FALSE;
        }
        return m_kept;
    }
    void Keep() { m_kept = true; }

  private:
    void Make(std::string path) {
        m_path = std::move(path);
        m_file = OutFile(m_path.c_str(), CREATE_NEW);
        m_made = m_file.IsOpen();
        m_diskFull = !m_made && GetLastError() == ERROR_DISK_FULL;
    }
    void MakeOwn() {
        constexpr int attempts = 100; // names left behind by programs that were killed
        static std::atomic<int> serial = 0;
        for (int i = 0; i < attempts && !m_made && (i == 0 || FileWasThere()); ++i) {
            Make(m_target.path + "." + std::to_string(GetCurrentProcessId()) + "-" +
                 std::to_string(++serial) + ".tmp");
        }
    }
    // With the name that other programs know; takes the file over from a writer that was killed.
    void MakeKnown() {
        Make(m_job.besidePath);
        for (int i = 1; i < attemptsInTurn && !m_made && FileWasThere(); ++i) {
            Sleep(pause);
            Make(m_job.besidePath);
        }
        if (!m_made && FileWasThere() && DeleteFileA(m_job.besidePath) != FALSE) {
            Make(m_job.besidePath);
        }
    }
    // Those of the content, else those of the target; INVALID_FILE_ATTRIBUTES when the host does
    // not tell the target's.
    DWORD Attributes() const {
        std::optional<Looks> const looks = m_job.content.Look();
        return looks             ? looks->attributes
               : m_target.exists ? GetFileAttributesA(m_target.path.c_str())
                                 : FILE_ATTRIBUTE_NORMAL;
    }

    Job const& m_job;
    Target const& m_target;
    std::string m_path;
    OutFile m_file;
    bool m_made = false;
    bool m_rights = false;
    bool m_diskFull = false;
    bool m_kept = false;
};

Rewritten Rewrite(Job const& job) {
    Target const target = Find(job);
    if (!target.opens || (target.exists && job.existing == Existing::kept)) {
        return Rewritten::cannotOpen;
    }
    if (!target.replaceable) {
        return WriteInPlace(job);
    }
    Beside beside(job, target);
    if (!beside.Made()) {
        bool const inPlace = job.besidePath == nullptr && !beside.DiskFull();
        return inPlace ? WriteInPlace(job) : Rewritten::failed;
    }
    if (!beside.Fill()) {
        return Rewritten::failed;
    }
    if (beside.TakePlace()) {
        return Rewritten::done;
    }
    if (!target.exists && Look(job).exists) { // another program has made it in the meantime
        return Rewrite({job.path, job.content, nullptr, job.existing, job.waiting});
    }
    Rewritten const inPlace = WriteInPlace(job);
    if (inPlace == Rewritten::failed) {
        beside.Keep(); // the only whole copy of the new content
    }
    return inPlace;
}

} // namespace

Rewritten RewriteFile(char const* path, std::string_view text) {
    return RewriteFile(path, text, nullptr);
}

Rewritten RewriteFile(char const* path, std::string_view text, char const* besidePath) {
    TextContent content(text);
    return Rewrite({path, content, besidePath, Existing::replaced, Waiting::inTurn});
}

Rewritten RewriteFile(char const* path, Content& content, Existing existing, Waiting waiting) {
    return Rewrite({path, content, nullptr, existing, waiting});
}

bool OpensForWriting(char const* path) {
    return OutFile(path, OPEN_EXISTING).IsOpen();
}

} // namespace kvarn
