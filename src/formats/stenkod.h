// The file that completes and overrides the lists of rock and fill.
#pragma once

namespace kvarn {

inline constexpr char const* stenkodFile = "Stenkod.dat";
inline constexpr char const* stenkodFileNorwegian = "StenkodN.dat";

} // namespace kvarn
