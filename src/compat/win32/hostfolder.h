// The entries of a folder of the host.
#pragma once

#include <cerrno>
#include <dirent.h>
#include <memory>

namespace kvarn {

// Whether a host call failed because there is no such file or folder: any other error (no rights,
// an I/O error) does not tell that.
inline bool NotThere(int error) {
    return error == ENOENT || error == ENOTDIR;
}

// Does something with each entry. False when the folder cannot be read to its end; errno tells why,
// and what was done is a part of it.
template <class Action> bool ForEachEntry(char const* folder, Action action) {
    struct Close {
        void operator()(DIR* dir) const { closedir(dir); }
    };
    std::unique_ptr<DIR, Close> dir(opendir(folder));
    if (dir == nullptr) {
        return false;
    }
    for (errno = 0; dirent const* const entry = readdir(dir.get()); errno = 0) {
        action(*entry);
    }
    int const error = errno;
    dir.reset();
    errno = error;
    return error == 0;
}

} // namespace kvarn
