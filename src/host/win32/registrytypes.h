// Keys, access rights and types of the registry, for hosts that are not Windows, as clients of
// CRegistry use them.
#pragma once

#include "../../compat/win32/types.h"

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
constexpr LSTATUS ERROR_NO_MORE_ITEMS = 259;
constexpr LSTATUS ERROR_BADDB = 1009; // the store is not understood
