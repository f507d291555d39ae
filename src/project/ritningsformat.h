// The sheet formats of drawings.
#pragma once

#include <cstdint>

#include "../export.h"

// A format of sheets. Sizes in millimetres.
struct ritningsformattype {
    char const* namn; // as "A3L"
    double inreBredd; // what can be drawn on: width
    double inreHojd;  // and height
    double ramBredd;  // the border: width
    double ramHojd;   // and height
    double arkBredd;  // the sheet: width
    double arkHojd;   // and height
};

// The table of formats: A0 to A4 and their long variants, all but A4 in landscape. Every object has
// its own copy. Known quirk, kept on purpose, since drawings have these sizes: a sheet of A1 is
// 840 mm wide, one of A2L 841 mm.
class KVARNPROG_API CRitningsFormat {
  public:
    // With the table below.
    CRitningsFormat();
    // A copy of the table.
    CRitningsFormat(CRitningsFormat const&);
    // Becomes such a copy.
    CRitningsFormat& operator=(CRitningsFormat const&);
    virtual ~CRitningsFormat();

    // The index of a format, spelt exactly as in the table: 0 for "A0" to 8 for "A4". Returns -1
    // for any other name, for null and for a table without entries.
    int Format2Index(char const* namn);

    ritningsformattype m_format[9]; // the table
    std::int32_t m_antal;           // of entries: 9
};
