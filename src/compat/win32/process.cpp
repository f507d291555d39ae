#include "process.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <unistd.h>

#include "paths.h"

namespace {

// In code page 1252; a text with other letters stays in the host's encoding.
std::string Converted(std::string const& hostText) {
    return kvarn::FromHostPath(hostText).value_or(hostText);
}

std::string Quoted(std::string const& text) {
    return text.find(' ') == std::string::npos ? text : '"' + text + '"';
}

} // namespace

std::string kvarn::ProcessCommandLine() {
    std::array<char, 4096> program{}; // PATH_MAX
    ssize_t const length = readlink("/proc/self/exe", program.data(), program.size());
    std::string path(program.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    std::replace(path.begin(), path.end(), '/', '\\');
    std::string line = Quoted(Converted(path));

    std::ifstream arguments("/proc/self/cmdline", std::ios::binary);
    std::string argument;
    std::getline(arguments, argument, '\0'); // the program as it was typed
    while (std::getline(arguments, argument, '\0')) {
        line += ' ' + Quoted(Converted(argument));
    }
    return line;
}

LPSTR GetCommandLineA() {
    static std::string line = kvarn::ProcessCommandLine();
    return line.data();
}

DWORD GetEnvironmentVariableA(LPCSTR name, LPSTR buffer, DWORD size) {
    char const* const hostValue = std::getenv(name);
    if (hostValue == nullptr) {
        return 0;
    }
    std::string const value = Converted(hostValue);
    if (value.size() >= size) {
        return static_cast<DWORD>(value.size()) + 1;
    }
    std::memcpy(buffer, value.c_str(), value.size() + 1);
    return static_cast<DWORD>(value.size());
}

DWORD GetCurrentProcessId() {
    return static_cast<DWORD>(getpid());
}

void Sleep(DWORD milliseconds) {
    usleep(1000 * milliseconds);
}
