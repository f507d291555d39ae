// The file of the Jb2/Jb3 scales.
#pragma once

#include "../project/projpath.h"
#include "../settings/autoini.h"

namespace kvarn {

// Writes a key: see CKvarnInst::Jb23WriteKey. -1 when the file exists and cannot be opened, or
// not be read to its end; it then stays as it is. Else 0, also when it cannot be written.
int WriteJb23(CProjPath const* projekt, CAutoIni const* ini, char const* nyckel, char const* varde);

} // namespace kvarn
