#include "filerewrite.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "host.h"

namespace kvarn {
namespace {

// Nobody is kept out: another program that rewrites the file replaces it in one step as well.
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// One writer at a time, where a file is changed in place.
constexpr DWORD shareOneWriter = FILE_SHARE_READ | FILE_SHARE_DELETE;

constexpr DWORD pause = 20;        // milliseconds between attempts
constexpr int attemptsInTurn = 25; // half a second

// A file open for writing, closed with its scope.
class OutFile {
  public:
    OutFile() = default;
    OutFile(char const* path, DWORD disposition, DWORD share = shareAll)
        : m_file(CreateFileA(path, GENERIC_WRITE, share, nullptr, disposition,
                             FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    OutFile(OutFile&& other) noexcept : m_file(std::exchange(other.m_file, INVALID_HANDLE_VALUE)) {}
    OutFile& operator=(OutFile&& other) noexcept {
        std::swap(m_file, other.m_file);
        return *this;
    }
    ~OutFile() { Close(); }

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    bool IsOrdinary() const { return GetFileType(m_file) == FILE_TYPE_DISK; }

    // The path without links; empty when the system does not tell it.
    std::string RealPath() const {
        constexpr DWORD usualForm = 0;
        std::string path(MAX_PATH, '\0');
        auto const length = [&] {
            return GetFinalPathNameByHandleA(m_file, path.data(), static_cast<DWORD>(path.size()),
                                             usualForm);
        };
        DWORD size = length();
        if (size >= path.size()) {
            path.resize(std::size_t{size} + 1);
            size = length();
        }
        path.resize(size < path.size() ? size : 0);
        return path;
    }

    // Makes room for a content of that size, so that a full disk is met before anything is
    // overwritten.
    bool Reserve(std::size_t size) {
        LARGE_INTEGER before{};
        if (!IsOrdinary() || GetFileSizeEx(m_file, &before) == FALSE ||
            static_cast<std::uint64_t>(before.QuadPart) >= size) {
            return true;
        }
        bool const reserved = EndAt(static_cast<std::int64_t>(size));
        if (!reserved) {
            EndAt(before.QuadPart);
        }
        return MoveTo(0) && reserved;
    }
    bool Write(std::string_view content) {
        while (!content.empty()) {
            constexpr std::size_t most = 1U << 30U;
            std::string_view const part = content.substr(0, most);
            DWORD written = 0;
            if (WriteFile(m_file, part.data(), static_cast<DWORD>(part.size()), &written,
                          nullptr) == FALSE ||
                written != part.size()) {
                return false;
            }
            content.remove_prefix(part.size());
        }
        return true;
    }
    // The file ends where writing has come to.
    bool Cut() { return !IsOrdinary() || SetEndOfFile(m_file) != FALSE; }
    // All of it is on the disk.
    bool Finish(bool ordinary = true) {
        bool const flushed = !ordinary || FlushFileBuffers(m_file) != FALSE;
        return Close() && flushed;
    }

  private:
    bool MoveTo(std::int64_t position) {
        LARGE_INTEGER distance{};
        distance.QuadPart = position;
        return SetFilePointerEx(m_file, distance, nullptr, FILE_BEGIN) != FALSE;
    }
    bool EndAt(std::int64_t size) { return MoveTo(size) && SetEndOfFile(m_file) != FALSE; }
    bool Close() {
        HANDLE const file = std::exchange(m_file, INVALID_HANDLE_VALUE);
        return file == INVALID_HANDLE_VALUE || CloseHandle(file) != FALSE;
    }

    HANDLE m_file = INVALID_HANDLE_VALUE;
};

// Waits a while for another program that is writing the file in place.
OutFile OpenInTurn(char const* path, DWORD disposition, DWORD share) {
    OutFile file(path, disposition, share);
    for (int i = 1;
         i < attemptsInTurn && !file.IsOpen() && GetLastError() == ERROR_SHARING_VIOLATION; ++i) {
        Sleep(pause);
        file = OutFile(path, disposition, share);
    }
    return file;
}

Rewritten WriteInPlace(char const* path, std::string_view content) {
    OutFile file = OpenInTurn(path, OPEN_ALWAYS, shareOneWriter);
    if (!file.IsOpen()) {
        return Rewritten::cannotOpen;
    }
    bool const ordinary = file.IsOrdinary();
    bool const written =
        file.Reserve(content.size()) && file.Write(content) && file.Cut() && file.Finish(ordinary);
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

// Plain attributes, hidden for one. A new file has none of them.
bool CarryOverAttributes(char const* from, char const* to) {
    constexpr DWORD everyday = FILE_ATTRIBUTE_NORMAL | FILE_ATTRIBUTE_ARCHIVE;
    DWORD const attributes = GetFileAttributesA(from);
    return attributes != INVALID_FILE_ATTRIBUTES &&
           ((attributes & ~everyday) == 0 || SetFileAttributesA(to, attributes) != FALSE);
}

// What a path stands for when it is about to be written.
struct Target {
    bool opens = false; // for writing, or it does not exist
    bool exists = false;
    bool replaceable = false; // an ordinary file whose place is known, or none yet
    bool gone = false;        // another program replaced it while it was looked at
    std::string path;         // without links
};

Target Look(char const* path) {
    OutFile const file = OpenInTurn(path, OPEN_EXISTING, shareAll);
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

Target Find(char const* path) {
    constexpr int attempts = 10;
    Target target = Look(path);
    for (int i = 1; i < attempts && target.gone; ++i) {
        target = Look(path);
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
    // With a name of its own.
    explicit Beside(Target const& target) : m_target(target) {
        constexpr int attempts = 100; // names left behind by programs that were killed
        static std::atomic<int> serial = 0;
        for (int i = 0; i < attempts && !m_made && (i == 0 || FileWasThere()); ++i) {
            Make(target.path + "." + std::to_string(GetCurrentProcessId()) + "-" +
                 std::to_string(++serial) + ".tmp");
        }
        TakeOverRights();
    }
    // With a name that others know.
    Beside(Target const& target, char const* path) : m_target(target) {
        Make(path);
        for (int i = 1; i < attemptsInTurn && !m_made && FileWasThere(); ++i) {
            Sleep(pause);
            Make(path);
        }
        if (!m_made && FileWasThere() && DeleteFileA(path) != FALSE) {
            Make(path);
        }
        TakeOverRights();
    }
    ~Beside() {
        m_file = OutFile();
        if (m_made && !m_kept) {
            DeleteFileA(m_path.c_str());
        }
    }
    Beside(Beside const&) = delete;
    Beside& operator=(Beside const&) = delete;

    bool Made() const { return m_made; }
    bool DiskFull() const { return m_diskFull; }
    bool Fill(std::string_view content) { return m_file.Write(content) && m_file.Finish(); }

    bool TakePlace() {
        // A scanner or another reader often lets go of the file at once.
        constexpr int attempts = 3;
        bool const ready = m_rights && (!m_target.exists ||
                                        CarryOverAttributes(m_target.path.c_str(), m_path.c_str()));
        for (int i = 0; i < attempts && ready && !m_kept; ++i) {
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
    // Before there is anything in it to be read.
    void TakeOverRights() {
        m_rights =
            m_made && (!m_target.exists || CarryOverRights(m_target.path.c_str(), m_path.c_str()));
    }

    Target const& m_target;
    std::string m_path;
    OutFile m_file;
    bool m_made = false;
    bool m_rights = false;
    bool m_diskFull = false;
    bool m_kept = false;
};

Rewritten Rewrite(char const* path, std::string_view content, char const* besidePath) {
    Target const target = Find(path);
    if (!target.opens) {
        return Rewritten::cannotOpen;
    }
    if (!target.replaceable) {
        return WriteInPlace(path, content);
    }
    Beside beside = besidePath != nullptr ? Beside(target, besidePath) : Beside(target);
    if (!beside.Made()) {
        bool const inPlace = besidePath == nullptr && !beside.DiskFull();
        return inPlace ? WriteInPlace(path, content) : Rewritten::failed;
    }
    if (!beside.Fill(content)) {
        return Rewritten::failed;
    }
    if (beside.TakePlace()) {
        return Rewritten::done;
    }
    if (!target.exists && Look(path).exists) {
        return RewriteFile(path, content); // another program has made it in the meantime
    }
    Rewritten const inPlace = WriteInPlace(path, content);
    if (inPlace == Rewritten::failed) {
        beside.Keep(); // the only whole copy of the new content
    }
    return inPlace;
}

} // namespace

Rewritten RewriteFile(char const* path, std::string_view content) {
    return Rewrite(path, content, nullptr);
}

Rewritten RewriteFile(char const* path, std::string_view content, char const* besidePath) {
    return Rewrite(path, content, besidePath);
}

bool OpensForWriting(char const* path) {
    return OutFile(path, OPEN_EXISTING).IsOpen();
}

} // namespace kvarn
