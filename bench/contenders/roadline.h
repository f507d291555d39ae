// Those who find stations on a line and points beside it.
#pragma once

#include <memory>
#include <vector>

struct Point {
    double x;
    double y;
};

struct RoadPoint {
    double station;
    double offset;
};

struct RoadVertex {
    Point point;
    double bulge; // of the segment to the next vertex; 0 for all but ours
    double station;
};

class RoadLine {
  public:
    RoadLine() = default;
    RoadLine(RoadLine const&) = delete;
    RoadLine& operator=(RoadLine const&) = delete;
    virtual ~RoadLine() = default;

    virtual RoadPoint ToRoad(Point point) = 0;
    virtual Point ToPlane(RoadPoint point) = 0;
};

using RoadVertices = std::vector<RoadVertex>;

std::unique_ptr<RoadLine> OurLine(RoadVertices const& vertices);
std::unique_ptr<RoadLine> GeosLine(RoadVertices const& vertices);
std::unique_ptr<RoadLine> BoostLine(RoadVertices const& vertices);
// With a spatial index over the segments, which is made here. ToRoad alone.
std::unique_ptr<RoadLine> BoostIndexedLine(RoadVertices const& vertices);

// Signed offset of a point from the segment on which its foot lies, positive to the left where x
// points right and y up.
double SignedOffset(Point from, Point to, Point point, double distance);
// A point moved sideways from the segment on which it lies.
Point Moved(Point from, Point to, Point point, double offset);
