#include "process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <poll.h>
#include <string>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "files.h"
#include "hostfile.h"
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

HANDLE OpenProcess(DWORD, BOOL, DWORD process) {
    auto const descriptor = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    if (descriptor >= 0) {
        return kvarn::ToHandle(descriptor);
    }
    // Kernels before 5.3 have no such descriptors. Whoever may not send a signal learns that the
    // process lives.
    bool const gone = kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
    SetLastError(gone ? ERROR_INVALID_PARAMETER : ERROR_ACCESS_DENIED);
    return nullptr;
}

DWORD WaitForSingleObject(HANDLE process, DWORD milliseconds) {
    pollfd end = {kvarn::Descriptor(process), POLLIN, 0};
    if (end.fd < 0) { // it has been waited for
        return 0;
    }
    int const patience = milliseconds == INFINITE ? -1 : static_cast<int>(milliseconds);
    int ended = 0;
    do {
        ended = poll(&end, 1, patience);
    } while (ended < 0 && errno == EINTR);
    if (ended == 0) {
        return WAIT_TIMEOUT;
    }
    siginfo_t reaped{}; // a child that ended is taken out of the list of processes
    waitid(P_PIDFD, static_cast<id_t>(end.fd), &reaped, WEXITED);
    return 0;
}

void Sleep(DWORD milliseconds) {
    usleep(1000 * milliseconds);
}
