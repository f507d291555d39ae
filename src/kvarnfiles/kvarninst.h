// The settings facade: keys of the settings files with built-in defaults, the code files, and a
// project's own copies of them.
#pragma once

#include <type_traits>

#include "../export.h"
#include "../host/host.h"
#include "../project/projpath.h"
#include "../settings/autoini.h"
#include "nyckelvarde.h"

namespace kvarn {
class CodePass;
}

// Construct, call Init, then read and write. Every text is in code page 1252; of a file that is
// missing in the project folder the copy in the CFG directory is taken, else the one in the main
// directory (see ProjInst). An empty project folder or directory holds no file.
//
// SETTINGS. The keys of three files, named by their plain file names without regard to case:
// CProjPath::KvarnParNamn and StenParNamn (see CKvarnPAR) and Jb23ParNamn (see Jb23ReadKey). Every
// call reads the file afresh, so a value that was written is seen by the next call. Values are
// text: numbers with a decimal point, "JA" and "NEJ", "MAX" for an open scale. Messages are those
// of CKvarnPAR and Jb23ReadKey.
//
// PASSES. The code file, the environmental codes, the line codes and the title block are read and
// written one record a call. An object has at most one file open so. A call that begins to write
// first closes whatever file is open (no end line is written), and so does a call that reads, where
// another kind of file is being read. Any other call that meets a pass which is not its own touches
// no file: a read answers as at the end, a write as with no file open. A pass works in the file
// itself, and each record is in it when the call returns; while it writes, no other program or
// object can write the file. After a write that failed, on a full disk for one, nothing more is
// written in that pass, and each call answers -1 where it can. A pass that cannot read its file to
// the end shows the box of a file that cannot be opened; the object then does not begin to write
// that file, as one that cannot be opened, until it has read it whole (the environmental codes: to
// the end of section 3).
//
// Buffers for words and texts hold at least 256 bytes each: what is longer is cut at 255 and a
// zero. They are written only where that is said. No pointer for a result may be null where that is
// not said.
//
// A file that cannot be opened is told in a message box owned by the desktop, with the exclamation
// icon: "Kan inte oppna -filen\n%s\nAvbryter lasning!", or "...\nAvbryter!" when it was to be
// written, with its path and a caption of its own. (In these headers a quoted text has a and o
// where the text that users see has letters with dots.)
//
// A copy shares the pointers, and a pass that is under way: whoever goes on with it reads or writes
// its next record, and when it is finished it is for both.
class KVARNPROG_API CKvarnInst {
  public:
    // Without settings object, project and pass: Init comes first.
    CKvarnInst();
    // Shares the pointers and the pass, see above.
    CKvarnInst(CKvarnInst const&);
    // Lets its own pass go, as the destructor does, and shares those of the other object.
    CKvarnInst& operator=(CKvarnInst const&);
    // A pass that is under way keeps its file open, where one that writes keeps other writers out:
    // finish it first.
    virtual ~CKvarnInst();

    // Takes the settings object and the project's paths, which stay the caller's and must outlive
    // this object. Returns 0.
    int Init(CAutoIni* ini, CProjPath* projekt);

    // The settings object that Init was given; null before that.
    CAutoIni* AiniPtr() const;
    // Stores both of Init's objects, or null before that. Neither pointer may be null.
    void GetAiniProjPath(CAutoIni** ini, CProjPath** projekt) const;

    // The built-in default of a key; empty for a key or a file that has none.
    CString Default(char const* file, CString key);

    // The value of a key as the file has it, or its default when the value is missing or empty.
    // Empty for any other file.
    CString ReadKey(char const* file, CString key);
    // The same.
    CString ReadKey(char const* file, char const* key);

    // The value, or its default alone when defaultOnly is not 0, as a number: the whole number
    // that the text begins with; -9 when it begins with none, -1 for "MAX" in any case.
    int ReadKeyInt(char const* file, char const* key, int defaultOnly);

    // The same as a double: -9.0 when the text does not begin with a number ("MAX" included).
    double ReadKeyDouble(char const* file, char const* key, int defaultOnly);

    // Writes a key as CKvarnPAR::WriteKey does, with its result, or as Jb23WriteKey, and reports 0
    // (-1 only where that file exists and could not be read to its end). Returns 0, and writes
    // nothing, for any other file.
    int WriteKey(char const* file, CString key, CString value);

    // Writes a whole number; -1 as "MAX" when the key contains "SKALA" (in capitals). Results and
    // messages are those of the text form.
    int WriteKey(char const* file, CString key, int value);

    // Writes a number with so many decimals (negative: 6) and a decimal point, whatever locale the
    // process has. Results and messages are those of the text form.
    int WriteKey(char const* file, CString key, double value, int decimals);

    // Writes several keys of one file as so many calls of WriteKey would, but rewrites the file
    // once, with all of them or none. Sets the result of each: 0 when it is written; -1 when the
    // key has 40 characters or more, or the value more than 259; -2 when nothing is written because
    // of another, or because the file cannot be read to its end or written. Returns 0 when all
    // results are 0, else -1. Messages are those of WriteKey, each shown once. Of equal keys the
    // last counts (scales: their place). Null keys or a count below 1: returns 0, and nothing is
    // done.
    int WriteKeys(char const* file, nyckelvarde* nycklar, int antal);

    // A double without its decimals would be cut to a whole number.
    template <class T, class = typename std::enable_if<std::is_floating_point<T>::value>::type>
    int WriteKey(char const* file, CString key, T value) = delete;

    // Sets the process's numeric locale to one with the decimal point "." where it has another;
    // "English" on Windows. Returns 0 when the point is "." now, else -1. The library's own numbers
    // do not depend on it.
    static int LocaleCheckAndFix();

    // --- A project's own copies ------------------------------------------------------------------
    //
    // A project folder that holds "KVARNBOK.PAR" has settings of its own: that file, LINKOD.PAR,
    // KODFIL.DAT, Stenkod.dat, StenkodN.dat, JB23.PAR and MILJKOD.DAT. "KLIPPBOK.PAR" of the
    // rock-drilling program is kept apart. A file is copied from the CFG directory, else from the
    // main directory; where neither has it a file of lines "*" is made (not for the two Stenkod
    // files). Nothing is reported, and a file that fails does not stop the others. A copy takes its
    // name when it is whole, and has the attributes (read-only too) and the time of its source.

    // 1 when the project has settings of its own, whose missing files are then copied as by
    // CreateLokalaFiler(0, 0); else 0, and nothing is done.
    int ProjInst();
    // 1 when the project has a "KLIPPBOK.PAR" of its own, else 0.
    int ProjStenInst();

    // Copies what the project does not have; "KVARNBOK.PAR" only when withParFile is not 0. When
    // overwrite is not 0 it replaces LINKOD.PAR, KODFIL.DAT, JB23.PAR and MILJKOD.DAT, never the
    // others: with the lines "*" too, where neither directory has the file. A pass that is under
    // way on one of the project's files that are replaced is closed; any other goes on. Returns 0.
    int CreateLokalaFiler(int overwrite, int withParFile);
    // Copies "KLIPPBOK.PAR" where the project has none, whatever overwrite says. Returns 0.
    int CreateLokalStenFil(int overwrite);

    // Deletes the project's copies, and closes a pass that is under way on one of them;
    // "KLIPPBOK.PAR" is left to the second, which deletes it alone. They return 0.
    int RemoveLokalaFiler();
    // As above.
    int RemoveLokalStenFil();

    // --- Jb2/Jb3 scales --------------------------------------------------------------------------
    //
    // JB23.PAR has a line for each quantity, with its scale and its step as two words. Keys are
    // compared as they are spelt: "SJUNKSKALA" and "SJUNKSTEG" are line 1, then HAST, KRAFT, RPM,
    // SPOL, FLODE, HAMMAR, TRYCK, QT, FT and U. Any other key is line 1, its step when it contains
    // "STEG". Callers use ReadKey and WriteKey, which know the defaults.

    // The word, empty where there is none. Caption: "Lasning av Kvarnbok - jb2/3 installningar".
    CString Jb23ReadKey(CString key);

    // Puts the value into its line and keeps the other lines; in a file with fewer lines it appends
    // one, with a 0 for the other word, whichever line the key has. Where no file exists one is
    // made in the CFG directory: with the step 50 for "SJUNKSKALA", empty for any other key. The
    // file is replaced through JB23.tmp beside it; where that cannot be made, or the file not be
    // read, nothing changes. An empty scale leaves the step as the line's first word, which is then
    // read as the scale. Returns the value; shows no message.
    CString Jb23WriteKey(CString key, CString value);

    // --- Code file: KODFIL.DAT -------------------------------------------------------------------
    //
    // A header of free lines up to the first that begins with "*"; then a code and one word of text
    // a line. A line with fewer words is skipped, what follows the second word is not read.

    // The next code, with its text: 0. At the end -1, and the file is closed; -1 too where there is
    // no file, or it cannot be opened. Caption: "Lasning av Markvida - kodfil.dat installningar".
    int KodfilDatRead(char* code, char* text);

    // Writes the file that exists anew: mode 1 carries its header over and writes the record, 0
    // writes a record, 2 a record and the end line "*", then closes the file; 3 is 1 and 2 in one
    // call. (Below 0 as 0, above 3 as 2.) An empty or null code writes no record. Where no file
    // exists nothing is written. Header and first record take the file's place by one step, with a
    // copy of the old file beside it as KODFIL.tmp until then; where something else has that name
    // the header is empty, and where the disk is full nothing changes. Caption: "Skrivning av
    // Kvarnbok - kodfil.dat installningar", with both paths, also for a write that fails, which
    // ends the pass. Returns 0.
    int KodfilDatWrite(int mode, char const* code, char const* text);

    // --- Environmental codes: MILJKOD.DAT --------------------------------------------------------
    //
    // A header up to the first line that begins with "*", then sections 0 (empty) to 3, each ended
    // by such a line: 1 methods, 2 interpretations, 3 contamination classes, these with a maximum
    // and a step for the diagram: "FK Text max=6 steg=1". A code has at most four characters; a
    // line with a longer one is shown in a message box, "Fel rad, namn ar for langt\n%s", and
    // skipped.

    // The next record of a section (the section counts when the file is opened): 0. At its end -1,
    // and the file is closed; -1 too where there is no file or no such section, or the file cannot
    // be opened. With max and step the end of the text is read into them and cut off, with the
    // character before it: a step outside 1..100000, or none, is 20, a maximum outside 0..100000
    // is 100. "max=" comes before "steg=", in any case, and neither begins the text; what follows
    // a number goes with it. Without one of them (null) the text is whole. Its DOS letters are
    // converted (and not back when written). Caption: "Lasning av Kvarnbok - Miljkod.dat
    // installningar".
    int MiljkodRead(int section, char* code, char* text, int* max, int* step);

    // Writes the file that exists anew, in this order: mode 1 begins, with an empty header and an
    // empty section 0; 2 writes a record of section 1, 3 ends it; 4 and 5 the same of section 2, 6
    // (with max and step) and 7 of section 3, where 7 closes the file. Any other mode does nothing.
    // Returns 0; -1 for a mode other than 1 without an open file. Caption:
    // "Skrivning av Kvarnbok - Miljkod.dat installningar".
    int MiljKodWrite(int mode, char const* code, char const* text, int max, int step);

    // Adds the codes that programs rely on where they are missing: "X" to section 1, "TOLK" to 2
    // and "FK" to 3. The file is then rewritten in one step, with what MiljkodRead reads of it:
    // header, section 0 and skipped lines are gone, and a record of section 3 without a text gets
    // its maximum as one; a code that begins with "*" gets a blank before it, since its line would
    // end the section. A file that has all three is not touched, and one that cannot be read to its
    // end neither. Closes a pass that is under way. Shows the boxes of MiljkodRead, and that of
    // MiljKodWrite when it cannot be written. Returns 0.
    int MiljkodUppdatX();

    // --- Line codes: LINKOD.PAR ------------------------------------------------------------------
    //
    // A line: code, word, number, whole number (0 when left out), and from column 49 (counted from
    // 0) a free text. A line that begins with "*" ends the file.

    // The next line: 1, or, for a code "PV" and a number, the code without "PV", 2 up to 99 and 3
    // from 100 on ("PV1" is too short for one). 0 at the end, and the file is closed; 0 too where
    // there is no file. -1 when it cannot be opened. -2 for a line with fewer than three values, of
    // which those that it has are written; the next call goes on. DOS letters of code and text are
    // converted. Caption: "Lasning av Kvarnbok - Linkod.dat installningar".
    int LinkodRead(char* code, char* word, char* text, double* number, int* integer);

    // Writes the file that exists anew: mode 1 begins; 2 writes a line of a, b and c (code, word
    // and number), 4 the same with "PV" before a, and with e (the whole number); 5 writes the end
    // line and closes. Any other mode does nothing. The text begins at column 49; what reaches
    // beyond it of the first part is lost. Null texts are empty. Returns 0; -1 for a mode other
    // than 1 without an open file. Caption: "Skrivning av Kvarnbok - Linkod.par installningar".
    int LinkodWrite(int mode, char const* a, char const* b, char const* c, char const* text,
                    char const* e);

    // --- Title block -----------------------------------------------------------------------------
    //
    // A file that the caller names: two words and three numbers a line. A line that begins with "*"
    // ends it.

    // The next line of the file (whose path counts when it is opened): 1. 0 at the end, and the
    // file is closed; 0 too for an empty path. -1 when it cannot be opened. -2 for a line with
    // fewer than two numbers, of which what it has is written; the next call goes on. The third
    // number is 3.0 when left out. DOS letters of the first word are converted. Caption:
    // "Lasning av Kvarnbok - Stampel installningar".
    int StampParRead(char const* path, char* word1, char* word2, double* num1, double* num2,
                     double* num3);

    // Mode 1 makes the file anew, 2 writes a line of the five texts, 3 closes it (and writes no end
    // line). Any other mode does nothing. Null texts are empty. Returns 0; -1 for a mode other than
    // 1 without an open file. Caption: "Skrivning av Kvarnbok - Stampel installningar".
    int StampParWrite(char const* path, int mode, char const* s1, char const* s2, char const* s3,
                      char const* s4, char const* s5);

    CAutoIni* m_ini = nullptr;        // not owned
    CProjPath* m_proj = nullptr;      // not owned
    kvarn::CodePass* m_fil = nullptr; // the pass under way

  private:
    CString m_notRead[7]; // the files whose reading passes did not come to their end
};
