// A road: its plan and its profile, kept in one road file, and the project's area file.
#pragma once

#include "../export.h"
#include "../host/host.h"
#include "../project/projpath.h"
#include "vaglinje.h"

// Results are 0 for success and -1 for failure.
class KVARNPROG_API CVag2 {
  public:
    // Empty lines of type 1 and 10, no names, the area 0, 0, -30, 30.
    CVag2();
    virtual ~CVag2();

    // Appends the records of a road file to both lines; null returns 0 and changes nothing.
    //
    // The file is a road-line file (CVaglinje::Init), of a plan or of a profile; a plan may be
    // followed by a profile, after the three lines "*", "Profil" and "*", with three numbers a
    // line: height, station and bulge. The header's type, 1 or 10, tells which it is; without one
    // it is a profile when the second and the fourth number agree to 0.1 in both of the first two
    // lines (they are the station there). Fills filnamn (from a path with a backslash) and namn,
    // and resets both lines' areas.
    //
    // Bad lines are reported as by CVaglinje and skipped. Known quirk, kept on purpose: in the part
    // after the stars they are kept while the first character in MessageBuffer is a star, with the
    // numbers that could be read and those of the line before for the others.
    //
    // -1 for a file that cannot be opened or not be read to its end, with the message of
    // CVaglinje::Init; nothing else has changed then.
    int Init(char const* path);
    // The same.
    int Init(CString path);

    // Writes the road file, with the road's name and the plan's type in its header (plan.namn is
    // not looked at); a profile without a plan as a road-line file of its own, after the road's
    // name was copied to profil.namn. The file holds the old content or the new, never a half.
    // Results and messages are those of CVaglinje::Uppdat.
    int Uppdat(char const* path);
    // The same.
    int Uppdat(CString path);

    // Reads the project's area file, project->m_kvarnVl, and then, by Init, the road file that it
    // names, in the folder project->m_kvarnDbf. The area file is text, lines of at most 255
    // characters: the user's own lines, up to the second that begins with a star, then the road
    // file's name, the stations and the offsets; what follows is free. (A line that begins with a
    // star instead of one of the three is taken for it.)
    //
    //     * Area of the road, 2024
    //     *
    //     Gamla vagen.vl
    //     0.000 1250.000
    //     -30.000 30.000
    //
    // A road file's name of exactly 255 characters fills its piece of the file: its line end is
    // taken for the stations' line, and the area file counts as incomplete.
    //
    // -1 without a message for a missing or incomplete area file and one that names no road file;
    // what was read until then stays, but of a line with one number of two nothing is taken. -1
    // with the message of Init for the road file.
    int ReadOmr(CProjPath* project);

    // Writes filnamn and the area, with three decimals, to the project's area file; what is
    // there up to the second line that begins with a star is kept, a new file begins with two such
    // lines. A file with fewer of them keeps all its lines and is not an area file afterwards
    // either: ReadOmr refuses it until the stars are put in.
    //
    // The new content, when it is whole, gets the name "vl.tmp" in the data folder (in place of
    // another program's file of that name, which is whole as well) and then takes the area file's
    // place in one step. -1 when it cannot get that name, when the area file is there but cannot
    // be read or not be opened for writing, and when a write fails: the area file then keeps its
    // old content. Two programs at once need no lock: the last one's content wins, whole.
    int SaveOmr(CProjPath* project);

    CVaglinje plan;    // the road's alignment
    CVaglinje profil;  // its heights
    char filnamn[256]; // of the road file, without its folder
    double omrSekFran; // the area to be drawn: stations from
    double omrSekTill; // to
    double omrAvstMin; // and offsets from
    double omrAvstMax; // to
    char namn[256];    // in the road file's header

  private:
    CString m_notRead; // a file that is there and could not be opened or not be read to its end
};
