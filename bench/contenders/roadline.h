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
    double bulge; // of the segment to the next vertex
    double station;
};

class RoadLine {
  public:
    RoadLine() = default;
    RoadLine(RoadLine const&) = delete;
    RoadLine& operator=(RoadLine const&) = delete;
    virtual ~RoadLine() = default;

    // Each does one of them at least.
    virtual RoadPoint ToRoad(Point) { return {}; }
    virtual Point ToPlane(RoadPoint) { return {}; }
};

using RoadVertices = std::vector<RoadVertex>;

// --- To the road ---------------------------------------------------------------------------------

// The line, or the index made from a line. To the plane as well.
std::unique_ptr<RoadLine> OurLine(RoadVertices const& vertices);
std::unique_ptr<RoadLine> OurIndex(RoadVertices const& vertices);
// Search the line from its start to its end, for chords.
std::unique_ptr<RoadLine> GeosLine(RoadVertices const& vertices);
std::unique_ptr<RoadLine> BoostLine(RoadVertices const& vertices);
// With an R*-tree over the segments, which is made here.
std::unique_ptr<RoadLine> BoostTree(RoadVertices const& vertices);
// The bare limit: all segments in flat arrays, straights several at a time.
std::unique_ptr<RoadLine> FlatStraights(RoadVertices const& vertices);
std::unique_ptr<RoadLine> FlatArcs(RoadVertices const& vertices);

// --- To the plane --------------------------------------------------------------------------------

// Straights, found by their stations: in a tree, by bisection, or from where the last one was.
std::unique_ptr<RoadLine> MapOfStations(RoadVertices const& vertices);
std::unique_ptr<RoadLine> BisectedStations(RoadVertices const& vertices);
std::unique_ptr<RoadLine> StationsWithCursor(RoadVertices const& vertices);

// Makes an index from a line that is there, as often as it is called.
class IndexMaker {
  public:
    IndexMaker() = default;
    IndexMaker(IndexMaker const&) = delete;
    IndexMaker& operator=(IndexMaker const&) = delete;
    virtual ~IndexMaker() = default;

    virtual void Make() = 0;
};
std::unique_ptr<IndexMaker> OurIndexMaker(RoadVertices const& vertices);
std::unique_ptr<IndexMaker> BoostTreeMaker(RoadVertices const& vertices);

// Signed offset of a point from the segment on which its foot lies, positive to the left where x
// points right and y up.
double SignedOffset(Point from, Point to, Point point, double distance);
