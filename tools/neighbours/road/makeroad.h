// From another program's alignment to a road file.
#pragma once

#include <string>
#include <vector>

#include "alignment.h"

namespace kvarnio {

struct MakingRoad {
    double tolerance = 0.001; // metres that arcs may leave what they stand for, and ends may gape
    bool exact = false;       // nothing is approximated
};

struct MadeRoad {
    Road road;
    std::vector<std::string> notes; // what stands in the file otherwise than there, in sentences
    double deviation = 0;           // the largest of the plan, in metres
    double heightDifference = 0;    // and of the heights
};

// Spirals become arcs, parabolas become circular curves, and arcs are divided where the file's four
// decimals would move them by more than the tolerance. Throws NotTaken for what has no place in a
// road file.
MadeRoad MakeRoad(Alignment const& alignment, MakingRoad const& how);

// The content of the road's file, as programs write it.
std::string RoadText(Road const& road);

} // namespace kvarnio
