// Boxes in the order of a line, and boxes about pairs of them up to one about all: what lies near a
// point is found without looking at the rest.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

#include "segments.h"

namespace kvarn {

// With sides along the axes. A new one is empty, and farther from every point than any other.
struct Box {
    double minX = std::numeric_limits<double>::infinity();
    double minY = std::numeric_limits<double>::infinity();
    double maxX = -std::numeric_limits<double>::infinity();
    double maxY = -std::numeric_limits<double>::infinity();

    void Add(Box const& box) {
        minX = std::min(minX, box.minX);
        minY = std::min(minY, box.minY);
        maxX = std::max(maxX, box.maxX);
        maxY = std::max(maxY, box.maxY);
    }
    // A point, and what lies within a distance of it. A coordinate that is no number adds nothing.
    void Add(Point p, double around) {
        minX = std::min(minX, p.x - around);
        minY = std::min(minY, p.y - around);
        maxX = std::max(maxX, p.x + around);
        maxY = std::max(maxY, p.y + around);
    }
    // The square of the distance; 0 inside.
    double SquareTo(Point p) const {
        double const dx = std::max({minX - p.x, p.x - maxX, 0.0});
        double const dy = std::max({minY - p.y, p.y - maxY, 0.0});
        return dx * dx + dy * dy;
    }
};

class BoxTree {
  public:
    BoxTree() : BoxTree(std::vector<Box>()) {}
    explicit BoxTree(std::vector<Box> leaves);

    // Calls search.Look(i) for every leaf whose distance squared is not above search.Limit() then,
    // which is finite: of two boxes the nearer one first, so that the limit soon falls.
    template <class Search> void Visit(Point p, Search& search) const {
        if (!m_levels.front().empty()) {
            Visit(p, search, m_levels.size() - 1, 0);
        }
    }

  private:
    template <class Search>
    void Visit(Point p, Search& search, std::size_t level, std::size_t i) const {
        if (level == 0) {
            search.Look(i);
            return;
        }
        std::vector<Box> const& below = m_levels[level - 1];
        double const first = below[2 * i].SquareTo(p);
        double const second = below[2 * i + 1].SquareTo(p);
        std::size_t const nearer = second < first ? 1 : 0;
        if (!(std::min(first, second) > search.Limit())) {
            Visit(p, search, level - 1, 2 * i + nearer);
        }
        if (!(std::max(first, second) > search.Limit())) {
            Visit(p, search, level - 1, 2 * i + 1 - nearer);
        }
    }

    std::vector<std::vector<Box>> m_levels; // the leaves first; an empty box completes a pair
};

} // namespace kvarn
