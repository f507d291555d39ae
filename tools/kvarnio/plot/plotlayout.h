// Where the parts of a road's picture lie on the sheet, and in which scales: geometry alone.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "svg.h"
#include <neighbours/road/intervals.h>
#include <neighbours/road/roadgeometry.h>
#include <neighbours/road/station.h>

namespace kvarnio {

// A window on the sheet with its scales. In a plan x is the northing and y the easting, in a
// profile x is the height and y the station: x up and y to the right in both.
struct View {
    Rect window;
    RoadPoint origin; // which lies there on the sheet:
    Point at;
    double right; // millimetres a metre of y
    double up;    // and of x

    Point On(RoadPoint p) const {
        return {at.x + (p.y - origin.y) * right, at.y - (p.x - origin.x) * up};
    }
    // What the window shows.
    Extent Shown() const;
};

struct Sheet {
    double width;
    double height;
    Rect frame;
    Rect side; // the column of title, legend and scale bar, in the frame
    std::optional<View> plan;
    std::optional<View> profile;
};

// Extents in metres; what is not there has none.
Sheet LayOut(std::optional<Extent> const& plan, std::optional<Extent> const& profile);

// Into how many parts an interval is divided in round numbers.
int PartsOf(double interval);

// The denominator of a scale, "1:2 000".
std::string ScaleText(double millimetresPerMetre);
// A number with its thousands apart.
std::string Grouped(double number);
// A number without zeros at its end.
std::string Trimmed(double number, int decimals);

} // namespace kvarnio
