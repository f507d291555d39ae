// Copying a file all or nothing, the same on every host.
#pragma once

#include "filerewrite.h"

namespace kvarn {

// Makes the target hold what the source holds, with the attributes (read-only among them) and the
// time of the source, as CopyFile in the Windows documentation does; but by RewriteFile, so that a
// copy that fails in the middle leaves no half. A target that exists keeps its access rights. Of
// the source's data streams only the unnamed one is copied.
//
// False when that failed; when the target exists and is to be kept; when another program has the
// target open so that it cannot be written, which is not waited for; and when the source changed
// meanwhile.
bool CopyWhole(char const* from, char const* to, Existing existing);

} // namespace kvarn
