// Stations at round intervals.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "roadgeometry.h"

namespace kvarnio {

// The first number of the series, times a power of ten, that is not below it.
template <std::size_t N> double FirstOf(std::array<double, N> const& series, double atLeast) {
    double const decade = std::pow(10, std::floor(std::log10(atLeast)));
    for (double const digit : series) {
        if (digit * decade >= atLeast * (1 - 1e-9)) {
            return digit * decade;
        }
    }
    return 10 * decade;
}

// The number 1, 2 or 5 times a power of ten that is not below it.
double RoundInterval(double atLeast);
// The multiples of the step from one number to another, both included; at most a thousand.
std::vector<double> Multiples(double from, double to, double step);
// The station interval whose labels are at least so many metres apart, over that range.
double StationInterval(double apart, double from, double to);
// The decimals that multiples of an interval have.
int DecimalsOf(double interval);

// A round one by the length, for tables and drawings where none is asked for.
double UsualInterval(std::span<kovltype const> plan);

// A station, and where it lies: on a segment, counted from 0, at a fraction of its length. At a
// vertex that is the segment that begins there.
struct StationPlace {
    double station;
    std::size_t segment;
    double fraction;
};

// The plan's first station, the multiples of the interval, and its last one, in the order of
// travel. Throws NotTaken for an interval that is no positive number or gives more stations than
// the most, and for a plan without stations that increase, or decrease, all along.
std::vector<StationPlace> StationsAlong(std::span<kovltype const> plan, double interval,
                                        std::size_t most);

// Throws NotTaken, with its number, for a vertex that is no number or begins an arc without a
// circle, and for a plan without two.
void RequireLine(std::span<kovltype const> plan);

} // namespace kvarnio
