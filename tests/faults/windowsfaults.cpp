// On Windows the faults come from within: the library's calls of the system pass here, and the one
// that $KVARNPROG_FAULT names fails with an error ("WriteFile 2 112") or ends the process
// ("WriteFile 2 KILL"). $KVARNPROG_HOLD ("3 C:\\...") keeps a file open with that share mode.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

#include <windows.h>

namespace {

struct Call {
    char const* name;
    void* hook;
    void* original = nullptr;
    int count = 0;
};
extern Call calls[17];

// Whether this call is the one that is to fail; never returns from the one that is to kill.
bool Strikes(Call& call) {
    char const* const fault = std::getenv("KVARNPROG_FAULT");
    std::string const here = std::string(call.name) + ' ' + std::to_string(++call.count) + ' ';
    if (fault == nullptr || std::string(fault).rfind(here, 0) != 0) {
        return false;
    }
    if (std::strstr(fault, "KILL") != nullptr) {
        constexpr UINT killed = 137;
        TerminateProcess(GetCurrentProcess(), killed);
    }
    SetLastError(static_cast<DWORD>(std::atoi(fault + here.size())));
    return true;
}

// What each of them returns when it fails.
template <class Result> Result Failed() {
    if constexpr (std::is_same_v<Result, HANDLE>) {
        return INVALID_HANDLE_VALUE;
    } else {
        return std::is_same_v<Result, DWORD> ? static_cast<Result>(INVALID_FILE_ATTRIBUTES) : FALSE;
    }
}

template <std::size_t Number, class Result, class... Arguments>
Result WINAPI Hook(Arguments... arguments) {
    Call& call = calls[Number];
    if (Strikes(call)) {
        return Failed<Result>();
    }
    return reinterpret_cast<Result(WINAPI*)(Arguments...)>(call.original)(arguments...);
}

template <std::size_t Number, class Result, class... Arguments>
void* HookOf(Result(WINAPI*)(Arguments...)) {
    return reinterpret_cast<void*>(&Hook<Number, Result, Arguments...>);
}

Call calls[17] = {{"CreateFileA", HookOf<0>(CreateFileA)},
                  {"ReadFile", HookOf<1>(ReadFile)},
                  {"WriteFile", HookOf<2>(WriteFile)},
                  {"FlushFileBuffers", HookOf<3>(FlushFileBuffers)},
                  {"SetEndOfFile", HookOf<4>(SetEndOfFile)},
                  {"SetFilePointerEx", HookOf<5>(SetFilePointerEx)},
                  {"SetFileTime", HookOf<6>(SetFileTime)},
                  {"CloseHandle", HookOf<7>(CloseHandle)},
                  {"MoveFileExA", HookOf<8>(MoveFileExA)},
                  {"DeleteFileA", HookOf<9>(DeleteFileA)},
                  {"CreateDirectoryA", HookOf<10>(CreateDirectoryA)},
                  {"GetFileAttributesA", HookOf<11>(GetFileAttributesA)},
                  {"SetFileAttributesA", HookOf<12>(SetFileAttributesA)},
                  {"GetFileInformationByHandle", HookOf<13>(GetFileInformationByHandle)},
                  {"FindFirstFileA", HookOf<14>(FindFirstFileA)},
                  {"FindNextFileA", HookOf<15>(FindNextFileA)},
                  {"WritePrivateProfileStringA", HookOf<16>(WritePrivateProfileStringA)}};

template <class Part> Part* At(HMODULE module, std::size_t place) {
    return reinterpret_cast<Part*>(reinterpret_cast<char*>(module) + place);
}

void Redirect(IMAGE_THUNK_DATA* address, char const* name) {
    for (Call& call : calls) {
        DWORD before = 0;
        if (std::strcmp(name, call.name) == 0 &&
            VirtualProtect(address, sizeof *address, PAGE_READWRITE, &before) != FALSE) {
            call.original = reinterpret_cast<void*>(address->u1.Function);
            address->u1.Function = reinterpret_cast<ULONGLONG>(call.hook);
        }
    }
}

} // namespace

// A module calls others through the addresses in its import table ("PE Format" in the Windows
// documentation).
void RedirectCalls(HMODULE module) {
    auto const start = static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew);
    auto const& table = At<IMAGE_NT_HEADERS>(module, start)
                            ->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* from = At<IMAGE_IMPORT_DESCRIPTOR>(module, table.VirtualAddress); from->Name != 0;
         ++from) {
        auto* name = At<IMAGE_THUNK_DATA>(module, from->OriginalFirstThunk);
        auto* address = At<IMAGE_THUNK_DATA>(module, from->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++address) {
            Redirect(address, At<IMAGE_IMPORT_BY_NAME>(module, name->u1.AddressOfData)->Name);
        }
    }
}

void HoldFile() {
    if (char const* const held = std::getenv("KVARNPROG_HOLD")) {
        CreateFileA(held + 2, GENERIC_READ, static_cast<DWORD>(std::atoi(held)), nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    }
}

void PrintCalls() {
    for (Call const& call : calls) {
        std::fprintf(stderr, "calls %s %d\n", call.name, call.count);
    }
}
