// A road as a picture.
#pragma once

#include <string>

#include "plotfigures.h"

namespace kvarnio {

// What is told of the road on the sheet, in UTF-8.
struct PlotText {
    std::string name;
    std::string file;
};

struct Plot {
    std::string svg;
    std::size_t leftOut; // vertices and segments that could not be drawn
};

// The area is drawn where one is given. Throws Failure where there is nothing to draw.
Plot PlotRoad(std::vector<kovltype> const& plan, std::vector<kovltype> const& profile,
              std::optional<Area> const& area, PlotText const& text);

} // namespace kvarnio
