#include "roadheights.h"

#include <cmath>

#include <geodata/roadsegment.h>

namespace kvarnio {

std::optional<ProfileAnswer> RoadHeights::At(double station) const {
    if (m_profile.size() < 2) {
        return std::nullopt;
    }
    double const first = m_profile.front().sektion;
    double const last = m_profile.back().sektion;
    if (!(station > first - kvarn::stationTolerance && station < last + kvarn::stationTolerance)) {
        return std::nullopt;
    }
    auto const isBefore = [](double s, kovltype const& vertex) { return s < vertex.sektion; };
    auto const inner = m_profile.subspan(1, m_profile.size() - 2);
    auto const end = std::upper_bound(inner.begin(), inner.end(), station, isBefore);
    kovltype const* const from = &m_profile[static_cast<std::size_t>(end - inner.begin())];
    Segment const segment(from[0], from[1]);
    double const fraction = (station - from[0].sektion) / (from[1].sektion - from[0].sektion);
    RoadPoint const right = segment.Across(fraction);
    ProfileAnswer const answer = {kvarn::ProfileSegment(from[0], from[1]).HeightAt(station),
                                  right.y / -right.x};
    bool const isNumber = std::isfinite(answer.height) && std::isfinite(answer.gradient);
    return isNumber ? std::optional(answer) : std::nullopt;
}

} // namespace kvarnio
