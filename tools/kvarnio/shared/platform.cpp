#include "platform.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include <host/host.h>
#include <text/codepage.h>

#if defined(_WIN32)
#include <shellapi.h>
#else
#include <compat/win32/paths.h>
#endif

#include "failure.h"

namespace kvarnio {
namespace {

std::string WithoutLastSeparators(std::string path) {
    path.erase(path.find_last_not_of("\\/") + 1);
    return path;
}

std::string To1252(std::string const& path) {
    auto const text = kvarn::FromUtf8(path);
    if (!text) {
        throw UsageError(path + ": the path holds a letter outside code page 1252");
    }
    return *text;
}

} // namespace

#if defined(_WIN32)

namespace {

std::filesystem::path FromUtf8(std::string const& text) {
    return std::u8string(text.begin(), text.end());
}

std::string ToUtf8(std::filesystem::path const& path) {
    std::u8string const text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace

std::vector<std::string> Arguments(int, char**) {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(ToUtf8(wide[i]));
    }
    LocalFree(wide);
    return arguments;
}

void ShowUtf8() {
    static UINT const before = GetConsoleOutputCP();
    std::atexit([] { SetConsoleOutputCP(before); }); // the console is the caller's
    std::ios::sync_with_stdio(false);                // a letter's bytes must reach it together
    SetConsoleOutputCP(CP_UTF8);
}

void SetEnvironment(char const* name, std::string const& value) {
    SetEnvironmentVariableW(FromUtf8(name).c_str(), FromUtf8(value).c_str());
}

unsigned CodePage() {
    return GetACP();
}

// The profile functions would look for a relative path in the Windows folder.
std::string LibraryPath(std::string const& typed) {
    std::filesystem::path path = std::filesystem::absolute(FromUtf8(typed));
    return To1252(ToUtf8(path.make_preferred()));
}

std::filesystem::path UserPath(std::string const& typed) {
    return FromUtf8(typed);
}

std::filesystem::path HostPath(std::string_view path) {
    return FromUtf8(kvarn::ToUtf8(path));
}

#else

std::vector<std::string> Arguments(int argc, char** argv) {
    return {argv + 1, argv + argc};
}

void ShowUtf8() {} // terminals do

void SetEnvironment(char const* name, std::string const& value) {
    setenv(name, value.c_str(), 1);
}

unsigned CodePage() {
    return 1252; // compat/ converts to it
}

// As the registry and the settings spell paths.
std::string LibraryPath(std::string const& typed) {
    std::string path = To1252(typed);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::filesystem::path UserPath(std::string const& typed) {
    return typed;
}

std::filesystem::path HostPath(std::string_view path) {
    return kvarn::HostPath(path);
}

#endif

std::string LibraryFolder(std::string const& typed) {
    return WithoutLastSeparators(LibraryPath(typed));
}

} // namespace kvarnio
