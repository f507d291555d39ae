// The straights and arcs of a plan, as a list.
#pragma once

#include <span>

#include <geodata/vaglinje.h>

#include "../shared/output.h"

namespace kvarnio {

// Each with its stations, its length and radius in metres, and its bearings in gon, clockwise from
// north, at its start and its end.
Json ElementsOf(std::span<kovltype const> plan);

void PrintElements(Json const& elements);

} // namespace kvarnio
