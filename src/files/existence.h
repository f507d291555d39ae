// Whether files and folders are there.
#pragma once

#include "../compat/types.h"

namespace kvarn {

// Whether this error says that the name, or its folder, does not exist. Any other (no rights, an
// I/O error, a drive that does not answer) does not tell, and what it was about may be there.
bool MeansMissing(DWORD error);

// True for a file or a folder, and for one that cannot be looked at: only what is known to be
// missing is taken for missing.
bool FileExists(char const* path);

// True only for a file or a folder that can be looked at.
bool IsThere(char const* path);

// Makes a folder, whose parent must exist. True also for a folder that exists already, or that
// another program makes at the same time. False when the host does not tell.
bool MakeFolder(char const* path);

} // namespace kvarn
