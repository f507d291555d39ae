// The vertices of road lines; what the numbers mean is said in vaglinje.h.
#pragma once

#include <cstdint>

// A vertex. In a profile x is the height, y the station and so is sektion.
struct kovltype {
    double x;
    double y;
    double bulge; // of the segment from this vertex to the next
    double sektion;
};

// A vertex without its station.
struct kokotype {
    double x;
    double y;
    double bulge;
};

namespace kvarn {

// Types of road lines; 0 is not stated, and counts as a plan or as a profile as it is used.
constexpr std::int32_t vagtypPlan = 1;
constexpr std::int32_t vagtypProfil = 10;

} // namespace kvarn
