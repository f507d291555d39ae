// Handles and file status of the host, for the stand-ins of files, searches and processes.
#pragma once

#include <sys/stat.h>

#include "types.h"

namespace kvarn {

// A handle is the descriptor plus one, so that no handle is null, and in its lowest bit whether the
// file is an ordinary one: opening looks at the file, and it is not asked again.
inline HANDLE ToHandle(int descriptor, bool isOrdinary = false) {
    return reinterpret_cast<HANDLE>((std::intptr_t{descriptor} + 1) * 2 + (isOrdinary ? 1 : 0));
}
inline int Descriptor(HANDLE handle) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(handle) >> 1) - 1;
}
inline bool IsOrdinary(HANDLE handle) {
    return handle != INVALID_HANDLE_VALUE && reinterpret_cast<std::intptr_t>(handle) % 2 != 0;
}

// The status of the file at a Windows path; false when the file is missing or cannot be examined,
// with the reason for GetLastError.
bool FileStatus(LPCSTR path, struct stat& status);
bool FileStatus(HANDLE file, struct stat& status);

// The error of GetLastError for a host's (errno); a general failure for most.
DWORD WindowsError(int error);

// As GetFileAttributes returns them.
DWORD Attributes(struct stat const& status);

} // namespace kvarn
