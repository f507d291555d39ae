// The user's folders, the command line's arguments and child processes by the Windows calls that
// the library uses, for hosts that are not Windows.
#pragma once

#include "../../compat/win32/files.h"
#include "../../compat/win32/process.h"

using LPWSTR = wchar_t*;
using LPCWSTR = wchar_t const*;
using HRESULT = std::int32_t;

constexpr int CSIDL_APPDATA = 0x001A;
constexpr int CSIDL_FLAG_CREATE = 0x8000;

// Copies the path of the user's configuration folder, for CSIDL_APPDATA, into a buffer of MAX_PATH
// bytes. Returns 0, or -1 when the path does not fit or the folder cannot be made.
HRESULT SHGetFolderPathA(HWND owner, int folder, HANDLE token, DWORD flags, LPSTR path);

// Cuts a path after its root: the drive with its backslash, server and share, or a backslash.
// Returns FALSE for a path without a root, and leaves it empty.
BOOL PathStripToRootA(LPSTR path);

LPCWSTR GetCommandLineW();
// Arguments are separated by blanks, and may be quoted. Freed by LocalFree.
LPWSTR* CommandLineToArgvW(LPCWSTR line, int* count);
void* LocalFree(void* memory);

constexpr DWORD CREATE_DEFAULT_ERROR_MODE = 0x04000000;

struct STARTUPINFOA {
    DWORD cb; // the other members have no effect
};
struct PROCESS_INFORMATION {
    HANDLE hProcess;
    HANDLE hThread;
    DWORD dwProcessId;
    DWORD dwThreadId;
};

// Starts a program without arguments, in the environment and folder of this one.
BOOL CreateProcessA(LPCSTR program, LPSTR line, SECURITY_ATTRIBUTES* process,
                    SECURITY_ATTRIBUTES* thread, BOOL inherit, DWORD flags, void* environment,
                    LPCSTR folder, STARTUPINFOA* start, PROCESS_INFORMATION* information);
