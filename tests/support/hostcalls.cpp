// These take the places of the C library's functions in the program that links them.
#include "support/hostcalls.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

HostCalls* watcher = nullptr;

template <class Function> Function* Next(char const* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

std::string FileOf(int descriptor) {
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), unknown);
}

// The call, unless it is to fail.
template <class Function, class... Arguments>
auto Made(char const* name, std::string const& path, unsigned mode, Arguments... arguments) {
    HostCalls* const watching = std::exchange(watcher, nullptr); // not the watcher's own calls
    std::string const file = std::filesystem::path(path).filename();
    int const error = watching != nullptr ? watching->Take({name, file, mode}) : 0;
    auto const result = error == 0 ? Next<Function>(name)(arguments...) : -1;
    watcher = watching;
    errno = error != 0 ? error : errno;
    return result;
}

} // namespace

HostCalls::HostCalls(Faults faults) : m_faults(std::move(faults)) {
    watcher = this;
}

HostCalls::~HostCalls() {
    watcher = nullptr;
}

int HostCalls::Take(HostCall call) {
    m_calls.push_back(std::move(call));
    return m_faults ? m_faults(m_calls.back()) : 0;
}

std::string HostCalls::Made(std::vector<std::string> const& names) const {
    std::string text;
    for (HostCall const& call : m_calls) {
        if (std::find(names.begin(), names.end(), call.name) != names.end()) {
            text += call.name + ' ' + call.file + '\n';
        }
    }
    return text;
}

extern "C" {

int open(char const* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    unsigned const mode = (flags & O_CREAT) != 0 ? va_arg(rest, unsigned) : 0;
    va_end(rest);
    return Made<int(char const*, int, ...)>("open", path, mode, path, flags, mode);
}
ssize_t read(int file, void* buffer, size_t size) {
    return Made<ssize_t(int, void*, size_t)>("read", FileOf(file), 0, file, buffer, size);
}
int ftruncate(int file, off_t size) {
    return Made<int(int, off_t)>("ftruncate", FileOf(file), 0, file, size);
}
int fsync(int file) {
    return Made<int(int)>("fsync", FileOf(file), 0, file);
}
int rename(char const* from, char const* to) {
    return Made<int(char const*, char const*)>("rename", to, 0, from, to);
}
int renameat2(int oldFolder, char const* from, int newFolder, char const* to, unsigned flags) {
    return Made<int(int, char const*, int, char const*, unsigned)>("renameat2", to, 0, oldFolder,
                                                                   from, newFolder, to, flags);
}
int stat(char const* path, struct stat* status) {
    return Made<int(char const*, struct stat*)>("stat", path, 0, path, status);
}
}
