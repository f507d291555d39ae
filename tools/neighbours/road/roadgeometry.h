// The segments of road lines as figures: lengths, extents, points on them. The plane is that of the
// vertices: x up, y to the right.
#pragma once

#include <algorithm>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include <geodata/segments.h>
#include <geodata/vaglinje.h>

namespace kvarnio {

using RoadPoint = kvarn::Point;

// Metres by which a segment's length and that of its stations may differ: old files have stations
// rounded. More is a jump.
inline constexpr double stationRounding = 0.01;

// The smallest upright rectangle around points; points that are not finite are passed over.
struct Extent {
    double minX = std::numeric_limits<double>::infinity();
    double maxX = -std::numeric_limits<double>::infinity();
    double minY = std::numeric_limits<double>::infinity();
    double maxY = -std::numeric_limits<double>::infinity();

    bool Empty() const { return !(minX <= maxX); }
    void Add(RoadPoint p);
    Extent Grown(double margin) const;
};

class Segment {
  public:
    Segment(RoadPoint from, RoadPoint to, double bulge);
    Segment(kovltype const& from, kovltype const& to)
        : Segment({from.x, from.y}, {to.x, to.y}, from.bulge) {}

    bool IsArc() const { return m_isArc; }
    RoadPoint From() const { return m_from; }
    RoadPoint To() const { return m_to; }
    double Bulge() const { return m_bulge; }
    double Radius() const { return m_circle.radius; }
    RoadPoint Centre() const { return m_circle.centre; }
    double Length() const;

    // At a fraction of its length.
    RoadPoint At(double fraction) const;
    // There, a step of length one towards positive offsets.
    RoadPoint Across(double fraction) const;
    // The piece between two fractions.
    Segment Part(double from, double to) const;
    // The parallel at an offset; an arc shrinks at most to its centre.
    Segment Beside(double offset) const;

    void AddTo(Extent& extent) const;

  private:
    double Bearing(double fraction) const { return m_bearing + fraction * m_sweep; }

    RoadPoint m_from;
    RoadPoint m_to;
    double m_bulge;
    bool m_isArc;
    kvarn::Circle m_circle{};
    double m_bearing = 0; // of the start from the centre, from the y axis towards the x axis
    double m_sweep = 0;   // to the end
};

// Whether the stations of its ends may differ by so many metres, without a jump.
bool IsAsLongAs(Segment const& segment, double stations);

// The bearing of travel at a fraction of the segment's length, in gon, clockwise from north;
// nothing where it has no direction.
std::optional<double> BearingAt(Segment const& segment, double fraction);

// Whether a vertex can be drawn and measured.
bool IsFinite(kovltype const& v);

Extent ExtentOf(std::span<kovltype const> vertices);
double LengthOf(std::span<kovltype const> vertices);

} // namespace kvarnio
