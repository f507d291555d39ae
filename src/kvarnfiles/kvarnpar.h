// The parameter files "KVARNBOK.PAR" and "KLIPPBOK.PAR": lines of key=value, in a project or
// shared.
#pragma once

#include "../core/list0.h"
#include "../export.h"
#include "../host/host.h"
#include "../project/projpath.h"
#include "../settings/autoini.h"
#include "nyckelvarde.h"

namespace kvarn {
struct ParKind;
}

// A key and its value. A line that is too long makes a record of two empty texts.
struct partype {
    char nyckel[40]; // left of the first "=", at most 39 characters
    char varde[260]; // right of it
};

extern template class KVARNPROG_LIST_DECLARE list0<partype>;

// One parameter file in memory, in the format of CKvarnCFG. Of three places the first that holds
// the file is taken, once, at construction: the project folder, the CFG directory, the main
// directory. A key is written to the file that was taken: into a shared one where the project has
// none of its own.
class KVARNPROG_API CKvarnPAR : public list0<partype> {
  public:
    // Reads the drawing program's file (CProjPath::KvarnParNamn). Either pointer may be null; the
    // places that it names are then left out. Where there is no file the list and the path are
    // empty, without a message. A file that exists but cannot be opened shows
    // "Kan inte oppna -filen\n%s\nAvbryter lasning!" (with o and a umlaut) in a box of the
    // desktop's; the list is then empty.
    CKvarnPAR(CAutoIni* ini, CProjPath* projekt);

    // program 1: the rock-drilling program's file (CProjPath::StenParNamn), as above.
    // program 0: an empty object without a path, though the drawing program's file is read, and a
    // failure to open it shown; clients depend on it, and take the first form for that file.
    // Any other: an empty object, nothing is read.
    CKvarnPAR(CAutoIni* ini, CProjPath* projekt, int program);

    virtual ~CKvarnPAR();

    // The path of the file that was taken, the one that WriteKey writes; empty when there is none.
    CString GetParFilNamn();

    // As CKvarnCFG::FindKey.
    int FindKey(CString key);
    // The same.
    int FindKey(char const* key);
    // As CKvarnCFG::ReadKey.
    CString ReadKey(CString key);
    // The same.
    CString ReadKey(char const* key);

    // As CKvarnCFG::WriteKey, but a file that cannot be opened for writing is shown in a box of the
    // desktop's: "Could not open file for write\n%s".
    int WriteKey(CString key, CString value);
    // The same.
    int WriteKey(char const* key, char const* value);
    // Several keys in one rewriting, all or none, as CKvarnInst::WriteKeys. The list changes only
    // when all of them fit.
    int WriteKeys(nyckelvarde* nycklar, int antal);

    CString m_filnamn; // full path, or empty
    CStdioFile m_fil;  // never open between calls

  private:
    void Las(kvarn::ParKind const& kind, CAutoIni const* ini, CProjPath const* projekt);
    int Skriv();

    bool m_incomplete = false; // the file exists but was not read to its end
};
