// Modules and their string resources, for hosts that are not Windows: a module handle is a pointer
// to what the module carries.
#pragma once

#include <cstddef>

#include "../../compat/win32/types.h"
#include "../../export.h"

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

// The length of the text as stored: cut to size - 1 characters, 0 when there is none.
KVARNPROG_API int LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size);
