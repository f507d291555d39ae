// INI files by the Windows calls, for hosts that are not Windows.
//
// A file that begins with the mark of UTF-16, lower byte first, is read as that and stays so:
// letters outside code page 1252 are read as question marks, and kept on writing. A file with the
// mark of the other byte order, or with half a character at its end, is never written.
#pragma once

#include "../../compat/win32/types.h"

// A bare file name lies in C:\Windows. The value comes without the blanks around it and without one
// pair of quotes; of several the first; section and key are compared without regard to case. Cut
// to size - 1 characters; returns the length.
DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR standard, LPSTR buffer,
                               DWORD size, LPCSTR path);

// Writes a key, or removes it when the value is null, or removes the whole section when the key is
// null: TRUE also where nothing is to be removed. Comments, order and everything else stay as
// they are; the file is replaced in one step.
BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR path);
