// The kinds of rock, fill and soil that drawings show, and the file that completes them.
#pragma once

#include <cstdint>

#include "../core/list0.h"
#include "../export.h"
#include "../host/host.h"
#include "../project/projpath.h"
#include "../settings/autoini.h"

// A material.
struct bergmattype {
    std::int16_t nr;      // negative: a user's own
    std::int16_t monster; // pattern, 1 to 256
    std::int16_t flagga;  // of a user's own alone
    double skala;         // at least 0.01
    double vinkel;        // radians
    char namn[31];        // cut at 30 characters
    char text[17];        // empty: none
};

extern template class KVARNPROG_LIST_DECLARE list0<bergmattype>;

// A numbered list of materials. It begins with built-in ones; those of rock and fill are completed
// and overridden from the file "Stenkod.dat" ("StenkodN.dat" for the Norwegian tables), of which
// the project's copy is taken, else that in the CFG directory, else that in the main directory.
//
// The file is text in sections, each ended by a line that begins with "*": rock comes after the
// second such line, fill after the third. A line is number, name, text, scale, pattern, angle (in
// degrees when read) and flag, or number and name alone.
class KVARNPROG_API CBergOrMateLista : public list0<bergmattype> {
  public:
    // slag: 0 rock, 1 fill, any other soil. norsk: 1 the Norwegian tables and file, any other the
    // Swedish. The settings object may be null; the project may not for Init and Save to find a
    // file of its own. Both stay the caller's and must outlive the list, which is empty until Init.
    CBergOrMateLista(CAutoIni* ini, CProjPath* projekt, int slag, int norsk);
    virtual ~CBergOrMateLista();

    // Appends entry 0, named " ", and the table's entries from 1 on, each with pattern 4, scale 1,
    // angle 0, flag 0 and no text; soil is complete with that. A line of the file with the number
    // of an entry gives it its text, scale and angle, and from the table's count on its name too;
    // any other line, a negative number's always, becomes a new entry at the end. What a line
    // leaves out is as in the table, and so are a pattern outside 1..256 and a scale below 0.01.
    // A line of fewer than two values is ignored; a name is cut at 30 characters, a text at 16. In
    // Norwegian lists a line of number 31 that begins with "Ikke" is skipped, and from there on the
    // file's numbers are one higher than the list's. Called twice it appends all again.
    //
    // Returns 0, also without a file and for one that cannot be read, of which nothing is taken.
    // Throws ListFel when memory is out.
    int Init();

    // Writes this list into its section of the file that exists, then other's numbers and names as
    // the next section (null: an empty one), and drops all that followed. Where the section is
    // missing it is added at the end, with the lines "*" that are missing before it. Angles are
    // written as they are held, in radians, and read again as degrees: a known
    // quirk, kept on purpose. The file holds the
    // old content or the new, never a half.
    //
    // Returns 0; -1 where there is no file, and for soil, which has no section; -2 when it cannot
    // be opened, not be read to its end (now, or when Init read it) or not be written. Moves the
    // current element of both.
    int Save(CBergOrMateLista* other);

    // The name of the first entry with the number; "??" when there is none.
    CString Find(int nr);
    // The number of the first entry with the name, in any case; 0 when there is none.
    int FindNr(CString& name);

    static char const* const BERGARTER[21];     // rock
    static char const* const JORDARTER[12];     // soil, with blanks to three characters
    static char const* const FYLLNAD[13];       // fill
    static char const* const BERGARTERN[64];    // Norwegian rock; the last is empty
    static char const* const JORDARTERN[12];    // Norwegian soil
    static char const* const FYLLNADN[13];      // Norwegian fill
    static char const* const APPBERGARTERN[64]; // Norwegian rock as programs show it
    static char const* const FILNAMN;           // "Stenkod.dat"
    static char const* const FILNAMNN;          // "StenkodN.dat"

    std::int32_t m_slag;  // as constructed
    std::int32_t m_norsk; // as constructed
    CAutoIni* m_ini;      // not owned
    CProjPath* m_proj;    // not owned

  private:
    CString m_notRead; // a file that is there and could not be opened or not be read to its end
};
