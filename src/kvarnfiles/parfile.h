// The key files: where each is found, and one key of it without its list.
#pragma once

#include <span>
#include <string_view>

#include "../files/filerewrite.h"
#include "../files/textfil.h"
#include "../formats/keyfile.h"
#include "../project/projpath.h"
#include "../settings/autoini.h"

namespace kvarn {

// Rewrites a key file; an empty path leaves the change in memory and is done. A file that was not
// read to its end stays as it is.
Rewritten RewriteKeyFile(char const* path, bool incomplete, std::string_view text);
// The same for a parameter file, with the result of its WriteKey; tells where it cannot be opened.
int RewriteParFile(char const* path, bool incomplete, std::string_view text);

// One of the parameter files. Of the pointers to its folders either may be null.
struct ParKind {
    CString CProjPath::*own; // a project's own
    char* const* name;
    char const* program; // whose it is, for messages

    // The path of the one that is in force; empty when there is none.
    CString InForce(CAutoIni const* ini, CProjPath const* projekt) const;
    // Opens it, and tells where it is there and cannot be opened.
    CString Open(TextReader& file, CAutoIni const* ini, CProjPath const* projekt) const;
    // The value of a key; empty without one, and where the file cannot be read.
    CString ReadKey(CAutoIni const* ini, CProjPath const* projekt, std::string_view key) const;
    // Rewrites the file once with all of the values: 0, or -1 when one does not fit, or the file
    // cannot be read to its end or written. It then stays as it is.
    int WriteKeys(CAutoIni const* ini, CProjPath const* projekt,
                  std::span<KeyChange const> changes) const;

  private:
    CString OwnFile(CProjPath const* projekt) const;
};
inline constexpr ParKind kvarnPar = {&CProjPath::m_kvarnPar, &CProjPath::KvarnParNamn, "Kvarnbok"};
inline constexpr ParKind stenPar = {&CProjPath::m_stenPar, &CProjPath::StenParNamn, "Klippbok"};

// The drawing program's configuration file, beside the settings object's INI file; there need be
// none.
CString KvarnCfgPath(CAutoIni const& ini);

} // namespace kvarn
