#include "shell.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <spawn.h>
#include <string>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "../../compat/win32/hostfile.h"
#include "../../compat/win32/paths.h"
#include "../../text/codepage.h"

namespace {

std::vector<std::wstring> Arguments(std::wstring_view line) {
    std::vector<std::wstring> arguments;
    bool quoted = false;
    bool inside = false;
    for (wchar_t const c : line) {
        bool const separates = !quoted && (c == L' ' || c == L'\t');
        if (!separates && !inside) {
            arguments.emplace_back();
        }
        inside = !separates;
        if (c == L'"') {
            quoted = !quoted;
        } else if (!separates) {
            arguments.back() += c;
        }
    }
    return arguments;
}

std::wstring WideCommandLine() {
    std::wstring line;
    for (char const c : kvarn::ProcessCommandLine()) {
        line += static_cast<wchar_t>(kvarn::CodePoint1252(c));
    }
    return line;
}

} // namespace

HRESULT SHGetFolderPathA(HWND, int folder, HANDLE, DWORD, LPSTR path) {
    std::string const host = kvarn::UserConfigFolder();
    std::optional<std::string> text = kvarn::FromHostPath(host);
    if (!text || text->size() >= MAX_PATH) {
        return -1;
    }
    if ((folder & CSIDL_FLAG_CREATE) != 0) {
        std::error_code failed;
        std::filesystem::create_directories(host, failed);
        if (failed) {
            return -1;
        }
    }
    std::replace(text->begin(), text->end(), '/', '\\');
    path[text->copy(path, text->size())] = '\0';
    return 0;
}

LPCWSTR GetCommandLineW() {
    static std::wstring const line = WideCommandLine();
    return line.c_str();
}

LPWSTR* CommandLineToArgvW(LPCWSTR line, int* count) {
    std::vector<std::wstring> const arguments = Arguments(line);
    *count = static_cast<int>(arguments.size());
    std::size_t characters = 0;
    for (std::wstring const& argument : arguments) {
        characters += argument.size() + 1;
    }
    // The pointers and their texts lie in one block, which one LocalFree frees.
    std::size_t const pointers = (arguments.size() + 1) * sizeof(LPWSTR);
    void* const block = ::operator new(pointers + characters * sizeof(wchar_t));
    auto** const table = static_cast<LPWSTR*>(block);
    auto* text = reinterpret_cast<wchar_t*>(static_cast<char*>(block) + pointers);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        table[i] = text;
        text = std::copy(arguments[i].begin(), arguments[i].end(), text);
        *text++ = L'\0';
    }
    table[arguments.size()] = nullptr;
    return table;
}

void* LocalFree(void* memory) {
    ::operator delete(memory);
    return nullptr;
}

BOOL PathStripToRootA(LPSTR path) {
    std::string_view const whole = path;
    std::size_t length = 0;
    if (whole.starts_with("\\\\")) {
        std::size_t const share = whole.find('\\', 2);
        length = share == std::string_view::npos
                     ? whole.size()
                     : std::min(whole.find('\\', share + 1), whole.size());
    } else if (whole.starts_with('\\')) {
        length = 1;
    } else if (whole.size() >= 3 && whole.substr(1, 2) == ":\\") {
        length = 3;
    }
    path[length] = '\0';
    return length > 0 ? TRUE : FALSE;
}

BOOL CreateProcessA(LPCSTR program, LPSTR, SECURITY_ATTRIBUTES*, SECURITY_ATTRIBUTES*, BOOL, DWORD,
                    void*, LPCSTR, STARTUPINFOA*, PROCESS_INFORMATION* information) {
    std::string path = kvarn::HostPath(program);
    char* arguments[] = {path.data(), nullptr};
    pid_t child = 0;
    int const failed = posix_spawn(&child, path.c_str(), nullptr, nullptr, arguments, environ);
    if (failed != 0) {
        SetLastError(failed == ENOENT ? ERROR_FILE_NOT_FOUND : ERROR_ACCESS_DENIED);
        return FALSE;
    }
    auto const process = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
    if (process < 0) { // kernels before 5.3 have no such descriptors: wait at once
        waitpid(child, nullptr, 0);
    }
    *information = {kvarn::ToHandle(process), kvarn::ToHandle(dup(process)),
                    static_cast<DWORD>(child), 0};
    return TRUE;
}
