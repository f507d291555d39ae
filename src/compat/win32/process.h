// The process's command line and environment by the Windows calls, for hosts that are not Windows.
#pragma once

#include <string>

#include "types.h"

namespace kvarn {

// The process's own command line. GetCommandLineA returns a copy, which programs may change.
std::string ProcessCommandLine();

} // namespace kvarn

// The program's full path with backslashes, in quotes if it holds blanks, and the arguments. The
// text belongs to the process and may be changed in place.
LPSTR GetCommandLineA();
// The variable's length, or, when that does not fit, the size that it needs (with the zero). 0 when
// the variable is missing.
DWORD GetEnvironmentVariableA(LPCSTR name, LPSTR buffer, DWORD size);
DWORD GetCurrentProcessId();

constexpr DWORD SYNCHRONIZE = 0x00100000;
constexpr DWORD INFINITE = 0xFFFFFFFF;
constexpr DWORD WAIT_TIMEOUT = 258;
// A handle to wait with; null with ERROR_INVALID_PARAMETER when there is no such process.
HANDLE OpenProcess(DWORD access, BOOL inherit, DWORD process);
// Waits until a process ends. Returns 0, or WAIT_TIMEOUT when it has not ended in that time.
DWORD WaitForSingleObject(HANDLE process, DWORD milliseconds);
void Sleep(DWORD milliseconds);
