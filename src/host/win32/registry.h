// The registry by the Windows calls that the library uses, for hosts that are not Windows. It is
// kept in a text file (see regstore.h): $KVARNPROG_REGISTRY, by default kvarnprog/registry.reg in
// the user's configuration folder. Every call reads the present file, and a change replaces it in
// one step; programs take turns. A file that cannot be read, or that has a line that is not
// understood, is never written.
//
// The store has no access rights and a single view: access masks have no effect.
#pragma once

#include "../../compat/win32/files.h"
#include "registrytypes.h"

// The names of keys have at most 255 characters.
LSTATUS RegOpenKeyExA(HKEY parent, LPCSTR path, DWORD options, REGSAM access, HKEY* key);
LSTATUS RegCreateKeyExA(HKEY parent, LPCSTR path, DWORD reserved, LPSTR keyClass, DWORD options,
                        REGSAM access, SECURITY_ATTRIBUTES const* security, HKEY* key,
                        DWORD* disposition);
LSTATUS RegCloseKey(HKEY key);
LSTATUS RegFlushKey(HKEY key);
// Refuses a key with keys below it.
LSTATUS RegDeleteKeyA(HKEY parent, LPCSTR path);
LSTATUS RegQueryInfoKeyA(HKEY key, LPSTR keyClass, DWORD* classSize, DWORD* reserved, DWORD* keys,
                         DWORD* longestKey, DWORD* longestClass, DWORD* values, DWORD* longestName,
                         DWORD* longestData, DWORD* security, FILETIME* written);

// The values in the order in which they were made. The size of the room for the name, its zero
// included, becomes that of the name; type and data are not given.
LSTATUS RegEnumValueA(HKEY key, DWORD index, LPSTR name, DWORD* nameSize, DWORD* reserved,
                      DWORD* type, std::uint8_t* data, DWORD* size);
LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, DWORD* reserved, DWORD* type, std::uint8_t* data,
                         DWORD* size);
LSTATUS RegSetValueExA(HKEY key, LPCSTR name, DWORD reserved, DWORD type, std::uint8_t const* data,
                       DWORD size);
LSTATUS RegDeleteValueA(HKEY key, LPCSTR name);
