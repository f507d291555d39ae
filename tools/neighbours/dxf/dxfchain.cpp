#include "dxfchain.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <text/format.h>

#include "../road/alignment.h"
#include "dxfgroups.h"

namespace kvarnio::dxf {
namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

// Finds the ends that meet. The ends lie sorted by the cells of a grid whose cells are so small
// that all ends in one meet each other: where a cell has three, the line branches.
class Ends {
  public:
    Ends(std::span<Edge const> edges, std::vector<bool> const& isLeftOut, double tolerance)
        : m_edges(edges), m_tolerance(tolerance), m_cell(tolerance / 2) {
        for (std::size_t end = 0; end < 2 * edges.size(); ++end) {
            if (!isLeftOut[end / 2]) {
                m_ends.push_back({CellOf(Place(end)), end});
            }
        }
        std::sort(m_ends.begin(), m_ends.end(), [](End const& a, End const& b) {
            return a.cell < b.cell || (a.cell == b.cell && a.end < b.end);
        });
    }

    // For each end the one that it meets, or none. An end is the edge's start with twice its
    // number, or its end with one more.
    std::vector<std::size_t> Partners(std::optional<std::string>& branch) const {
        std::vector<std::size_t> partners(2 * m_edges.size(), none);
        for (End const& end : m_ends) {
            if (!FindPartner(end, partners[end.end])) {
                branch = PlaceText(Place(end.end));
                break;
            }
        }
        return partners;
    }

    RoadPoint Place(std::size_t end) const {
        Edge const& edge = m_edges[end / 2];
        return end % 2 == 0 ? edge.from : edge.to;
    }

  private:
    using Cell = std::pair<double, double>;
    struct End {
        Cell cell;
        std::size_t end;
    };

    Cell CellOf(RoadPoint p) const { return {std::floor(p.x / m_cell), std::floor(p.y / m_cell)}; }

    // False where there is more than one.
    bool FindPartner(End const& end, std::size_t& partner) const {
        constexpr int reach = 2; // cells that the tolerance can span
        for (int column = -reach; column <= reach; ++column) {
            Cell const first = {end.cell.first + column, end.cell.second - reach};
            auto other = std::lower_bound(m_ends.begin(), m_ends.end(), first,
                                          [](End const& a, Cell const& b) { return a.cell < b; });
            Cell const last = {first.first, end.cell.second + reach};
            for (; other != m_ends.end() && other->cell <= last; ++other) {
                if (other->end == end.end ||
                    kvarn::Length(Place(other->end) - Place(end.end)) > m_tolerance) {
                    continue;
                }
                if (partner != none) {
                    return false;
                }
                partner = other->end;
            }
        }
        return true;
    }

    std::span<Edge const> m_edges;
    double m_tolerance;
    double m_cell;
    std::vector<End> m_ends;
};

Link Turned(Link link) {
    return {link.edge, !link.isReversed};
}

void Turn(std::vector<Link>& links) {
    std::reverse(links.begin(), links.end());
    for (Link& link : links) {
        link = Turned(link);
    }
}

class Walker {
  public:
    Walker(std::span<Edge const> edges, std::vector<std::size_t> const& partners)
        : m_edges(edges), m_partners(partners), m_isTaken(edges.size()) {}

    bool IsTaken(std::size_t edge) const { return m_isTaken[edge]; }

    Chain ChainOf(std::size_t edge) {
        Chain chain;
        Walk({edge, false}, chain);
        if (!chain.isClosed) {
            // From the other end of the edge, the other way; then all of it forwards.
            std::vector<Link> after = std::move(chain.links);
            chain.links.clear();
            Walk({edge, true}, chain);
            Turn(chain.links);
            chain.links.insert(chain.links.end(), after.begin() + 1, after.end());
        }
        Direct(chain);
        return chain;
    }

  private:
    void Walk(Link link, Chain& chain) {
        std::size_t const first = link.edge;
        while (true) {
            m_isTaken[link.edge] = true;
            chain.links.push_back(link);
            std::size_t const out = 2 * link.edge + (link.isReversed ? 0 : 1);
            std::size_t const in = m_partners[out];
            if (in == none) {
                return;
            }
            link = {in / 2, in % 2 == 1};
            if (link.edge == first) {
                chain.isClosed = true;
                return;
            }
        }
    }

    // The file's first LINE gives the direction, and the beginning of a chain that is closed.
    void Direct(Chain& chain) const {
        auto const isBefore = [&](Link a, Link b) {
            bool const aIsArc = m_edges[a.edge].bulge != 0;
            bool const bIsArc = m_edges[b.edge].bulge != 0;
            return aIsArc == bIsArc ? a.edge < b.edge : bIsArc;
        };
        auto guide = std::min_element(chain.links.begin(), chain.links.end(), isBefore);
        if (guide->isReversed) {
            Turn(chain.links);
            guide = std::min_element(chain.links.begin(), chain.links.end(), isBefore);
        }
        if (chain.isClosed) {
            std::rotate(chain.links.begin(), guide, chain.links.end());
        }
    }

    std::span<Edge const> m_edges;
    std::vector<std::size_t> const& m_partners;
    std::vector<bool> m_isTaken;
};

// An edge in the direction in which it begins further south, or west.
std::array<double, 5> Drawn(Edge const& edge) {
    bool const isTurned =
        edge.to.x < edge.from.x || (edge.to.x == edge.from.x && edge.to.y < edge.from.y);
    RoadPoint const from = isTurned ? edge.to : edge.from;
    RoadPoint const to = isTurned ? edge.from : edge.to;
    return {from.x, from.y, to.x, to.y, isTurned ? -edge.bulge : edge.bulge};
}

void LeaveOutDoubles(std::span<Edge const> edges, std::vector<bool>& isLeftOut,
                     std::size_t& doubles) {
    std::vector<std::pair<std::array<double, 5>, std::size_t>> sorted;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (!isLeftOut[i]) {
            sorted.emplace_back(Drawn(edges[i]), i);
        }
    }
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t i = 1; i < sorted.size(); ++i) {
        if (sorted[i].first == sorted[i - 1].first) {
            isLeftOut[sorted[i].second] = true;
            ++doubles;
        }
    }
}

} // namespace

Chains ChainsOf(std::span<Edge const> edges, double tolerance) {
    Chains result;
    std::vector<bool> isLeftOut(edges.size());
    for (std::size_t i = 0; i < edges.size(); ++i) {
        isLeftOut[i] = kvarn::Length(edges[i].to - edges[i].from) <= tolerance;
        if (isLeftOut[i]) {
            result.points.push_back(i);
        }
    }
    LeaveOutDoubles(edges, isLeftOut, result.doubles);
    Ends const ends(edges, isLeftOut, tolerance);
    std::vector<std::size_t> const partners = ends.Partners(result.branch);
    if (result.branch) {
        return result;
    }
    Walker walker(edges, partners);
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (!isLeftOut[i] && !walker.IsTaken(i)) {
            result.chains.push_back(walker.ChainOf(i));
        }
    }
    return result;
}

RoadPoint StartOf(std::span<Edge const> edges, Link link) {
    return link.isReversed ? edges[link.edge].to : edges[link.edge].from;
}

RoadPoint EndOf(std::span<Edge const> edges, Link link) {
    return StartOf(edges, Turned(link));
}

std::string PlaceText(RoadPoint p) {
    return kvarn::Format("N %.4lf E %.4lf", p.x, p.y);
}

} // namespace kvarnio::dxf
