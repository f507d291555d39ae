// What of a road can be drawn: its segments as figures, and its area.
#pragma once

#include <optional>
#include <vector>

#include "plotlayout.h"
#include <neighbours/roadgeometry.h>

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

// Along one segment: its parallels at both offsets.
struct AreaPart {
    Segment minSide;
    Segment maxSide;
};

std::vector<AreaPart> AreaOf(Figure const& figure, Area const& area);

// Goes on with a path to the segment's end, or backwards to its start.
void Append(SvgPath& path, View const& view, Segment const& segment, bool backwards = false);

// The whole line as one path.
SvgPath PathOf(Figure const& figure, View const& view);

// Points along the line on the sheet, about a millimetre apart; a limited number of them.
std::vector<Point> PointsAlong(Figure const& figure, View const& view);

// Whether the vertices are so close on the sheet that marks would hide the line.
bool IsCrowded(Figure const& figure, View const& view);

// The direction of travel on the sheet, a step of length one.
Point DirectionAt(Segment const& segment, View const& view, double fraction);

double Distance(Point a, Point b);

} // namespace kvarnio
