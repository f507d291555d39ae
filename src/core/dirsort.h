// The files of a folder, sorted by name, size or date.
#pragma once

#include <cstdint>

#include "../export.h"
#include "../host/host.h"
#include "list0.h"

// An entry of a folder, in code page 1252.
struct dirsorttype {
    char namn[260];       // long name
    char kortNamn[13];    // short name; without one the long name's first 12 characters
    char datum[13];       // of the last change, local: 2024-05-01
    char tid[6];          // of the last change, local: 09.05
    std::int32_t storlek; // the low 32 bits of the size in bytes; 1000 for 1 to 999 bytes
};

extern template class KVARNPROG_LIST_DECLARE list0<dirsorttype>;

// A list of the entries of folders.
class KVARNPROG_API CDirSort : public list0<dirsorttype> {
  public:
    // An empty list.
    CDirSort();
    virtual ~CDirSort();

    // Lists what matches the pattern, a path whose last part may hold wildcards, as FindFirstFile
    // takes it, and sorts the list.
    //
    // key     1 by the number that the name begins with, names without one last, then by the name
    //           in capitals; -1 by that number alone, descending
    //         2, -2 by size, ascending in both cases
    //         3 by date, ascending; -3 by the year alone, descending
    //         others: in the order in which the system finds the entries
    //         Equal entries keep their order; with -1 and -3 they are reversed. The time of day
    //         never counts.
    // clear   1: the list is emptied first; otherwise new entries follow the old ones, and all are
    //         sorted
    // mode    the mode during the call, for derived classes
    // folders 1: with folders, "." and ".." among them
    //
    // A pattern that ends in an extension without wildcards takes that extension alone: "*.DBF"
    // does not list X.DBFX, whose short name would fit. Dates outside 1970 to 2037 read
    // 1970-01-01.
    //
    // Returns 0, also when nothing is found. Throws ListFel when memory is out.
    int Init(char const* pattern, int key, int clear, int mode, int folders);

  protected:
    // As list0::Sortval, by the keys of Init.
    int Sortval(int nyckel) override;

    std::int32_t m_lage; // mode
};
