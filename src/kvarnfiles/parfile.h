// The two parameter files: where each is found, and one key of it without its list.
#pragma once

#include <string_view>

#include "../project/projpath.h"
#include "../settings/autoini.h"

namespace kvarn {

struct ParFile {
    CString path;        // the one that is in force; empty when there is none
    char const* program; // whose it is, for messages

    // Tells that it cannot be opened.
    void TellCannotRead() const;
    // The value of a key; empty without one, and where it cannot be read, which is told.
    CString ReadKey(std::string_view key) const;
};

// Of the drawing program, and of the rock-drilling program. Either pointer may be null.
ParFile KvarnParFile(CAutoIni const* ini, CProjPath const* projekt);
ParFile StenParFile(CAutoIni const* ini, CProjPath const* projekt);

} // namespace kvarn
