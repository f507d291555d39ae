// A road's stations as a table: comma-separated values, or with another separator.
#pragma once

#include <optional>
#include <string>

#include "../road/alignment.h"

namespace kvarnio {

struct StationTable {
    // Metres between the stations; otherwise a round number.
    std::optional<double> interval = std::nullopt;
    char separator = ';';
    bool decimalComma = false;
};

// A heading and a row for each station: coordinates as the library computes them, the bearing in
// gon, clockwise from north, the radius in metres, positive to the left and empty on a straight,
// and the height and the gradient in percent, empty where the road has no profile. Throws NotTaken
// for a plan that is no line or whose stations do not go one way, and for an interval that is none
// or gives more than ten million rows.
std::string ToCsv(Road const& road, StationTable const& table = {});

} // namespace kvarnio
