// Files and folders by the Windows calls that the library uses, for hosts that are not Windows.
// Behaviour is what Windows documents, for the arguments that are really used; paths are code
// page 1252 with backslashes (see paths.h).
#pragma once

#include "types.h"

inline HANDLE const INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(std::intptr_t{-1});
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

constexpr DWORD DELETE = 0x00010000;
constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD FILE_SHARE_WRITE = 2;
constexpr DWORD FILE_SHARE_DELETE = 4;
constexpr DWORD CREATE_NEW = 1;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD OPEN_ALWAYS = 4;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD FILE_TYPE_UNKNOWN = 0;
constexpr DWORD FILE_TYPE_DISK = 1;
constexpr DWORD FILE_TYPE_CHAR = 2;
constexpr DWORD MOVEFILE_REPLACE_EXISTING = 1;
constexpr DWORD MOVEFILE_WRITE_THROUGH = 8;

struct OVERLAPPED;
struct SECURITY_ATTRIBUTES;

// Share modes have no counterpart and are not enforced. A folder cannot be opened.
HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                   DWORD disposition, DWORD attributes, HANDLE templateFile);
BOOL ReadFile(HANDLE file, void* buffer, DWORD size, DWORD* read, OVERLAPPED* overlapped);
BOOL WriteFile(HANDLE file, void const* data, DWORD size, DWORD* written, OVERLAPPED* overlapped);
BOOL SetEndOfFile(HANDLE file);
BOOL FlushFileBuffers(HANDLE file);
BOOL CloseHandle(HANDLE file);
DWORD GetFileType(HANDLE file);
DWORD GetFinalPathNameByHandleA(HANDLE file, LPSTR path, DWORD size, DWORD flags);

DWORD GetFileAttributesA(LPCSTR path);
// The mode is carried over by ReplaceFileA; other attributes have no counterpart.
BOOL SetFileAttributesA(LPCSTR path, DWORD attributes);
BOOL CreateDirectoryA(LPCSTR path, SECURITY_ATTRIBUTES* security);
BOOL DeleteFileA(LPCSTR path);
// Both put the new name on disk before they return.
BOOL MoveFileExA(LPCSTR from, LPCSTR to, DWORD flags);
// The replacement takes over mode and owner; where it cannot, nothing is replaced.
BOOL ReplaceFileA(LPCSTR replaced, LPCSTR replacement, LPCSTR backup, DWORD flags, void* exclude,
                  void* reserved);
