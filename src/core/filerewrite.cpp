#include "filerewrite.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "../compat/host.h"
#include "format.h"

namespace kvarn {
namespace {

// Nobody is kept out: another program that rewrites the file replaces it in one step as well.
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// A file open for writing, closed with its scope.
class OutFile {
  public:
    OutFile(char const* path, DWORD disposition)
        : m_file(CreateFileA(path, GENERIC_WRITE, shareAll, nullptr, disposition,
                             FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~OutFile() { Close(); }
    OutFile(OutFile const&) = delete;
    OutFile& operator=(OutFile const&) = delete;

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    bool IsOrdinary() const { return GetFileType(m_file) == FILE_TYPE_DISK; }

    // The path without links; empty when the system does not tell it.
    std::string RealPath() const {
        std::string path(MAX_PATH, '\0');
        constexpr DWORD usualForm = 0;
        auto length = Length(path, usualForm);
        if (length >= path.size()) {
            path.resize(length + 1);
            length = Length(path, usualForm);
        }
        path.resize(length < path.size() ? length : 0);
        return path;
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
    // The file ends where writing has come to, and all of it is on the disk.
    bool Finish() {
        bool const ended =
            !IsOrdinary() || (SetEndOfFile(m_file) != FALSE && FlushFileBuffers(m_file) != FALSE);
        return Close() && ended;
    }

  private:
    DWORD Length(std::string& path, DWORD form) const {
        return GetFinalPathNameByHandleA(m_file, path.data(), static_cast<DWORD>(path.size()),
                                         form);
    }
    bool Close() {
        HANDLE const file = std::exchange(m_file, INVALID_HANDLE_VALUE);
        return file == INVALID_HANDLE_VALUE || CloseHandle(file) != FALSE;
    }

    HANDLE m_file;
};

Rewritten WriteInPlace(char const* path, std::string_view content) {
    OutFile file(path, OPEN_ALWAYS);
    if (!file.IsOpen()) {
        return Rewritten::cannotOpen;
    }
    return file.Write(content) && file.Finish() ? Rewritten::done : Rewritten::failed;
}

// Gives a file the attributes, the owner and the access rights of another; false where the system
// does not let us.
bool CarryOver(char const* from, char const* to) {
    constexpr SECURITY_INFORMATION carried =
        OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
    DWORD size = 0;
    GetFileSecurityA(from, carried, nullptr, 0, &size);
    std::vector<std::byte> rights(size);
    return GetFileSecurityA(from, carried, rights.data(), size, &size) != FALSE &&
           SetFileSecurityA(to, carried, rights.data()) != FALSE &&
           SetFileAttributesA(to, GetFileAttributesA(from)) != FALSE;
}

// A new file beside another, deleted with its scope unless it was kept or has become the other.
class Beside {
  public:
    explicit Beside(std::string const& path) {
        constexpr int attempts = 100; // names left behind by programs that were killed
        for (int i = 0; i < attempts && !m_made; ++i) {
            static int serial = 0;
            m_path = Format("%s.%d-%d.tmp", path, static_cast<std::int32_t>(GetCurrentProcessId()),
                            ++serial);
            OutFile const file(m_path.c_str(), CREATE_NEW);
            m_made = file.IsOpen();
            if (!m_made && GetLastError() != ERROR_FILE_EXISTS &&
                GetLastError() != ERROR_ALREADY_EXISTS) {
                break;
            }
        }
    }
    ~Beside() {
        if (m_made && !m_kept) {
            DeleteFileA(m_path.c_str());
        }
    }
    Beside(Beside const&) = delete;
    Beside& operator=(Beside const&) = delete;

    bool Made() const { return m_made; }
    bool Fill(std::string_view content) const {
        return WriteInPlace(m_path.c_str(), content) == Rewritten::done;
    }
    bool Replace(std::string const& target, bool exists) {
        // A scanner or another reader often lets go of the file at once.
        constexpr int attempts = 3;
        constexpr DWORD pause = 20; // milliseconds
        for (int i = 0; i < attempts && !m_kept; ++i) {
            if (i > 0) {
                Sleep(pause);
            }
            m_kept = TakePlace(target, exists);
        }
        return m_kept;
    }
    void Keep() { m_kept = true; }

  private:
    bool TakePlace(std::string const& target, bool exists) const {
        return (!exists || CarryOver(target.c_str(), m_path.c_str())) &&
               MoveFileExA(m_path.c_str(), target.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
    }

    std::string m_path;
    bool m_made = false;
    bool m_kept = false;
};

// What a path stands for when it is about to be written.
struct Target {
    bool opens = false; // for writing, or it does not exist
    bool exists = false;
    bool replaceable = true; // an ordinary file whose place is known, or none yet
    std::string path;        // without links
};

Target Look(char const* path) {
    OutFile const file(path, OPEN_EXISTING);
    if (!file.IsOpen()) {
        return {.opens = GetLastError() == ERROR_FILE_NOT_FOUND, .path = path};
    }
    std::string real = file.IsOrdinary() ? file.RealPath() : std::string();
    bool const known = !real.empty();
    return {.opens = true, .exists = true, .replaceable = known, .path = known ? real : path};
}

Target Find(char const* path) {
    // A file that another program replaces while it is looked at has no place for that moment.
    constexpr int attempts = 10;
    Target target;
    for (int i = 0; i < attempts; ++i) {
        target = Look(path);
        if (!target.opens || target.replaceable) {
            break;
        }
    }
    return target;
}

} // namespace

Rewritten RewriteFile(char const* path, std::string_view content) {
    Target const target = Find(path);
    if (!target.opens) {
        return Rewritten::cannotOpen;
    }
    if (!target.replaceable) {
        return WriteInPlace(path, content);
    }
    Beside beside(target.path);
    if (!beside.Made()) {
        // On a full disk the old content is worth more than half of the new.
        return GetLastError() == ERROR_DISK_FULL ? Rewritten::failed : WriteInPlace(path, content);
    }
    if (!beside.Fill(content)) {
        return Rewritten::failed;
    }
    if (beside.Replace(target.path, target.exists)) {
        return Rewritten::done;
    }
    Rewritten const inPlace = WriteInPlace(target.path.c_str(), content);
    if (inPlace != Rewritten::done) {
        beside.Keep(); // the only whole copy of the new content
    }
    return inPlace;
}

bool OpensForWriting(char const* path) {
    return OutFile(path, OPEN_EXISTING).IsOpen();
}

} // namespace kvarn
