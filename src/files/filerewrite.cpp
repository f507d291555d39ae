#include "filerewrite.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "existence.h"
#include "infile.h"
#include "outfile.h"
#include "temporary.h"
#include "turns.h"

namespace kvarn {
namespace {

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
    char const* knownName; // null: the new file goes straight to its place
    Existing existing;
    Waiting waiting;

    int Attempts() const { return waiting == Waiting::inTurn ? turnAttempts : 1; }
};

// Opens the file; waits a while for another program that is writing it in place.
OutFile Open(Job const& job, DWORD disposition, DWORD share) {
    OutFile file;
    auto const open = [&] {
        file = OutFile(job.path, disposition, share);
        return file.IsOpen();
    };
    InTurn(job.Attempts(), open, [](DWORD error) { return error == ERROR_SHARING_VIOLATION; });
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

enum class InPlace { done, cannotOpen, unchanged, damaged };

// Puts the content into the file that is there; its old content comes back when that fails.
InPlace Overwrite(OutFile& file, Job const& job) {
    std::optional<std::string> const old = file.IsOrdinary() ? WholeFile(job.path) : std::nullopt;
    // Who may write the file may not always set its time: that is tried first.
    std::optional<Looks> const looks = job.content.Look();
    bool const hasTime = !looks || file.SetTime(looks->written);
    if (!hasTime || !file.LockOut(job.Attempts()) || !file.Reserve(job.content.Size())) {
        return InPlace::unchanged;
    }
    if (Fill(file, job.content) && file.Cut() && file.Flush()) {
        return InPlace::done;
    }
    bool const restored =
        old && file.ToBeginning() && file.Write(*old) && file.Cut() && file.Flush();
    return restored ? InPlace::unchanged : InPlace::damaged;
}

InPlace WriteInPlace(Job const& job, bool exists) {
    OutFile file = Open(job, OPEN_ALWAYS, shareOneWriter);
    if (!file.IsOpen()) {
        return InPlace::cannotOpen;
    }
    InPlace result = Overwrite(file, job);
    bool const closed = file.Close();
    std::optional<Looks> const looks = job.content.Look();
    bool const whole = closed && (!looks || SetAttributes(job.path, looks->attributes));
    if (result == InPlace::done && !whole) {
        result = InPlace::damaged;
    }
    if (result != InPlace::done && !exists) {
        DeleteFileA(job.path); // this call made it
    }
    return result;
}

Rewritten ResultOf(InPlace written) {
    return written == InPlace::done         ? Rewritten::done
           : written == InPlace::cannotOpen ? Rewritten::cannotOpen
                                            : Rewritten::failed;
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

enum class Placed { done, no, vanished }; // vanished: another program has deleted the new file

// A new file beside another, deleted with its scope unless it was kept or has become the other.
class Beside {
  public:
    Beside(Job const& job, Target const& target, char const* rightsFrom)
        : m_job(job), m_target(target) {
        Make(rightsFrom != nullptr);
        // Before the content: nobody may read it who may not read the target.
        m_rights = m_made && (rightsFrom == nullptr || CarryOverRights(rightsFrom, m_path.c_str()));
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

    // Gives the file the attributes that it is to have, and the name that other programs know.
    bool Prepare() {
        DWORD const attributes = Attributes();
        if (!m_rights || attributes == INVALID_FILE_ATTRIBUTES ||
            !SetAttributes(m_path.c_str(), attributes)) {
            return false;
        }
        bool const named = m_job.knownName == nullptr || Become(m_job.knownName, true);
        m_path = named && m_job.knownName != nullptr ? m_job.knownName : m_path;
        return named;
    }
    Placed TakePlace() {
        // A name that did not exist is not replaced: it may be a link into nowhere.
        m_kept = Become(m_target.path.c_str(), m_target.exists);
        if (m_kept) {
            return Placed::done;
        }
        bool const vanished = MeansMissing(GetLastError()) && !FileExists(m_path.c_str());
        // Under the name that others know, it was whole when they took it.
        return !vanished                    ? Placed::no
               : m_job.knownName != nullptr ? Placed::done
                                            : Placed::vanished;
    }
    void Keep() { m_kept = true; }

  private:
    void Make(bool isPrivate) {
        constexpr int attempts = 100; // names that processes of the same number left
        constexpr DWORD nobodyElse = 0;
        SweepBeside(m_target.path);
        for (int i = 0; i < attempts && !m_made && (i == 0 || FileWasThere()); ++i) {
            m_path = TemporaryBeside(m_target.path);
            m_file = OutFile(m_path.c_str(), CREATE_NEW, isPrivate ? nobodyElse : shareAll);
            m_made = m_file.IsOpen();
        }
        m_diskFull = !m_made && GetLastError() == ERROR_DISK_FULL;
    }
    // A scanner or another reader often lets go of the file at once.
    bool Become(char const* path, bool replaces) {
        auto const move = [&] {
            return MoveFileExA(m_path.c_str(), path,
                               MOVEFILE_WRITE_THROUGH |
                                   (replaces ? MOVEFILE_REPLACE_EXISTING : 0U)) != FALSE;
        };
        auto const isHeld = [](DWORD error) {
            return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        };
        return InTurn(m_job.Attempts(), move, isHeld);
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
        return ResultOf(WriteInPlace(job, target.exists));
    }
    Beside beside(job, target, target.exists ? target.path.c_str() : nullptr);
    if (!beside.Made()) {
        bool const inPlace = job.knownName == nullptr && !beside.DiskFull();
        return inPlace ? ResultOf(WriteInPlace(job, target.exists)) : Rewritten::failed;
    }
    if (!beside.Fill()) {
        return Rewritten::failed;
    }
    bool const ready = beside.Prepare();
    if (!ready && job.knownName != nullptr) {
        return Rewritten::failed;
    }
    Placed const placed = ready ? beside.TakePlace() : Placed::no;
    if (placed == Placed::done) {
        return Rewritten::done;
    }
    bool const madeByAnother = !target.exists && Look(job).exists;
    if (madeByAnother || placed == Placed::vanished) {
        return Rewrite({job.path, job.content, nullptr, job.existing, job.waiting});
    }
    InPlace const inPlace = WriteInPlace(job, target.exists);
    if (inPlace == InPlace::damaged) {
        beside.Keep(); // the only whole content
    }
    return ResultOf(inPlace);
}

} // namespace

Rewritten RewriteFile(char const* path, std::string_view text) {
    return RewriteFile(path, text, nullptr);
}

Rewritten RewriteFile(char const* path, std::string_view text, char const* knownName) {
    TextContent content(text);
    return RewriteFile(path, content, Existing::replaced, Waiting::inTurn, knownName);
}

Rewritten RewriteFile(char const* path, Content& content, Existing existing, Waiting waiting,
                      char const* knownName) {
    return Rewrite({path, content, knownName, existing, waiting});
}

bool ReplaceName(char const* path, Content& content, char const* rightsFrom) {
    Job const job = {path, content, nullptr, Existing::replaced, Waiting::inTurn};
    Target const target = {.opens = true, .exists = true, .replaceable = true, .path = path};
    Beside beside(job, target, rightsFrom);
    return beside.Made() && beside.Fill() && beside.Prepare() && beside.TakePlace() == Placed::done;
}

bool OpensForWriting(char const* path) {
    return OutFile(path, OPEN_EXISTING).IsOpen();
}

} // namespace kvarn
