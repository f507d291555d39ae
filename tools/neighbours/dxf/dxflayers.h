// What drawings of this tool's own are told by.
#pragma once

namespace kvarnio::dxf {

inline constexpr char const* lineLayer = "VAGLINJE";
inline constexpr char const* tickLayer = "VAGLINJE_STRECK";
inline constexpr char const* stationLayer = "VAGLINJE_STATION";
inline constexpr char const* areaLayer = "VAGLINJE_OMRADE";

// The first text of the record that keeps the road's name (further texts, in pieces) and, for each
// vertex, its station and the length of the segment from there.
inline constexpr char const* roadRecord = "KVARNPROG_ROAD";

} // namespace kvarnio::dxf
