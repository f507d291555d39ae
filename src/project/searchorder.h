// The library's one search rule for a settings or code file: the project folder, then the CFG
// directory, then the main directory. The first that exists wins.
#pragma once

#include "../settings/autoini.h"
#include "projpath.h"

namespace kvarn {

// The path of the file: the project's own when it exists, else the shared copy of that name. Empty
// when neither exists.
CString FirstFound(CString const& projectFile, CAutoIni const* ini, char const* name);
CString FirstFound(CProjPath const* projekt, CAutoIni const* ini, char const* name);

// The path that a file of that name has in the project folder; empty without a project.
CString ProjectCopy(CProjPath const* projekt, char const* name);

// The copy that projects without their own file share, in the CFG or the main directory; empty when
// neither has the file. An empty directory and a null settings object hold no file (and are not the
// root of the drive).
CString SharedCopy(CAutoIni const* ini, char const* name);

} // namespace kvarn
