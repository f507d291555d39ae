// The key files: where each is found, and one key of it without its list.
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

// One of the parameter files.
struct ParKind {
    CString CProjPath::*own; // a project's own
    char* const* name;
    char const* program;

    CString OwnFile(CProjPath const* projekt) const;
    // Either pointer may be null.
    ParFile InForce(CAutoIni const* ini, CProjPath const* projekt) const;
};
inline constexpr ParKind kvarnPar = {&CProjPath::m_kvarnPar, &CProjPath::KvarnParNamn, "Kvarnbok"};
inline constexpr ParKind stenPar = {&CProjPath::m_stenPar, &CProjPath::StenParNamn, "Klippbok"};

// The drawing program's configuration file, beside the settings object's INI file; there need be
// none.
CString KvarnCfgPath(CAutoIni const& ini);

} // namespace kvarn
