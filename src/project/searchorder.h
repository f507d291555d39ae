// The library's one search rule for a settings or code file: the project folder, then the CFG
// directory, then the main directory. The first that exists wins.
#pragma once

#include "../settings/autoini.h"
#include "projpath.h"

namespace kvarn {

// The path of the file: the project's own where it exists, else the copy of that name in one of the
// two directories. Empty when none exists. An empty folder or path and a null settings object name
// nothing.
CString FirstFound(CString const& projectFile, CAutoIni const* ini, char const* name);
CString FirstFound(CProjPath const* projekt, CAutoIni const* ini, char const* name);

// The path that a file of that name has in the project folder; empty without a project.
CString ProjectCopy(CProjPath const* projekt, char const* name);

// The copy that projects without one of their own share; empty when there is none.
CString SharedCopy(CAutoIni const* ini, char const* name);

} // namespace kvarn
