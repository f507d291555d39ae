// A road between its own file and those of other programs. x is the northing and y the easting, in
// metres; to the left is positive.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "roadgeometry.h"

namespace kvarnio {

// A road as its own file has it: straights and arcs.
struct Road {
    std::string name; // UTF-8
    std::vector<kovltype> plan;
    std::vector<kovltype> profile;
};

// How the curvature of a spiral changes along it, between those of its ends.
enum class SpiralLaw { clothoid, bloss, cosine, sinusoid, biquadratic };

struct Spiral {
    SpiralLaw law;
    double length;
    double curvatureFrom; // 1 / metres, 0 on a straight
    double curvatureTo;
};

// A piece of the plan as the other program has it.
struct PlanElement {
    RoadPoint from;
    RoadPoint to;
    double bulge = 0;                   // tangent of a quarter of the angle that an arc turns
    std::optional<Spiral> spiral = {};  // then there is no bulge
    std::optional<double> station = {}; // of its start, where the file states it
    std::string where = {};             // for messages: line 12, Curve "K1"
};

// A point where two gradients meet, with the vertical curve between them.
struct ProfilePoint {
    double station;
    double height;
    double lengthBefore =
        0; // of the curve, along the stations, before the point and after it; 0: none
    double lengthAfter = 0;
    std::optional<double> radius = {}; // a circle's; otherwise the curve is a parabola
    std::string where = {};
};

// An alignment as the other program has it.
struct Alignment {
    std::string name; // UTF-8
    double firstStation = 0;
    bool stationsDecrease = false;
    std::vector<PlanElement> plan;
    std::vector<ProfilePoint> profile;
    std::optional<double> lastStation; // where the file states it
    std::vector<std::string> notes;    // what was converted, in sentences for the user
};

// What cannot be taken over, named with its line, its element and its name.
class NotTaken : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// What the user chose cannot be, whatever the file holds.
class BadChoice : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Metres beyond which a number is no place on the earth: it is refused.
inline constexpr double farthest = 1e11;

// Throws NotTaken where the bytes are no text in an 8-bit encoding: UTF-16, or a NUL among them.
void RequirePlainText(std::string_view content);

// A number of metres with its decimals, no fewer than four and no more than it takes to tell it to
// the nearest hundredth of a micrometre.
std::string Metres(double value);

} // namespace kvarnio
