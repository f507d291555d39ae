// The basic Windows types, for hosts that are not Windows.
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
