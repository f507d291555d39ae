// INI files by the Windows calls, for hosts that are not Windows.
//
// A file that begins with the mark of UTF-16, lower byte first, is read and written as UTF-16.
// Letters outside code page 1252 are read as question marks and stay in the file. A file with the
// mark of the other byte order, or with half a character at its end, is never written.
#pragma once

#include "../../compat/win32/types.h"

// Reads the first value of the key, without the blanks around it and without one pair of quotes. A
// bare file name lies in C:\Windows. The case of section and key does not count. The value is cut
// to size - 1 characters. Returns its length.
DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR standard, LPSTR buffer,
                               DWORD size, LPCSTR path);

// Writes a key; removes it when the value is null, or the whole section when the key is null. TRUE
// also when there is nothing to remove. Comments, order and everything else stay as they are. The
// file is replaced in one step.
BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR path);
