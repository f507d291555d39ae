// The library's one search rule for a settings or code file: the project folder, then the CFG
// directory, then the main directory. The first that exists wins.
#pragma once

#include <vector>

#include "../files/textfil.h"
#include "../settings/autoini.h"
#include "projpath.h"

namespace kvarn {

struct SearchPlace {
    enum class Kind { project, cfg, main };

    Kind kind;
    CString path; // that the file has there
};

// The places in the order of the search; those that name no folder are left out: an empty directory
// is not the root of the drive. Either pointer may be null.
std::vector<SearchPlace> SearchPlaces(CProjPath const* projekt, CAutoIni const* ini,
                                      char const* name);

// The path of the file: the project's own when it exists, else the shared copy of that name. Empty
// when neither exists.
CString FirstFound(CString const& projectFile, CAutoIni const* ini, char const* name);
CString FirstFound(CProjPath const* projekt, CAutoIni const* ini, char const* name);

// The same path, of the file that is now open for reading. It is not open when it is there and
// cannot be opened.
CString OpenFirst(TextReader& file, CString const& projectFile, CAutoIni const* ini,
                  char const* name);

// The path that a file of that name has in the project folder; empty without a project.
CString ProjectCopy(CProjPath const* projekt, char const* name);

// The copy that projects without their own file share, in the CFG or the main directory; empty when
// neither has the file.
CString SharedCopy(CAutoIni const* ini, char const* name);

} // namespace kvarn
