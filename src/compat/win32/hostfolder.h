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

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

// Does something with each entry. False when the folder cannot be read to its end; errno tells why,
// and what was done is a part of it.
template <class Action> bool ForEachEntry(DIR* folder, Action action) {
    for (errno = 0; dirent const* const entry = readdir(folder); errno = 0) {
        action(*entry);
    }
    return errno == 0;
}

// The same with a folder that is not open.
template <class Action> bool ForEachEntry(char const* folder, Action action) {
    OpenFolder dir(opendir(folder));
    if (dir == nullptr) {
        return false;
    }
    bool const whole = ForEachEntry(dir.get(), action);
    int const error = errno;
    dir.reset();
    errno = error;
    return whole;
}

} // namespace kvarn
