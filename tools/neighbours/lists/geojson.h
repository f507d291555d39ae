// Roads as GeoJSON: the line, and its stations as points.
#pragma once

#include <optional>
#include <string>

#include "../road/alignment.h"

namespace kvarnio {

struct GeoJsonOptions {
    double deviation = 0.001;       // metres that the line may leave an arc by
    std::optional<double> interval; // metres between the stations; otherwise a round number
    std::string crs;                // "EPSG:3006", or empty: not named
};

// Coordinates are east, north and, of stations where there is a profile, height: in the road's own
// system. Throws NotTaken for what cannot be written so.
std::string ToGeoJson(Road const& road, GeoJsonOptions const& options = {});

} // namespace kvarnio
