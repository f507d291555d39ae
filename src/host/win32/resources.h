// Modules and their string resources, for hosts that are not Windows. A module handle is a pointer
// to the module's resources.
#pragma once

#include <cstddef>

#include "../../compat/win32/types.h"
#include "../../export.h"

namespace kvarn {

// A string resource, in code page 1252.
struct StringResource {
    UINT id;          // its number
    char const* text; // ended by a zero
};

// A client casts the address of its own to HINSTANCE.
struct ModuleResources {
    StringResource const* strings; // in any order
    std::size_t count;             // of strings
};

} // namespace kvarn

// Copies a text, cut to size - 1 characters. Returns its length, 0 for an unknown id.
KVARNPROG_API int LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size);
