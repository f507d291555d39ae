// Drawings in DXF: roads out of them and into them. In a drawing X is east and Y is north; bulges
// are positive for turns to the left, as in a road file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "../road/alignment.h"
#include "../road/roadfigures.h"

namespace kvarnio {

struct DxfChoice {
    std::string layer; // UTF-8; empty: that of ToDxf's line where there is one, otherwise all
    double tolerance = 0.001; // metres, within which ends of lines and arcs meet
    std::string unit;         // "m", "ft" and so on; empty: the one that the drawing states
};

// What may be an alignment: a polyline, or lines and arcs that meet.
struct DxfCandidate {
    std::string layer; // UTF-8, on one line
    std::string what;  // chain of 3 LINE and 2 ARC
    std::string where; // line 40, from N 6580412.3600 E 153207.8500 to ...
};

// The only one on the layer. Throws NotTaken, with what there is, where there is none or more than
// one, and for a text that is no such drawing.
Alignment ReadDxf(std::string_view text, DxfChoice const& choice = {});

// All of them, on all layers or on the one that is chosen.
std::vector<DxfCandidate> ListDxf(std::string_view text, DxfChoice const& choice = {});

struct DxfDrawing {
    std::optional<double> interval; // metres between station texts; otherwise a round number
    std::optional<Area> area;
};

// The plan as one polyline, with its stations as texts and ticks, and the area as a closed one. The
// profile is not part of it. ReadDxf finds the name and every station again. Throws NotTaken for a
// plan that is no line, or whose stations do not go one way.
std::string ToDxf(Road const& road, DxfDrawing const& drawing = {});

} // namespace kvarnio
