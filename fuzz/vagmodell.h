// A road line's operations once more, over a vector and step by step, without thought of speed or
// elegance: what the fuzzer compares the library with. The rules are those of vaglinje.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "geodata/vaglinje.h"

// Where a walk along the line stopped.
struct Gang {
    bool found = false;
    std::size_t from = 0; // of a segment that was found: its start,
    std::size_t to = 0;   // and its end; otherwise the vertex at which the walk stopped
};

// What an operation returned and wrote; what it did not write keeps its value.
struct Svar {
    int result = 0;
    double first = 0;
    double second = 0;
    double third = 0;
};

class Vagmodell {
  public:
    std::vector<kovltype> v;
    std::int32_t typ = 0;
    double omrSekFran = 0;
    double omrSekTill = 0;
    double omrAvstMin = 0;
    double omrAvstMax = 0;

    // The answer holds what the caller's variables held before.
    Svar Pldist(double a1, double b1, double a2, double b2, double pa, double pb, Svar svar) const;
    Svar Padist(kovltype const& p1, kovltype const& p2, double px, double py, Svar svar) const;

    Svar Vag2xy(double sektion, double offset) const;
    Svar Vagprofz(double sektion) const;
    Svar Vagstv(double x, double y, int mode) const;
    Svar PktIomr(double x, double y, int mode, Svar svar) const;
    int Reset();
    int SektKorr(double x, double y, double sektion);
    int SektBerak(double start);
    int Extend(double before, double after);

    // The walks of Vag2xy and Vagprofz.
    Gang Sok(double sektion) const;
    Gang SokHojd(double sektion) const;

  private:
    bool Increasing() const;
    int ExtendStart(double before);
    int ExtendEnd(double after);
};

// Radius and centre (first, then second and third).
Svar BulgeToRadius(kokotype const& p1, kokotype const& p2);
// The bulge.
double RadiusToBulge(kokotype const& p1, kokotype const& p2, double radius);
