// The heights of a road's profile, as the library computes them.
#pragma once

#include <optional>
#include <span>

#include "roadgeometry.h"

namespace kvarnio {

struct ProfileAnswer {
    double height;
    double gradient; // metres a metre, in the direction of growing stations
};

// The profile at stations, ends included; at a vertex the segment that begins there counts.
class RoadHeights {
  public:
    // Of a profile that the caller keeps.
    explicit RoadHeights(std::span<kovltype const> profile) : m_profile(profile) {}

    // Nothing outside the profile, and where it gives no number.
    std::optional<ProfileAnswer> At(double station) const;

  private:
    std::span<kovltype const> m_profile;
};

} // namespace kvarnio
