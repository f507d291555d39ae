#include "resources.h"

#include <algorithm>
#include <cstring>

#include "modules.h"

// Defined in resources/. Weak, since the tests of the internals link without it.
extern kvarn::ModuleResources const kvarnprogResources __attribute__((weak));

HMODULE GetModuleHandleA(LPCSTR) {
    return nullptr;
}

BOOL GetModuleHandleExA(DWORD, LPCSTR, HMODULE* module) {
    auto const* const own = &kvarnprogResources;
    *module = reinterpret_cast<HMODULE>(const_cast<kvarn::ModuleResources*>(own));
    return *module != nullptr ? TRUE : FALSE;
}

int LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size) {
    if (size <= 0) {
        return 0;
    }
    buffer[0] = '\0';
    if (module == nullptr) {
        return 0;
    }
    auto const* const resources = reinterpret_cast<kvarn::ModuleResources const*>(module);
    auto const* const end = resources->strings + resources->count;
    auto const* const found =
        std::find_if(resources->strings, end,
                     [id](kvarn::StringResource const& resource) { return resource.id == id; });
    if (found == end) {
        return 0;
    }
    std::size_t const length =
        std::min(std::strlen(found->text), static_cast<std::size_t>(size) - 1);
    std::memcpy(buffer, found->text, length);
    buffer[length] = '\0';
    return static_cast<int>(length);
}
