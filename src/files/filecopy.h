// Copies a whole file or nothing of it, in the same way on every host.
#pragma once

#include "filerewrite.h"

namespace kvarn {

// Makes the target hold what the source holds, with the attributes (read-only among them) and the
// time of the source, as CopyFile in the Windows documentation does. RewriteFile does the writing,
// so that a failed copy leaves no half. A target that exists keeps its access rights. Of
// the source's data streams only the unnamed one is copied.
//
// False when the copying fails; when the target exists and is to be kept; when another program has
// the target open so that it cannot be written (the call does not wait); and when the source
// changes during the copying.
bool CopyWhole(char const* from, char const* to, Existing existing);

// Keeps a copy of a file under another name, with its rights: whoever may not read the file may not
// read the copy. What has the name is replaced; a link is not followed. False when that fails.
bool KeepCopy(char const* file, char const* name);

} // namespace kvarn
