// The file of the Jb2/Jb3 scales: a line for each quantity, its scale and its step.
#pragma once

#include "../project/projpath.h"
#include "../settings/autoini.h"

namespace kvarn {

// Writes a key: see CKvarnInst::Jb23WriteKey. -1 when the file exists and could not be opened, or
// not be read to its end; it then stays as it is. Else 0, whatever became of the writing.
int SkrivJb23(CProjPath const* projekt, CAutoIni const* ini, char const* nyckel, char const* varde);

} // namespace kvarn
