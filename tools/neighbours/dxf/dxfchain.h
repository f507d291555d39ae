// Lines and arcs that meet, put in order.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "dxfdrawing.h"

namespace kvarnio::dxf {

struct Link {
    std::size_t edge;
    bool isReversed; // against the edge's own direction
};

// In the direction of the first LINE among them, or of the first ARC where there is none.
struct Chain {
    std::vector<Link> links;
    bool isClosed = false;
};

struct Chains {
    std::vector<Chain> chains;         // in the order of their first edges
    std::vector<std::size_t> points;   // edges whose own ends meet: in no chain
    std::size_t doubles = 0;           // edges that are another one drawn again: in no chain
    std::optional<std::string> branch; // where more than two ends meet: then there are no chains
};

// Of the edges of one layer. Ends meet within the tolerance.
Chains ChainsOf(std::span<Edge const> edges, double tolerance);

RoadPoint StartOf(std::span<Edge const> edges, Link link);
RoadPoint EndOf(std::span<Edge const> edges, Link link);

// "N 6580412.3600 E 153207.8500"
std::string PlaceText(RoadPoint p);

} // namespace kvarnio::dxf
