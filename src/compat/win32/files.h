// Files and folders by the Windows calls that the library uses, for hosts that are not Windows.
// They behave as Windows documents, for the arguments that are really used. Paths are in code
// page 1252 with backslashes (see paths.h).
#pragma once

#include "types.h"

constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_WRITE_FAULT = 29;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_LOCK_VIOLATION = 33;
constexpr DWORD ERROR_NOT_SUPPORTED = 50;
constexpr DWORD ERROR_FILE_EXISTS = 80;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_INVALID_NAME = 123;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;

// The error of the last Windows call that failed on this thread.
DWORD GetLastError();
void SetLastError(DWORD error);

static HANDLE const INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(std::intptr_t{-1});
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD FILE_SHARE_WRITE = 2;
constexpr DWORD FILE_SHARE_DELETE = 4;
constexpr DWORD CREATE_NEW = 1;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD OPEN_ALWAYS = 4;
constexpr DWORD TRUNCATE_EXISTING = 5;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x20;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD FILE_TYPE_DISK = 1;
constexpr DWORD FILE_TYPE_CHAR = 2;
constexpr DWORD MOVEFILE_REPLACE_EXISTING = 1;
constexpr DWORD MOVEFILE_WRITE_THROUGH = 8;

constexpr DWORD FILE_BEGIN = 0; // SEEK_SET
constexpr DWORD FILE_END = 2;   // SEEK_END

struct LARGE_INTEGER {
    std::int64_t QuadPart;
};
struct OVERLAPPED { // no member is used
    HANDLE hEvent;
};
struct SECURITY_ATTRIBUTES;

// One share mode has an effect: without FILE_SHARE_WRITE a writer keeps out other writers. A file
// that is made with no sharing at all is the owner's alone (mode 0600). Folders and pipes cannot be
// opened.
HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                   DWORD disposition, DWORD attributes, HANDLE templateFile);
BOOL ReadFile(HANDLE file, void* buffer, DWORD size, DWORD* read, OVERLAPPED* overlapped);
BOOL WriteFile(HANDLE file, void const* data, DWORD size, DWORD* written, OVERLAPPED* overlapped);
BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD from);
BOOL SetEndOfFile(HANDLE file);
BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);

enum FILE_INFO_BY_HANDLE_CLASS { FileAllocationInfo };
struct FILE_ALLOCATION_INFO {
    LARGE_INTEGER AllocationSize;
};
// Reserves room on the disk up to a size; the file keeps its own. Done too where the file system
// cannot reserve.
BOOL SetFileInformationByHandle(HANDLE file, FILE_INFO_BY_HANDLE_CLASS which, void* information,
                                DWORD size);

constexpr DWORD LOCKFILE_FAIL_IMMEDIATELY = 1;
constexpr DWORD LOCKFILE_EXCLUSIVE_LOCK = 2;
constexpr DWORD MAXDWORD = 0xFFFFFFFF;
// Keeps others from reading the whole file: their ReadFile fails with ERROR_LOCK_VIOLATION, and so
// does this call while one of them reads. The lock ends with the handle.
BOOL LockFileEx(HANDLE file, DWORD flags, DWORD reserved, DWORD low, DWORD high,
                OVERLAPPED* overlapped);
BOOL FlushFileBuffers(HANDLE file);
BOOL CloseHandle(HANDLE file);
DWORD GetFileType(HANDLE file);
DWORD GetFinalPathNameByHandleA(HANDLE file, LPSTR path, DWORD size, DWORD flags);

DWORD GetFileAttributesA(LPCSTR path);
// Read-only takes the right to write from everybody, its absence gives it to the owner. The other
// attributes have no counterpart.
BOOL SetFileAttributesA(LPCSTR path, DWORD attributes);
BOOL CreateDirectoryA(LPCSTR path, SECURITY_ATTRIBUTES* security);
BOOL DeleteFileA(LPCSTR path);
// The new name is on the disk when the call returns.
BOOL MoveFileExA(LPCSTR from, LPCSTR to, DWORD flags);

using SECURITY_INFORMATION = DWORD;
using PSECURITY_DESCRIPTOR = void*;
constexpr SECURITY_INFORMATION OWNER_SECURITY_INFORMATION = 1;
constexpr SECURITY_INFORMATION GROUP_SECURITY_INFORMATION = 2;
constexpr SECURITY_INFORMATION DACL_SECURITY_INFORMATION = 4;

// A file's owner, group and mode as an opaque block of bytes. Get reads all three, Set sets those
// that are asked for. The mode takes the place of the access list.
BOOL GetFileSecurityA(LPCSTR path, SECURITY_INFORMATION which, PSECURITY_DESCRIPTOR block,
                      DWORD size, DWORD* needed);
BOOL SetFileSecurityA(LPCSTR path, SECURITY_INFORMATION which, PSECURITY_DESCRIPTOR block);
