// A curve as arcs that a road file can hold.
#pragma once

#include <vector>

#include "curve.h"

namespace kvarnio {

// The start of an arc or a straight.
struct ArcStart {
    double part;  // of the curve
    RoadPoint at; // with the file's decimals, as the bulge
    double bulge;
};

struct Arcs {
    std::vector<ArcStart> starts;
    double deviation = 0; // the largest from the curve, in metres
};

// The nearest number that a road file can hold.
double AsInFile(double value);

// The fewest of the divisions that are tried which leave the curve by no more than the tolerance in
// metres. The arcs meet with common tangents, to the file's decimals: they end where the curve has
// turned a multiple of the angle that the last decimal of a bulge stands for. Without starts when
// no division is near enough.
Arcs ArcsAlong(Curve const& curve, double tolerance);

} // namespace kvarnio
