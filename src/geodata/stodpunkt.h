// The file of support points: a header, a level, and named points.
#pragma once

#include <cstdint>

#include "../core/list0.h"
#include "../export.h"
#include "../host/host.h"

// A support point.
struct stdpkttype {
    char namn[12];   // at most 11 characters
    float niva;      // level
    float varden[6]; // its values, see CStodPunkt's constructor
};

// What the six numbers mean is the business of the programs.
struct stdhuvudtype {
    double varden[5];        // the first five
    float varde6;            // see CStodPunkt's constructor
    unsigned char ovrigt[4]; // the rest of the sixth
};

extern template class KVARNPROG_LIST_DECLARE list0<stdpkttype>;

// The support points of a file, with what stands in its header.
class KVARNPROG_API CStodPunkt : public list0<stdpkttype> {
  public:
    // Reads a file; null makes an object without points, with the header m_standardhuvud.
    //
    // The file is text. Its first six lines are the header's numbers, one a line; a line that is
    // empty or begins with "*" leaves its number as it is (the sixth is 0 then, and where it is
    // missing). The next line that begins with "*" or is empty ends the header. Then come blocks
    // of three lines up to one that begins with "*": "gvy" in any case, the level and a line that
    // is skipped; or a point's name (its first word, cut at 11 characters, DOS letters converted),
    // its level and its six values. A file that ends inside a block is kept as far as it was read.
    //
    // Known quirk, kept on purpose: the six values are parsed from the shared message buffer
    // (MessageBuffer), not from their line. The sixth number of the header is parsed as a double
    // into the place of the float and the four bytes after it: the float holds half of its bits.
    //
    // A file that cannot be opened, or not be read to its end, is shown
    // ("Kan ej oppna stodpunkt : %s", with o-umlauts, through the message buffer), and nothing of
    // it is kept.
    explicit CStodPunkt(char const* path = nullptr);
    virtual ~CStodPunkt();

    // Writes the file anew, all or nothing: the header with six decimals, the level when it is not
    // 0 and the points' with four, their values with two, and a "*" after the last point. Null: to
    // the file that was read. Returns 0, or -1 when it could not be written; one that cannot be
    // opened ("Kan ej skapa/uppdatera stodpunkt : %s", null with nothing read too) is shown, and so
    // is the file that could not be read, which is not overwritten while it is there; a write that
    // fails is not. Moves the current element.
    int Uppdat(char const* path);
    // The same.
    int Uppdat(CString path);

    static stdhuvudtype m_standardhuvud; // all zero until a host sets it

    stdhuvudtype m_huvud; // the header
    float m_gvy;          // level; 0: none
    CString m_filnamn;    // path of the file that was read
    // Of that path without its last four characters: as many characters from the right as there are
    // up to its last "$". Empty without one.
    CString m_namn;
    std::int32_t m_skrivkrok; // 1; has no effect
    CStdioFile m_fil;         // never open between calls

  private:
    CString m_notRead; // a file that is there and could not be opened or not be read to its end
};
