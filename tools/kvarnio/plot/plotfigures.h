// The figures of a road on the sheet: paths, and points along them.
#pragma once

#include <vector>

#include "plotlayout.h"
#include <neighbours/road/roadfigures.h>

namespace kvarnio {

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
