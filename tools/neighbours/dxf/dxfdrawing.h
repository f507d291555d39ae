// What a DXF text holds that roads are made of.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "../road/roadgeometry.h"

namespace kvarnio::dxf {

// Points are those of a road: X of the drawing is their y, and Y is their x.
struct Vertex {
    RoadPoint at;
    double bulge;
    std::size_t line;
};

struct Polyline {
    std::string_view type;
    std::size_t line;
    bool isClosed = false;
    bool hasHeights = false;
    std::uint64_t dictionary = 0; // handle of what is attached to it
    std::vector<Vertex> vertices;
};

// A LINE, or an ARC, counter-clockwise.
struct Edge {
    RoadPoint from;
    RoadPoint to;
    double bulge; // 0: a LINE
    std::size_t line;
    bool hasHeights;

    char const* Type() const { return bulge != 0 ? "ARC" : "LINE"; }
};

struct Layer {
    std::string name; // UTF-8
    std::vector<Polyline> polylines;
    std::vector<Edge> edges;
    std::map<std::string_view, std::size_t> others; // entities of other types, counted
};

// What the writer attaches to a road's line.
struct RoadRecord {
    std::string name;
    std::vector<double> stations; // of each vertex
    std::vector<double> lengths;  // of the segment from there, 0 behind the last one
};

struct Drawing {
    std::int64_t unit = 0; // $INSUNITS
    std::vector<Layer> layers;
    std::map<std::uint64_t, std::uint64_t> recordOf; // by the handle of a dictionary
    std::map<std::uint64_t, RoadRecord> records;     // by their handles
};

// Views in it are of the text. Throws NotTaken, with the line, for what is no drawing.
Drawing ReadDrawing(std::string_view text);

// A layer's name as names are compared: the case of letters does not count.
std::string LayerKey(std::string_view utf8);

} // namespace kvarnio::dxf
