// The lines of a road file with their numbers: where each vertex stands, and what is not read.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "../finding.h"

namespace kvarnio {

struct RoadLines {
    std::vector<std::size_t> plan; // the line of each vertex
    std::vector<std::size_t> profile;
    std::vector<Finding> skipped; // lines that give no vertex
    std::vector<Finding> cut;     // text that is passed over on lines that do
};

// Of a road file with this content. Whether its lines of four numbers are a plan's or a profile's
// is what the library made of its header.
RoadLines ReadRoadLines(std::string_view content, bool isPlan);

} // namespace kvarnio
