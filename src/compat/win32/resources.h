// Modules and their string resources, for hosts that are not Windows: a module handle is a pointer
// to what the module carries.
#pragma once

#include <cstddef>

#include "types.h"

namespace kvarn {

struct StringResource {
    UINT id;
    char const* text;
};

// Pass one, cast to HINSTANCE, wherever a module's handle is asked for.
struct ModuleResources {
    StringResource const* strings;
    std::size_t count;
};

} // namespace kvarn

constexpr DWORD GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT = 2;
constexpr DWORD GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS = 4;

// The program itself carries no resources here: null.
HMODULE GetModuleHandleA(LPCSTR name);
// By an address inside it, the one module there is: the library. Null where the objects are linked
// without its resources.
BOOL GetModuleHandleExA(DWORD flags, LPCSTR nameOrAddress, HMODULE* module);
// The length of the text as stored: cut to size - 1 characters, 0 when there is none.
int LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size);
