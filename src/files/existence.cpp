#include "existence.h"

#include "../compat/calls.h"

namespace kvarn {

bool FileExists(char const* path) {
    return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES;
}

bool MakeFolder(char const* path) {
    return FileExists(path) || CreateDirectoryA(path, nullptr) != FALSE || FileExists(path);
}

} // namespace kvarn
