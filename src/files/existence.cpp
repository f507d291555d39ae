#include "existence.h"

#include "../compat/calls.h"

namespace kvarn {

bool MeansMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

bool FileExists(char const* path) {
    return IsThere(path) || !MeansMissing(GetLastError());
}

bool IsThere(char const* path) {
    return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES;
}

bool MakeFolder(char const* path) {
    return CreateDirectoryA(path, nullptr) != FALSE || IsThere(path);
}

} // namespace kvarn
