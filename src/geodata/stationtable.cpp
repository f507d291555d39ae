#include "stationtable.h"

#include <limits>

namespace kvarn {

StationTable::StationTable(std::vector<double> keys) : m_greatest(std::move(keys)) {
    double greatest = -std::numeric_limits<double>::infinity();
    for (double& key : m_greatest) {
        greatest = key > greatest ? key : greatest;
        key = greatest;
    }
    std::size_t const count = m_greatest.size();
    if (count > 0) {
        m_lowest = m_greatest.front();
        double const range = m_greatest.back() - m_lowest;
        m_slotsPerMetre = range > 0 ? static_cast<double>(count) / range : 0;
    }
    m_slots.assign(count + 1, static_cast<std::uint32_t>(count));
    for (std::size_t i = count; i-- > 0;) {
        m_slots[SlotOf(m_greatest[i])] = static_cast<std::uint32_t>(i);
    }
    for (std::size_t slot = count; slot-- > 0;) {
        m_slots[slot] = std::min(m_slots[slot], m_slots[slot + 1]);
    }
}

} // namespace kvarn
