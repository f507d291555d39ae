// INI files by the Windows calls, for hosts that are not Windows.
#pragma once

#include "types.h"

// A bare file name lies in C:\Windows. The value comes without the blanks around it and without one
// pair of quotes; of several the first; section and key are compared without regard to case. Cut
// to size - 1 characters; returns the length.
DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR standard, LPSTR buffer,
                               DWORD size, LPCSTR path);

// Writes a key, or removes it when the value is null. Comments, order and everything else stay as
// they are; the file is replaced in one step.
BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR path);
