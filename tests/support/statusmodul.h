// A module whose string resources are a host program's: states in another language.
#pragma once

#include "host/host.h"

#if defined(_WIN32)

// The DLL of resources alone that the tests build.
inline HINSTANCE StatusModul() {
    static HMODULE const module = LoadLibraryA(STATUS_MODULE);
    return module;
}

#else

#define KVARNPROG_STRING(id, text) {id, text},
inline HINSTANCE StatusModul() {
    static constexpr kvarn::StringResource strings[] = {
#include "statustexter.inc"
    };
    static constexpr kvarn::ModuleResources module = {strings, sizeof strings / sizeof *strings};
    return reinterpret_cast<HINSTANCE>(const_cast<kvarn::ModuleResources*>(&module));
}
#undef KVARNPROG_STRING

#endif
