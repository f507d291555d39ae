// The lines of a drawing that may be an alignment, and what users are told of them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "dxf.h"
#include "dxfchain.h"
#include "dxfdrawing.h"

namespace kvarnio::dxf {

// One of a layer's polylines, or one of its chains.
struct Candidate {
    Layer const* layer;
    Polyline const* polyline; // or null
    Chain chain;
    std::size_t points;  // edges of the layer that are too short for a chain
    std::size_t doubles; // and those that are another one drawn again

    std::span<Edge const> Edges() const { return layer->edges; }
    std::size_t Line() const {
        return polyline != nullptr ? polyline->line : Edges()[chain.links.front().edge].line;
    }
    RoadPoint Start() const {
        return polyline != nullptr ? polyline->vertices.front().at
                                   : StartOf(Edges(), chain.links.front());
    }
    RoadPoint End() const {
        return polyline != nullptr ? polyline->vertices.back().at
                                   : EndOf(Edges(), chain.links.back());
    }
};

struct Found {
    std::vector<Candidate> candidates;
    std::vector<DxfCandidate> branches; // layers whose lines and arcs branch
};

// The layers that are searched: the one that is named, or, where none is, that of the writer's
// line, or all. Throws NotTaken where nothing is on the layer.
std::vector<Layer const*> LayersToSearch(Drawing const& drawing, std::string const& chosen);

// Throws NotTaken for a tolerance that is none.
Found FindLines(std::vector<Layer const*> const& layers, double tolerance);

DxfCandidate Told(Candidate const& candidate);

// Throw NotTaken with what there is instead of one line.
[[noreturn]] void ThrowNothing(std::vector<Layer const*> const& layers);
[[noreturn]] void ThrowMany(Found const& found);

} // namespace kvarnio::dxf
