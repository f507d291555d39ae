// Numbers and stations as surveyors write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvarnio {

// Kilometres and metres, "1/050".
std::string StationText(double station, int decimals);

// A text that is a finite number and nothing else; "+5" is one.
std::optional<double> ReadNumber(std::string_view text);

// The same, or kilometres and metres: "0/100.000", "1/2.5", "-0/25". The kilometres are whole, the
// metres below 1000, and a sign is that of both.
std::optional<double> ReadStation(std::string_view text);

} // namespace kvarnio
