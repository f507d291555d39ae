// Whether files and folders are there.
#pragma once

namespace kvarn {

bool FileExists(char const* path); // a folder too

// Makes a folder, whose parent must exist. True also for a folder that exists already, or that
// another program makes at the same time.
bool MakeFolder(char const* path);

} // namespace kvarn
