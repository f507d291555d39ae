// Which segment holds a station: the first key above a value, in any order of the keys.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kvarn {

class StationTable {
  public:
    // A key that is no number lies above nothing.
    explicit StationTable(std::vector<double> keys);

    // The index of the first key above the value; the number of keys where there is none.
    std::size_t FirstAbove(double value) const;

  private:
    std::size_t SlotOf(double value) const;

    std::vector<double> m_greatest; // of the keys up to each: they rise, and the first above is it
    // For equal steps of values the first key that may be above them, and the number of keys.
    std::vector<std::uint32_t> m_slots;
    double m_lowest = 0;
    double m_slotsPerMetre = 0;
};

// It never falls where the value rises: rounding does no harm. What is no number (an infinite value
// or range) is in the first slot.
inline std::size_t StationTable::SlotOf(double value) const {
    double const slot = (value - m_lowest) * m_slotsPerMetre;
    auto const last = static_cast<double>(m_greatest.size() - 1);
    return slot > 0 ? static_cast<std::size_t>(std::min(slot, last)) : 0;
}

// Keys of lower slots lie below the value, those of higher slots above it. Few share a slot, unless
// they crowd.
inline std::size_t StationTable::FirstAbove(double value) const {
    if (m_greatest.empty() || std::isnan(value)) {
        return m_greatest.size();
    }
    std::size_t const slot = SlotOf(value);
    std::size_t first = m_slots[slot];
    std::size_t const end = m_slots[slot + 1];
    constexpr std::size_t few = 8;
    if (end - first > few) {
        auto const keys = m_greatest.begin();
        auto const from = keys + static_cast<std::ptrdiff_t>(first);
        auto const to = keys + static_cast<std::ptrdiff_t>(end);
        return static_cast<std::size_t>(std::upper_bound(from, to, value) - keys);
    }
    while (first < end && m_greatest[first] <= value) {
        ++first;
    }
    return first;
}

} // namespace kvarn
