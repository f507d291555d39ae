// The vertices of road lines; what the numbers mean is said in vaglinje.h.
#pragma once

#include <cstdint>

// A vertex. In a profile x is the height, y the station and so is sektion.
struct kovltype {
    double x;       // northing
    double y;       // easting
    double bulge;   // of the segment from this vertex to the next
    double sektion; // station
};

// A vertex without its station.
struct kokotype {
    double x;     // northing
    double y;     // easting
    double bulge; // as above
};

namespace kvarn {

// Types of road lines; 0 is not stated, and counts as a plan or as a profile as it is used.
constexpr std::int32_t vagtypPlan = 1;    // coordinates by station
constexpr std::int32_t vagtypProfil = 10; // heights by station

} // namespace kvarn
