// What is wrong with a road file, or will surprise those who ask it.
#pragma once

#include <vector>

#include "../shared/finding.h"
#include "../shared/road/roadfile.h"

namespace kvarnio {

// In the order of the file's lines. The tolerance is the difference in metres that is allowed
// between a segment's length and that of its stations.
std::vector<Finding> CheckRoad(RoadFile const& file, double tolerance);

} // namespace kvarnio
