#include "files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foldernames.h"
#include "hostfile.h"
#include "paths.h"

using kvarn::Descriptor;
using kvarn::FileStatus;
using kvarn::ToHandle;
using kvarn::WindowsError;

namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

// The result of a Windows call from that of a host call that fails with -1.
BOOL Done(long hostResult) {
    if (hostResult >= 0) {
        return TRUE;
    }
    lastError = WindowsError(errno);
    return FALSE;
}

// Makes a host call on the path that is found without regard to case; -1 where it cannot be looked
// for.
template <class Call>
int OnFoundPath(LPCSTR path, Call call, kvarn::Purpose purpose = kvarn::Purpose::use) {
    std::optional<std::string> const found = kvarn::FindHostPath(path, purpose);
    return found ? call(found->c_str()) : -1;
}

// Makes a host call on the path as it is spelt. When that does not exist, which is rare, makes it
// on the path that is found without regard to case.
template <class Call> int OnPath(LPCSTR path, Call call) {
    if (*path == '\0') {
        errno = ENOTDIR; // "path not found", as Windows answers
        return -1;
    }
    std::string const spelt = kvarn::SpeltHostPath(path);
    int const result = call(spelt.c_str());
    if (result >= 0 || errno != ENOENT) {
        return result;
    }
    std::optional<std::string> const found = kvarn::FindUnspelt(path, spelt);
    if (!found || *found == spelt) {
        errno = found ? ENOENT : errno;
        return -1;
    }
    return call(found->c_str());
}

int OpenFlags(DWORD access) {
    // Otherwise a pipe without a reader waits for one. Not O_TRUNC: the lock of another writer is
    // tried first.
    int const flags = O_CLOEXEC | O_NONBLOCK;
    return flags | ((access & GENERIC_WRITE) == 0  ? O_RDONLY
                    : (access & GENERIC_READ) == 0 ? O_WRONLY
                                                   : O_RDWR);
}

// A file that is opened, and what to undo when it turns out that it cannot be used.
struct Opened {
    std::string made; // by this call; empty when it was there
    int descriptor = -1;

    int Open(char const* path, int flags, DWORD disposition, mode_t mode) {
        if (disposition != CREATE_NEW) {
            descriptor = open(path, flags);
        }
        bool const missing = disposition == CREATE_NEW || (descriptor < 0 && errno == ENOENT);
        bool const makes = disposition != OPEN_EXISTING && disposition != TRUNCATE_EXISTING;
        if (descriptor < 0 && missing && makes) {
            descriptor = open(path, flags | O_CREAT | O_EXCL, mode);
            made = descriptor >= 0 ? path : "";
        }
        if (descriptor < 0 && errno == EEXIST && disposition != CREATE_NEW) {
            descriptor = open(path, flags | O_CREAT, mode); // a link into nowhere
        }
        return descriptor;
    }
    HANDLE Refuse(DWORD error) {
        close(descriptor);
        if (!made.empty()) {
            unlink(made.c_str());
        }
        SetLastError(error);
        return INVALID_HANDLE_VALUE;
    }
};

// A renamed file has its new name for sure once its folder is on the disk (fsync in the Linux
// manual pages).
void FlushFolderOf(std::string const& hostPath) {
    std::size_t const slash = hostPath.rfind('/');
    std::string const folder = slash == std::string::npos ? "." : hostPath.substr(0, slash + 1);
    int const descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        fsync(descriptor); // not every file system does; the rename is done in any case
        close(descriptor);
    }
}

// Locks of this kind belong to the open file, as on Windows, and are others than those of the share
// modes. errno is EAGAIN when another program holds one.
bool SetLock(HANDLE file, short kind) {
    struct flock lock {};
    lock.l_type = kind;
    lock.l_whence = SEEK_SET;
    return fcntl(Descriptor(file), F_OFD_SETLK, &lock) == 0;
}

int Rename(char const* from, char const* to, bool replaces) {
    if (replaces) {
        return std::rename(from, to);
    }
    int const result = renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
    if (result == 0 || errno != EINVAL) {
        return result;
    }
    // A file system that cannot tell: the old name goes when the new one is made.
    return link(from, to) == 0 ? unlink(from) : -1;
}

} // namespace

// The library asks for these alone.
DWORD kvarn::WindowsError(int error) {
    switch (error) {
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
        return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ETXTBSY:
        return ERROR_ACCESS_DENIED;
    case EEXIST:
        return ERROR_ALREADY_EXISTS;
    case EBADF:
        return ERROR_INVALID_HANDLE;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ERROR_DISK_FULL;
    case ENAMETOOLONG:
        return ERROR_INVALID_NAME;
    default:
        return ERROR_GEN_FAILURE;
    }
}

bool kvarn::FileStatus(LPCSTR path, struct stat& status) {
    return Done(OnPath(path, [&](char const* host) { return stat(host, &status); })) != FALSE;
}

bool kvarn::FileStatus(HANDLE file, struct stat& status) {
    return Done(fstat(Descriptor(file), &status)) != FALSE;
}

DWORD kvarn::Attributes(struct stat const& status) {
    DWORD const kind = S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0;
    DWORD const access = (status.st_mode & S_IWUSR) == 0 ? FILE_ATTRIBUTE_READONLY : 0;
    return (kind | access) != 0 ? kind | access : FILE_ATTRIBUTE_NORMAL;
}

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD error) {
    lastError = error;
}

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES*, DWORD disposition,
                   DWORD, HANDLE) {
    constexpr mode_t ownersAlone = 0600;
    mode_t const mode = share == 0 ? ownersAlone : 0666;
    Opened opened;
    auto const openIt = [&](char const* hostPath) {
        return opened.Open(hostPath, OpenFlags(access), disposition, mode);
    };
    // A file whose name differs in case alone is opened, and no second one is made. CREATE_NEW does
    // not look for it: its unique names need no listing of the folder.
    bool const finds = disposition == OPEN_ALWAYS || disposition == CREATE_ALWAYS;
    if (!Done(finds && *path != '\0' ? OnFoundPath(path, openIt) : OnPath(path, openIt))) {
        return INVALID_HANDLE_VALUE;
    }
    int const descriptor = opened.descriptor;
    struct stat status {};
    if (fstat(descriptor, &status) != 0) {
        return opened.Refuse(WindowsError(errno));
    }
    if (S_ISDIR(status.st_mode) || S_ISFIFO(status.st_mode)) {
        return opened.Refuse(ERROR_ACCESS_DENIED);
    }
    // A writer that does not share takes the lock alone; writers that share take it together.
    bool const writes = (access & GENERIC_WRITE) != 0;
    int const lock = (share & FILE_SHARE_WRITE) == 0 ? LOCK_EX : LOCK_SH;
    if (writes && flock(descriptor, lock | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        return opened.Refuse(ERROR_SHARING_VIOLATION);
    }
    bool const empties = disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING;
    if (empties && S_ISREG(status.st_mode) && ftruncate(descriptor, 0) != 0) {
        return opened.Refuse(WindowsError(errno));
    }
    return ToHandle(descriptor, S_ISREG(status.st_mode));
}

BOOL ReadFile(HANDLE file, void* buffer, DWORD size, DWORD* count, OVERLAPPED*) {
    *count = 0;
    if (!SetLock(file, F_RDLCK) && errno == EAGAIN) {
        lastError = ERROR_LOCK_VIOLATION;
        return FALSE;
    }
    ssize_t result = 0;
    do {
        result = read(Descriptor(file), buffer, size);
    } while (result < 0 && errno == EINTR);
    *count = result > 0 ? static_cast<DWORD>(result) : 0;
    BOOL const done = Done(result);
    SetLock(file, F_UNLCK);
    return done;
}

BOOL WriteFile(HANDLE file, void const* data, DWORD size, DWORD* count, OVERLAPPED*) {
    auto const* const bytes = static_cast<char const*>(data);
    *count = 0;
    while (*count < size) {
        ssize_t const result = write(Descriptor(file), bytes + *count, size - *count);
        if (result < 0 && errno != EINTR) {
            return Done(result);
        }
        *count += result > 0 ? static_cast<DWORD>(result) : 0;
    }
    return TRUE;
}

BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size) {
    struct stat status {};
    BOOL const told = Done(fstat(Descriptor(file), &status));
    size->QuadPart = status.st_size;
    return told;
}

BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER*, DWORD from) {
    return Done(lseek(Descriptor(file), distance.QuadPart, static_cast<int>(from)));
}

BOOL SetEndOfFile(HANDLE file) {
    off_t const end = lseek(Descriptor(file), 0, SEEK_CUR);
    return Done(end) != FALSE ? Done(ftruncate(Descriptor(file), end)) : FALSE;
}

BOOL SetFileInformationByHandle(HANDLE file, FILE_INFO_BY_HANDLE_CLASS, void* information, DWORD) {
    off_t const size = static_cast<FILE_ALLOCATION_INFO*>(information)->AllocationSize.QuadPart;
    rlimit limit{}; // which reserving does not ask for
    if (getrlimit(RLIMIT_FSIZE, &limit) == 0 && static_cast<rlim_t>(size) > limit.rlim_cur) {
        errno = EFBIG;
        return Done(-1);
    }
    int const result = fallocate(Descriptor(file), FALLOC_FL_KEEP_SIZE, 0, size);
    bool const cannotReserve = result != 0 && errno == EOPNOTSUPP; // some file systems
    return cannotReserve ? TRUE : Done(result);
}

BOOL LockFileEx(HANDLE file, DWORD, DWORD, DWORD, DWORD, OVERLAPPED*) {
    bool const locked = SetLock(file, F_WRLCK);
    lastError = locked || errno != EAGAIN ? ERROR_NOT_SUPPORTED : ERROR_LOCK_VIOLATION;
    return locked ? TRUE : FALSE;
}

BOOL FlushFileBuffers(HANDLE file) {
    return Done(fsync(Descriptor(file)));
}

BOOL CloseHandle(HANDLE file) {
    return Done(close(Descriptor(file)));
}

DWORD GetFileType(HANDLE file) {
    return kvarn::IsOrdinary(file) ? FILE_TYPE_DISK : FILE_TYPE_CHAR;
}

DWORD GetFinalPathNameByHandleA(HANDLE file, LPSTR path, DWORD size, DWORD) {
    std::string const link = "/proc/self/fd/" + std::to_string(Descriptor(file));
    char target[4096];
    ssize_t const length = readlink(link.c_str(), target, sizeof target - 1);
    if (!Done(length)) {
        return 0;
    }
    target[length] = '\0';
    std::string_view const hostPath(target);
    // The link of a deleted file says so after its former name.
    if (hostPath.ends_with(" (deleted)") && access(target, F_OK) != 0) {
        lastError = ERROR_FILE_NOT_FOUND;
        return 0;
    }
    auto const text = kvarn::FromHostPath(hostPath);
    if (!text) {
        lastError = ERROR_INVALID_NAME;
        return 0;
    }
    if (text->size() >= size) {
        return static_cast<DWORD>(text->size()) + 1; // the room it needs
    }
    std::memcpy(path, text->c_str(), text->size() + 1);
    return static_cast<DWORD>(text->size());
}

DWORD GetFileAttributesA(LPCSTR path) {
    struct stat status {};
    return FileStatus(path, status) ? kvarn::Attributes(status) : INVALID_FILE_ATTRIBUTES;
}

BOOL SetFileAttributesA(LPCSTR path, DWORD attributes) {
    constexpr mode_t everybody = S_IWUSR | S_IWGRP | S_IWOTH;
    struct stat status {};
    if (!FileStatus(path, status)) {
        return FALSE;
    }
    mode_t const now = status.st_mode & 07777;
    bool const readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    bool const isReadOnly = (now & S_IWUSR) == 0;
    mode_t const wanted = readOnly ? now & ~everybody : isReadOnly ? now | S_IWUSR : now;
    return wanted == now
               ? TRUE
               : Done(OnPath(path, [wanted](char const* file) { return chmod(file, wanted); }));
}

BOOL CreateDirectoryA(LPCSTR path, SECURITY_ATTRIBUTES*) {
    auto const make = [](char const* folder) {
        int const made = mkdir(folder, 0777);
        if (made == 0) {
            kvarn::FolderMade(folder);
        }
        return made;
    };
    return Done(OnFoundPath(path, make, kvarn::Purpose::makeFolder));
}

BOOL DeleteFileA(LPCSTR path) {
    return Done(OnPath(path, unlink));
}

BOOL MoveFileExA(LPCSTR from, LPCSTR to, DWORD flags) {
    std::optional<std::string> const target = kvarn::FindHostPath(to);
    if (!target) {
        return Done(-1);
    }
    bool const replaces = (flags & MOVEFILE_REPLACE_EXISTING) != 0;
    auto const become = [&](char const* source) {
        return Rename(source, target->c_str(), replaces);
    };
    if (!Done(OnPath(from, become))) {
        return FALSE;
    }
    FlushFolderOf(*target);
    return TRUE;
}

namespace {

struct Security {
    uid_t owner;
    gid_t group;
    mode_t mode;
};

} // namespace

BOOL GetFileSecurityA(LPCSTR path, SECURITY_INFORMATION, PSECURITY_DESCRIPTOR block, DWORD size,
                      DWORD* needed) {
    struct stat status {};
    *needed = sizeof(Security);
    if (size < sizeof(Security)) {
        lastError = ERROR_INSUFFICIENT_BUFFER;
        return FALSE;
    }
    if (!FileStatus(path, status)) {
        return FALSE;
    }
    Security const security = {status.st_uid, status.st_gid, status.st_mode & 07777};
    std::memcpy(block, &security, sizeof security);
    return TRUE;
}

BOOL SetFileSecurityA(LPCSTR path, SECURITY_INFORMATION which, PSECURITY_DESCRIPTOR block) {
    constexpr auto asItIs = static_cast<uid_t>(-1);
    Security wanted{};
    std::memcpy(&wanted, block, sizeof wanted);
    struct stat now {};
    if (!FileStatus(path, now)) {
        return FALSE;
    }
    auto const change = [&](char const* file) {
        uid_t const owner = (which & OWNER_SECURITY_INFORMATION) != 0 ? wanted.owner : now.st_uid;
        gid_t const group = (which & GROUP_SECURITY_INFORMATION) != 0 ? wanted.group : now.st_gid;
        if ((owner != now.st_uid || group != now.st_gid) &&
            chown(file, owner != now.st_uid ? owner : asItIs,
                  group != now.st_gid ? group : asItIs) != 0) {
            return -1;
        }
        bool const mode =
            (which & DACL_SECURITY_INFORMATION) != 0 && wanted.mode != (now.st_mode & 07777);
        return mode ? chmod(file, wanted.mode) : 0;
    };
    return Done(OnPath(path, change));
}
