#include "dxfcandidates.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

#include "../road/letters.h"
#include "dxfgroups.h"
#include "dxflayers.h"

namespace kvarnio::dxf {
namespace {

bool IsLine(Polyline const& polyline) {
    return polyline.vertices.size() > 1;
}

bool HasLines(Layer const& layer) {
    return !layer.edges.empty() ||
           std::any_of(layer.polylines.begin(), layer.polylines.end(), IsLine);
}

std::string ChainText(Candidate const& candidate) {
    std::size_t arcs = 0;
    for (Link const link : candidate.chain.links) {
        arcs += candidate.Edges()[link.edge].bulge != 0 ? 1U : 0U;
    }
    std::size_t const lines = candidate.chain.links.size() - arcs;
    std::string text = "chain of ";
    text += lines > 0 ? std::to_string(lines) + " LINE" : "";
    text += lines > 0 && arcs > 0 ? " and " : "";
    return text + (arcs > 0 ? std::to_string(arcs) + " ARC" : "");
}

void FindOn(Layer const& layer, double tolerance, Found& found) {
    for (Polyline const& polyline : layer.polylines) {
        if (IsLine(polyline)) {
            found.candidates.push_back({&layer, &polyline, {}, 0, 0});
        }
    }
    Chains chains = ChainsOf(layer.edges, tolerance);
    for (Chain& chain : chains.chains) {
        found.candidates.push_back(
            {&layer, nullptr, std::move(chain), chains.points.size(), chains.doubles});
    }
    if (chains.branch) {
        found.branches.push_back({OnOneLine(layer.name),
                                  std::to_string(layer.edges.size()) + " LINE and ARC that branch",
                                  "more than two ends meet at " + *chains.branch});
    }
}

// How far the ends of a candidate are from the nearest end of another one on its layer.
std::string GapText(std::span<Candidate const> candidates, Candidate const& candidate) {
    double nearest = std::numeric_limits<double>::infinity();
    for (Candidate const& other : candidates) {
        if (&other == &candidate || other.layer != candidate.layer) {
            continue;
        }
        for (RoadPoint const p : {candidate.Start(), candidate.End()}) {
            nearest = std::min(
                {nearest, kvarn::Length(p - other.Start()), kvarn::Length(p - other.End())});
        }
    }
    return std::isfinite(nearest) ? "; " + Metres(nearest) + " m to the nearest other" : "";
}

} // namespace

DxfCandidate Told(Candidate const& candidate) {
    Polyline const* const polyline = candidate.polyline;
    return {OnOneLine(candidate.layer->name),
            polyline != nullptr ? std::string(polyline->type) + " of " +
                                      std::to_string(polyline->vertices.size()) + " vertices"
                                : ChainText(candidate),
            LineText(candidate.Line()) + ", from " + PlaceText(candidate.Start()) + " to " +
                PlaceText(candidate.End())};
}

std::vector<Layer const*> LayersToSearch(Drawing const& drawing, std::string const& chosen) {
    std::string const key = LayerKey(chosen.empty() ? lineLayer : chosen);
    std::vector<Layer const*> all;
    for (Layer const& layer : drawing.layers) {
        if (LayerKey(layer.name) == key && (!chosen.empty() || HasLines(layer))) {
            return {&layer};
        }
        all.push_back(&layer);
    }
    if (!chosen.empty()) {
        std::string names;
        for (Layer const* const layer : all) {
            if (HasLines(*layer)) {
                names += (names.empty() ? "" : ", ") + OnOneLine(layer->name);
            }
        }
        throw NotTaken("nothing is on a layer \"" + OnOneLine(chosen) + "\"; " +
                       (names.empty() ? "no layer has lines" : "layers with lines: " + names));
    }
    return all;
}

Found FindLines(std::vector<Layer const*> const& layers, double tolerance) {
    constexpr double finest = 1e-6; // metres
    if (!std::isfinite(tolerance) || tolerance < 0) {
        throw NotTaken("a tolerance is a number of metres that is not below 0");
    }
    Found found;
    for (Layer const* const layer : layers) {
        FindOn(*layer, std::max(tolerance, finest), found);
    }
    return found;
}

void ThrowNothing(std::vector<Layer const*> const& layers) {
    constexpr std::size_t most = 10;
    std::map<std::string_view, std::size_t> others;
    for (Layer const* const layer : layers) {
        for (auto const& [type, count] : layer->others) {
            others[type] += count;
        }
    }
    std::string text;
    std::size_t told = 0;
    for (auto const& [type, count] : others) {
        if (++told > most) {
            text += " and more";
            break;
        }
        text += (text.empty() ? "" : ", ") + std::to_string(count) + ' ' + OnOneLine(AsUtf8(type));
    }
    throw NotTaken("there is no LWPOLYLINE, POLYLINE, LINE or ARC that could be an alignment" +
                   (text.empty() ? "" : "; there is " + text));
}

void ThrowMany(Found const& found) {
    constexpr std::size_t most = 10;
    std::string text;
    auto const tell = [&](DxfCandidate const& what, std::string const& gap) {
        text += "\n  layer " + what.layer + ": " + what.what + ", " + what.where + gap;
    };
    auto const shown = std::span(found.candidates).first(std::min(found.candidates.size(), most));
    for (Candidate const& candidate : shown) {
        tell(Told(candidate), GapText(shown, candidate));
    }
    for (std::size_t i = 0; i < std::min(found.branches.size(), most); ++i) {
        tell(found.branches[i], "");
    }
    std::size_t const count = found.candidates.size() + found.branches.size();
    throw NotTaken((found.candidates.size() > most ? "the drawing has " + std::to_string(count) +
                                                         " lines, of which these are the first"
                    : found.candidates.empty() ? "the drawing's lines branch"
                                               : "the drawing has more than one line") +
                   std::string("; --layer NAME takes that of one layer, --tolerance METRES says "
                               "how near ends meet:") +
                   text);
}

} // namespace kvarnio::dxf
