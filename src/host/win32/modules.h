// The program and the library as modules, for hosts that are not Windows.
#pragma once

#include "../../compat/win32/types.h"

constexpr DWORD GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT = 2;
constexpr DWORD GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS = 4;

// The program itself carries no resources here: null.
HMODULE GetModuleHandleA(LPCSTR name);
// Gives the only module, the library, for any address. Null when the library's objects are linked
// without its resources.
BOOL GetModuleHandleExA(DWORD flags, LPCSTR nameOrAddress, HMODULE* module);
