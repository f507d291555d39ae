// The basic Windows types and the error codes, for hosts that are not Windows.
#pragma once

#include <cstdint>

using BOOL = int;
using UINT = unsigned int;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using HANDLE = void*;
using LPSTR = char*;
using LPCSTR = char const*;

struct HWND__;
using HWND = HWND__*;
struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;

struct FILETIME { // 100 nanoseconds since 1601, UTC
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

// Other headers define these two as macros.
#if !defined(FALSE)
constexpr BOOL FALSE = 0;
#endif
#if !defined(TRUE)
constexpr BOOL TRUE = 1;
#endif
constexpr DWORD MAX_PATH = 260;

constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_FILE_EXISTS = 80;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_INVALID_NAME = 123;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;

// The error of the last Windows call that failed on this thread.
DWORD GetLastError();
void SetLastError(DWORD error);
