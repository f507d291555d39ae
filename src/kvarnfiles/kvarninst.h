// The settings facade: keys of the settings files with built-in defaults.
#pragma once

#include <type_traits>

#include "../compat/host.h"
#include "../library/export.h"
#include "../project/projpath.h"
#include "../settings/autoini.h"

// Reads and writes the keys of three settings files, named by their plain file names without regard
// to case: CProjPath::KvarnParNamn and StenParNamn (see CKvarnPAR) and Jb23ParNamn. (Of the last
// one the file itself is not read or written yet: its keys answer with their defaults, and what is
// written to them is dropped.)
//
// Every call reads the file afresh, so a value that was written is seen by the next call. Keys are
// compared without regard to case. Values are text in code page 1252: numbers with a decimal
// point, "JA" and "NEJ", "MAX" for an open scale. Messages are those of CKvarnPAR.
//
// Construct, call Init, then read and write. A copy shares the pointers, and an open file with
// them.
class KVARNPROG_API CKvarnInst {
  public:
    CKvarnInst();
    CKvarnInst(CKvarnInst const&);
    CKvarnInst& operator=(CKvarnInst const&);
    virtual ~CKvarnInst(); // frees nothing

    // Takes the settings object and the project's paths, which stay the caller's and must outlive
    // this object. Returns 0.
    int Init(CAutoIni* ini, CProjPath* projekt);

    CAutoIni* AiniPtr() const;
    void GetAiniProjPath(CAutoIni** ini, CProjPath** projekt) const;

    // The built-in default of a key; empty for a key or a file that has none.
    CString Default(char const* file, CString key);

    // The value of a key as the file has it, or its default when the value is missing or empty.
    // Empty for any other file.
    CString ReadKey(char const* file, CString key);
    CString ReadKey(char const* file, char const* key);

    // The value, or its default alone when defaultOnly is not 0, as a number: the whole number
    // that the text begins with; -9 when it begins with none, -1 for "MAX" in any case.
    int ReadKeyInt(char const* file, char const* key, int defaultOnly);

    // The same as a double: -9.0 when the text does not begin with a number ("MAX" included).
    double ReadKeyDouble(char const* file, char const* key, int defaultOnly);

    // Writes a key as CKvarnPAR::WriteKey does, with its result. Returns 0, and writes nothing,
    // for any other file.
    int WriteKey(char const* file, CString key, CString value);

    // Writes a whole number; -1 as "MAX" when the key contains "SKALA" (in capitals).
    int WriteKey(char const* file, CString key, int value);

    // Writes a number with so many decimals (negative: 6).
    int WriteKey(char const* file, CString key, double value, int decimals);

    // A double without its decimals would be cut to a whole number.
    template <class T, class = typename std::enable_if<std::is_floating_point<T>::value>::type>
    int WriteKey(char const* file, CString key, T value) = delete;

    // Sets the process's numeric locale to one with the decimal point "." where it has another;
    // "English" on Windows. Returns 0 when the point is "." now, else -1. The library's own numbers
    // do not depend on it.
    static int LocaleCheckAndFix();

    CAutoIni* m_ini = nullptr;      // not owned
    CProjPath* m_proj = nullptr;    // not owned
    class PassFil* m_fil = nullptr; // the file of a sequential pass; there are no passes yet
};
