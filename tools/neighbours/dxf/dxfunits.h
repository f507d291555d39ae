// The units that drawings are in, in metres.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvarnio::dxf {

struct DrawingUnit {
    double metres = 1;
    std::string note; // what the user is told of it; empty where the drawing is in metres
};

// By $INSUNITS, and by the unit that the user gives where one is given. Throws NotTaken for one
// that the user must confirm, or that is none.
DrawingUnit UnitOf(std::int64_t stated, std::string_view given);

// How a user would give the stated one; "m" for one that is none.
std::string_view SignOf(std::int64_t stated);

} // namespace kvarnio::dxf
