#include "platform.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <tuple>

#include <host/host.h>
#include <text/codepage.h>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#else
#include <sys/stat.h>
#include <unistd.h>

#include <compat/win32/paths.h>
#include <host/win32/regfile.h>
#endif

#include "arguments.h"

namespace kvarnio {
namespace {

std::string WithoutLastSeparators(std::string path) {
    path.erase(path.find_last_not_of("\\/") + 1);
    return path;
}

std::string To1252(std::string const& path) {
    return In1252("the path", path);
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

bool ErrorsAloneAreOnTerminal() {
    return _isatty(_fileno(stderr)) != 0 && _isatty(_fileno(stdout)) == 0;
}

bool CanAsk() {
    return _isatty(_fileno(stderr)) != 0 && _isatty(_fileno(stdin)) != 0;
}

std::uintmax_t SizeOfInput() {
    LARGE_INTEGER size{};
    HANDLE const input = GetStdHandle(STD_INPUT_HANDLE);
    bool const isFile = GetFileType(input) == FILE_TYPE_DISK && GetFileSizeEx(input, &size) != 0;
    return isFile ? static_cast<std::uintmax_t>(size.QuadPart) : 0;
}

bool IsStandardInput(std::filesystem::path const& file) {
    HANDLE const opened = CreateFileW(file.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    BY_HANDLE_FILE_INFORMATION input{};
    BY_HANDLE_FILE_INFORMATION other{};
    bool const isSame =
        opened != INVALID_HANDLE_VALUE &&
        GetFileInformationByHandle(GetStdHandle(STD_INPUT_HANDLE), &input) != 0 &&
        GetFileInformationByHandle(opened, &other) != 0 &&
        std::tie(input.dwVolumeSerialNumber, input.nFileIndexHigh, input.nFileIndexLow) ==
            std::tie(other.dwVolumeSerialNumber, other.nFileIndexHigh, other.nFileIndexLow);
    CloseHandle(opened);
    return isSame;
}

void UseStreamsAsTheyAre() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
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

std::string RegistryStore() {
    return {};
}

std::vector<std::size_t> BadRegistryLines(std::string_view) {
    return {};
}

std::filesystem::path HostPath(std::string_view path) {
    return FromUtf8(kvarn::ToUtf8(path));
}

#else

std::vector<std::string> Arguments(int argc, char** argv) {
    return {argv + 1, argv + argc};
}

void ShowUtf8() {} // terminals do

bool ErrorsAloneAreOnTerminal() {
    return isatty(STDERR_FILENO) != 0 && isatty(STDOUT_FILENO) == 0;
}

bool CanAsk() {
    return isatty(STDERR_FILENO) != 0 && isatty(STDIN_FILENO) != 0;
}

std::uintmax_t SizeOfInput() {
    struct stat status {};
    bool const isFile = fstat(STDIN_FILENO, &status) == 0 && S_ISREG(status.st_mode);
    return isFile ? static_cast<std::uintmax_t>(status.st_size) : 0;
}

bool IsStandardInput(std::filesystem::path const& file) {
    struct stat input {};
    struct stat other {};
    return fstat(STDIN_FILENO, &input) == 0 && S_ISREG(input.st_mode) &&
           stat(file.c_str(), &other) == 0 && input.st_dev == other.st_dev &&
           input.st_ino == other.st_ino;
}

void UseStreamsAsTheyAre() {} // they are bytes

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

std::string RegistryStore() {
    return kvarn::StorePath();
}

std::vector<std::size_t> BadRegistryLines(std::string_view content) {
    return kvarn::RegStore(content).BadLines();
}

std::filesystem::path HostPath(std::string_view path) {
    return kvarn::HostPath(path);
}

#endif

std::optional<std::string> LibraryName(std::filesystem::path const& name) {
    std::u8string const utf8 = name.u8string();
    return kvarn::FromUtf8(std::string(utf8.begin(), utf8.end()));
}

std::string LibraryFolder(std::string const& typed) {
    return WithoutLastSeparators(LibraryPath(typed));
}

} // namespace kvarnio
