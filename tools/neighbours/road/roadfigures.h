// What of a road can be drawn: its segments as figures, and its area.
#pragma once

#include <optional>
#include <vector>

#include "roadgeometry.h"

namespace kvarnio {

// A segment and the stations of its ends.
struct Piece {
    Segment figure;
    double fromStation;
    double toStation;
};

struct Figure {
    std::vector<Piece> pieces;
    std::vector<kovltype> vertices;
    std::size_t leftOut = 0; // vertices and segments that are not numbers, or too large
};

Figure FigureOf(std::vector<kovltype> const& vertices);

// Nothing for a figure without a vertex.
std::optional<Extent> ExtentOf(Figure const& figure);

struct Area {
    double fromStation;
    double toStation;
    double minOffset;
    double maxOffset;
};

bool IsFinite(Area const& area);

// Along one segment: its parallels at both offsets.
struct AreaPart {
    Segment minSide;
    Segment maxSide;
};

std::vector<AreaPart> AreaOf(Figure const& figure, Area const& area);

// Round the parts, along one side and back along the other; the last vertex leads to the first.
std::vector<kokotype> OutlineOf(std::vector<AreaPart> const& parts);

} // namespace kvarnio
