// What is wrong with a road file, or will surprise those who ask it.
#pragma once

#include <string_view>
#include <vector>

#include "../finding.h"

namespace kvarnio {

// Of the file's content, in the order of its lines. The tolerance is the difference in metres that
// is allowed between a segment's length and that of its stations.
std::vector<Finding> CheckRoad(std::string_view content, double tolerance);

} // namespace kvarnio
