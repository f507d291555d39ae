// A file's time as one number.
#pragma once

#include <cstdint>

#include "../compat/types.h"

namespace kvarn {

constexpr std::uint64_t ticksPerSecond = 10'000'000;

// In ticks of 100 nanoseconds since 1601, as FILETIME counts (Windows documentation).
constexpr std::uint64_t Ticks(FILETIME const& time) {
    return std::uint64_t{time.dwHighDateTime} << 32U | time.dwLowDateTime;
}

} // namespace kvarn
