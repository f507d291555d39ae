// Copying a file all or nothing, the same on every host.
#pragma once

namespace kvarn {

// Makes the target hold what the source holds, with the source's time of change, by RewriteFile: a
// copy that fails in the middle leaves no half, and a target that exists keeps its attributes and
// access rights. (A copy of a read-only file can be written.) False when that failed, or the target
// exists and is not to be replaced.
bool CopyWhole(char const* from, char const* to, bool replace);

} // namespace kvarn
