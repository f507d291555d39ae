// Curves that a road file has no form for, or not to its four decimals: arcs of any bulge, spirals,
// parabolas. In the plane of a plan x is the northing and y the easting, in that of a profile x is
// the height and y the station; a heading is 0 towards x and grows to the left.
#pragma once

#include <vector>

#include "alignment.h"

namespace kvarnio {

double HeadingOf(RoadPoint vector);

class Curve {
  public:
    Curve() = default;
    Curve(Curve const&) = delete;
    Curve& operator=(Curve const&) = delete;
    virtual ~Curve() = default;

    // From 0 at the start to 1 at the end.
    virtual RoadPoint At(double part) const = 0;
    // Radians; it only grows or only falls along the curve, and may go beyond a full turn.
    virtual double Heading(double part) const = 0;
    // How far a road's segment leaves the curve between two of its parts, in metres.
    virtual double Deviation(kovltype const& from, kovltype const& to, double begin,
                             double end) const;
};

// An arc between two points that do not coincide.
class ArcCurve : public Curve {
  public:
    ArcCurve(RoadPoint from, RoadPoint to, double bulge);

    RoadPoint At(double part) const override;
    double Heading(double part) const override { return m_heading + part * m_turn; }

  private:
    Segment m_arc;
    double m_turn;
    double m_heading;
};

// A spiral between two points. The file's own length and curvatures say its shape; it is turned
// until it ends in the direction of its end.
class SpiralCurve : public Curve {
  public:
    SpiralCurve(RoadPoint from, RoadPoint to, Spiral const& spiral);

    // By how much the shape is longer or shorter than the two points are apart, in metres.
    double Misfit() const { return m_misfit; }

    RoadPoint At(double part) const override;
    double Heading(double part) const override;

  private:
    double Turned(double part) const; // from the start
    RoadPoint Step(double from, double to) const;

    Spiral m_spiral;
    RoadPoint m_from;
    double m_heading = 0; // of the start
    double m_misfit = 0;
    std::vector<RoadPoint> m_nodes; // evenly along the curve
};

// A vertical curve between two points of a profile whose gradient changes evenly.
class ParabolaCurve : public Curve {
  public:
    // gradients: height by station at both ends.
    ParabolaCurve(RoadPoint from, double gradientFrom, double gradientTo, double length);

    RoadPoint At(double part) const override;
    double Heading(double part) const override;
    // In height.
    double Deviation(kovltype const& from, kovltype const& to, double begin,
                     double end) const override;

  private:
    RoadPoint m_from;
    double m_gradient;
    double m_change;
    double m_length;
};

// How far the heights that programs compute between two vertices of a profile are from a vertical
// curve between two of its parts, in metres.
double HeightDifference(Curve const& curve, kovltype const& from, kovltype const& to, double begin,
                        double end);

} // namespace kvarnio
