// The drawing program's configuration file "KVARNBOK.CFG": lines of key=value.
#pragma once

#include "../core/list0.h"
#include "../export.h"
#include "../host/host.h"
#include "../settings/autoini.h"
#include "nyckelvarde.h"

// A key and its value. A line that is too long makes a record of two empty texts.
struct cfgtype {
    char nyckel[40]; // left of the first "=", at most 39 characters
    char varde[260]; // right of it
};

extern template class KVARNPROG_LIST_DECLARE list0<cfgtype>;

// The file in memory, a record for each stored line, rewritten whole whenever a key is written.
//
// The format, which CKvarnPAR shares: text in code page 1252, lines ended by CR LF. A line is
// stored when its first "=" is at position 1 to 39; everything right of it is the value, and
// nothing is trimmed. Keys are compared without regard to case; of several equal ones the first
// counts. Known quirks, kept on purpose:
// - there are no comments: a line without "=", or beginning with it, is skipped, and lost when the
//   file is rewritten; so is a key with an empty value;
// - a line with its "=" further right, or with a value of more than 258 characters, leaves a record
//   with empty key and value, which is never written back;
// - a value of 259 characters can be written, and is dropped by the next reading.
class KVARNPROG_API CKvarnCFG : public list0<cfgtype> {
  public:
    // Reads CProjPath::KvarnCfgNamn in the folder of the settings object's INI file; an INI path
    // without a backslash gives the root of the current drive.
    explicit CKvarnCFG(CAutoIni* ini);

    // Reads the file of that path. The program's name goes into the caption of the message.
    //
    // A missing file is an empty list, without a message; writing a key creates it. A file that
    // exists but cannot be opened shows "Kan inte oppna CFG-filen\n%s\nAvbryter lasning!" (with o
    // and a umlaut) in a box of the desktop's and gives an empty list.
    CKvarnCFG(char const* program, char const* path);

    virtual ~CKvarnCFG();

    // Makes the first record of that key current. Returns 0, or -1 when there is none; the last
    // record is then current.
    int FindKey(CString key);
    // The same.
    int FindKey(char const* key);

    // The value of a key; empty when it is missing.
    CString ReadKey(CString key);
    // The same.
    CString ReadKey(char const* key);

    // Sets a key and rewrites the file. An empty value removes the key from the file. Returns 0,
    // also with an empty path, where the change stays in memory; and -1, without a message,
    // - for a new key of 40 characters or more and a value of more than 259 (the file stays as it
    //   is);
    // - when the file cannot be opened for writing, or a write fails, on a full disk for one: the
    //   file then keeps its old content, while the record in memory may have changed;
    // - for a file that exists but could not be read to its end: it is never overwritten from what
    //   was read.
    int WriteKey(CString key, CString value);
    // The same.
    int WriteKey(char const* key, char const* value);
    // Several keys in one rewriting, all or none, with the results of CKvarnInst::WriteKeys and no
    // message. The list changes only when all of them fit.
    int WriteKeys(nyckelvarde* nycklar, int antal);

    CString m_filnamn; // full path, or empty
    CStdioFile m_fil;  // never open between calls

  protected:
    // Reads the file as the second constructor says. Returns 0 always.
    int Init(char const* program, char const* path);

  private:
    int Skriv();

    bool m_incomplete = false; // the file exists but was not read to its end
};
