// The nearest foot on a line and its nearest vertex, for many points: boxes tell which segments are
// near enough to be looked at.
#pragma once

#include <cstdint>
#include <vector>

#include "boxtree.h"
#include "roadsearch.h"

namespace kvarn {

// The first in the line's order of those that are equally far.
struct NearestOnLine {
    Foot foot;           // isWithin is false where there is none
    std::size_t segment; // on which it lies
    std::size_t vertex;  // 0 where there is none that is nearer than the foot
    double distance;     // of the vertex
};

class FootIndex {
  public:
    // Keeps the vertices' address: they stay where they are.
    explicit FootIndex(std::vector<kovltype> const& vertices);

    // Of a line of two vertices at least. A vertex that is farther than the foot may not be found,
    // nor a foot that is farther than an inner vertex.
    NearestOnLine Find(Point point) const;

  private:
    class Search;

    enum class Feet {
        none,     // the circle is no number
        ruledOut, // where the squares tell so
        anywhere  // on the circle
    };
    struct Bend {
        Arc arc;
        Feet feet;
    };
    // Arcs about whose centre a direction along an axis may be the foot's: known by x or y.
    struct Strip {
        double centre;
        std::uint32_t segment;
    };

    Box BoxOf(std::size_t segment) const;
    void AddBend(std::size_t segment);
    void VisitStrip(std::vector<Strip> const& strips, double coordinate, Search& search) const;

    std::vector<kovltype> const& m_vertices;
    std::vector<Bend> m_bends;
    std::vector<std::uint32_t> m_bendOf; // a segment's; of no meaning where that is straight
    std::vector<Strip> m_stripsX;
    std::vector<Strip> m_stripsY;
    BoxTree m_tree;
};

} // namespace kvarn
