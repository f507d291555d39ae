// The registry by the Windows calls that the library uses, for hosts that are not Windows. It is
// kept in a text file (see regstore.h): $KVARNPROG_REGISTRY, by default kvarnprog/registry.reg in
// the user's configuration folder. Every call sees the file as it is then, and one that changes
// something replaces it in one step; programs take turns. A file that cannot be read, or with a
// line that is not understood, is never written.
//
// There are no access rights and there is one view: access masks are taken and not looked at.
#pragma once

#include "types.h"

struct HKEY__;
using HKEY = HKEY__*;
using REGSAM = DWORD;
using LSTATUS = LONG;

static HKEY const HKEY_CLASSES_ROOT = reinterpret_cast<HKEY>(std::uintptr_t{0x80000000});
static HKEY const HKEY_CURRENT_USER = reinterpret_cast<HKEY>(std::uintptr_t{0x80000001});
static HKEY const HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(std::uintptr_t{0x80000002});
static HKEY const HKEY_USERS = reinterpret_cast<HKEY>(std::uintptr_t{0x80000003});
static HKEY const HKEY_CURRENT_CONFIG = reinterpret_cast<HKEY>(std::uintptr_t{0x80000005});

constexpr REGSAM KEY_QUERY_VALUE = 0x00001;
constexpr REGSAM KEY_SET_VALUE = 0x00002;
constexpr REGSAM KEY_WOW64_64KEY = 0x00100;
constexpr REGSAM KEY_WRITE = 0x20006;
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

constexpr DWORD REG_OPTION_NON_VOLATILE = 0;

constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_MULTI_SZ = 7;

constexpr LSTATUS ERROR_MORE_DATA = 234;
constexpr LSTATUS ERROR_BADDB = 1009; // the store is not understood

struct SECURITY_ATTRIBUTES;

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

LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, DWORD* reserved, DWORD* type, std::uint8_t* data,
                         DWORD* size);
LSTATUS RegSetValueExA(HKEY key, LPCSTR name, DWORD reserved, DWORD type, std::uint8_t const* data,
                       DWORD size);
LSTATUS RegDeleteValueA(HKEY key, LPCSTR name);
