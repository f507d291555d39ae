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
void Sleep(DWORD milliseconds);
