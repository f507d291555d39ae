// The area beside a road in which its project works.
#pragma once

#include <optional>
#include <string>

#include <neighbours/road/roadfigures.h>

#include "../context.h"
#include "roadfile.h"

namespace kvarnio {

// That of the project's area file where it names this road, otherwise the usual band; nothing for a
// road without a plan.
std::optional<Area> AreaOf(Context const& context, RoadFile& file);

// A path of the library without its folders.
std::string FileNameOf(std::string const& path);

} // namespace kvarnio
