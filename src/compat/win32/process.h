// The process's command line and environment by the Windows calls, for hosts that are not Windows.
#pragma once

#include <string>

#include "types.h"

namespace kvarn {

// The text that GetCommandLineA begins with: what programs do to that one does not change it.
std::string ProcessCommandLine();

} // namespace kvarn

// The program's full path with backslashes, quoted where it holds blanks, and the arguments. The
// text belongs to the process and may be changed in place.
LPSTR GetCommandLineA();
// The variable's length, or the room that it needs (with the zero) when that is more than size; 0
// when there is none.
DWORD GetEnvironmentVariableA(LPCSTR name, LPSTR buffer, DWORD size);
DWORD GetCurrentProcessId();
void Sleep(DWORD milliseconds);
