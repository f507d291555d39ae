// A road line for many questions: what can be computed once is, and nothing is walked.
#pragma once

#include "../export.h"
#include "vaglinje.h"

// A copy of a road line as it is when the index is made: vertices, type and area. It answers as the
// line does, with the same bits and results, in a time that hardly grows with the line. Making it
// takes about as long as twenty questions to the line. Only a point beyond the line's ends, which
// has its foot far away or none, takes as long as at the line.
//
// Nothing changes after it is made: several threads may ask the same index at once (as long as none
// sets CVaglinje::Seknoll). What happens to the line meanwhile does not matter, nor does its end.
// Unlike the line's own, these questions move no current element and no mark.
//
//     CVagindex const index(vag.plan);
//     index.Vagstv(antal, x, y, sektion, offset, resultat);
//
// Results are 0 for success and -1 for failure; what is written then is said in vaglinje.h with the
// line's operation of the same name. All is in metres.
class KVARNPROG_API CVagindex {
  public:
    // Neither moves the line's current element nor its mark. Throws ListFel
    // "Minnesbrist (Class CVagindex)" when memory is out: a vertex takes about 250 bytes.
    explicit CVagindex(CVaglinje const& linje);
    ~CVagindex();
    CVagindex(CVagindex const&) = delete;
    CVagindex& operator=(CVagindex const&) = delete;

    // The point at a station and an offset.
    int Vag2xy(double sektion, double offset, double* x, double* y) const;

    // The height of a profile at a station.
    int Vagprofz(double sektion, double* z) const;

    // Station and offset of a point, as in mode 0: from all of the line, then the vertices.
    int Vagstv(double x, double y, double* sektion, double* offset) const;

    // The same for points in the area, which is the line's when the index was made. The pointers
    // may be null; nothing is written for a point outside.
    int PktIomr(double x, double y, double* sektion, double* offset) const;

    // The same for arrays of antal elements, each answered by itself. An array of answers may be
    // one of those of questions: every element is read before it is written. resultat gets the
    // result of each element, unless it is null. Return how many succeeded.
    int Vag2xy(int antal, double const* sektion, double const* offset, double* x, double* y,
               int* resultat) const;
    // The heights of stations, in the same way.
    int Vagprofz(int antal, double const* sektion, double* z, int* resultat) const;
    // Stations and offsets of points, in the same way.
    int Vagstv(int antal, double const* x, double const* y, double* sektion, double* offset,
               int* resultat) const;
    // Those of points in the area, in the same way.
    int PktIomr(int antal, double const* x, double const* y, double* sektion, double* offset,
                int* resultat) const;

  private:
    struct Innehall;

    Innehall const* m_innehall;
};
