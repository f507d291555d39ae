// The sheet formats of drawings.
#pragma once

#include <cstdint>

#include "../export.h"

// Sizes in millimetres.
struct ritningsformattype {
    char const* namn;
    double inreBredd; // what can be drawn on
    double inreHojd;
    double ramBredd; // the border
    double ramHojd;
    double arkBredd; // the sheet
    double arkHojd;
};

// The table of formats: A0 to A4 and their long variants, all but A4 in landscape. Every object has
// its own copy. Known quirk, kept on purpose, since drawings have these sizes: a sheet of A1 is
// 840 mm wide, one of A2L 841 mm.
class KVARNPROG_API CRitningsFormat {
  public:
    CRitningsFormat();
    CRitningsFormat(CRitningsFormat const&);
    CRitningsFormat& operator=(CRitningsFormat const&);
    virtual ~CRitningsFormat();

    // The index of a format, spelt exactly as in the table: 0 for "A0" to 8 for "A4". Returns -1
    // for any other name, for null and for a table without entries.
    int Format2Index(char const* namn);

    ritningsformattype m_format[9];
    std::int32_t m_antal; // of entries: 9
};
