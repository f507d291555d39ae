#include "dxf.h"

#include <algorithm>
#include <cmath>

#include <text/format.h>

#include "dxfchain.h"
#include "dxfdrawing.h"
#include "dxfgroups.h"
#include "dxflayers.h"
#include "dxfunits.h"
#include "letters.h"

namespace kvarnio {
namespace {

using dxf::Chain;
using dxf::Chains;
using dxf::Drawing;
using dxf::Edge;
using dxf::Layer;
using dxf::LineText;
using dxf::Link;
using dxf::PlaceText;
using dxf::Polyline;
using dxf::RoadRecord;
using dxf::Vertex;

// One of a layer's polylines, or one of its chains.
struct Candidate {
    Layer const* layer;
    Polyline const* polyline; // or null
    Chain chain;
    std::size_t points; // edges of the layer that are too short for a chain

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

DxfCandidate Told(Candidate const& candidate) {
    Polyline const* const polyline = candidate.polyline;
    return {OnOneLine(candidate.layer->name),
            polyline != nullptr ? std::string(polyline->type) + " of " +
                                      std::to_string(polyline->vertices.size()) + " vertices"
                                : ChainText(candidate),
            LineText(candidate.Line()) + ", from " + PlaceText(candidate.Start()) + " to " +
                PlaceText(candidate.End())};
}

void FindOn(Layer const& layer, double tolerance, Found& found) {
    for (Polyline const& polyline : layer.polylines) {
        if (IsLine(polyline)) {
            found.candidates.push_back({&layer, &polyline, {}, 0});
        }
    }
    Chains chains = ChainsOf(layer.edges, tolerance);
    for (Chain& chain : chains.chains) {
        found.candidates.push_back({&layer, nullptr, std::move(chain), chains.points.size()});
    }
    if (chains.branch) {
        found.branches.push_back({OnOneLine(layer.name),
                                  std::to_string(layer.edges.size()) + " LINE and ARC that branch",
                                  "more than two ends meet at " + *chains.branch});
    }
}

// That of the writer's line, unless the user names one; then the others do not count.
std::vector<Layer const*> LayersToSearch(Drawing const& drawing, std::string const& chosen) {
    std::string const key = dxf::LayerKey(chosen.empty() ? dxf::lineLayer : chosen);
    std::vector<Layer const*> all;
    for (Layer const& layer : drawing.layers) {
        if (dxf::LayerKey(layer.name) == key && (!chosen.empty() || HasLines(layer))) {
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

void Scale(Drawing& drawing, double metres) {
    auto const scale = [&](RoadPoint& p) { p = {p.x * metres, p.y * metres}; };
    for (Layer& layer : drawing.layers) {
        for (Polyline& polyline : layer.polylines) {
            for (Vertex& vertex : polyline.vertices) {
                scale(vertex.at);
            }
        }
        for (Edge& edge : layer.edges) {
            scale(edge.from);
            scale(edge.to);
        }
    }
}

[[noreturn]] void ThrowNothing(std::vector<Layer const*> const& layers) {
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

[[noreturn]] void ThrowMany(Found const& found) {
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

class AlignmentMaker {
  public:
    explicit AlignmentMaker(Drawing const& drawing) : m_drawing(drawing) {}

    Alignment Make(Candidate const& candidate, std::string const& unitNote) && {
        if (!unitNote.empty()) {
            m_alignment.notes.push_back(unitNote);
        }
        if (candidate.polyline != nullptr) {
            TakePolyline(*candidate.polyline);
        } else {
            TakeChain(candidate);
        }
        return std::move(m_alignment);
    }

  private:
    void Note(std::string text) { m_alignment.notes.push_back(std::move(text)); }

    void TakePolyline(Polyline const& polyline) {
        RoadRecord const* const record = RecordOf(polyline);
        std::vector<Vertex> const& vertices = polyline.vertices;
        for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
            Add(polyline, i, vertices[i + 1], record);
        }
        if (polyline.isClosed) {
            Add(polyline, vertices.size() - 1, vertices.front(), nullptr);
            Note(LineText(polyline.line) + ", " + std::string(polyline.type) +
                 ": it is closed, and goes back to its first vertex");
        }
        if (m_alignment.plan.empty()) {
            throw NotTaken(LineText(polyline.line) + ", " + std::string(polyline.type) +
                           ": all of its vertices are in one point");
        }
        if (polyline.hasHeights) {
            Note(LineText(polyline.line) + ", " + std::string(polyline.type) +
                 ": its height is not taken over");
        }
        if (record != nullptr) {
            TakeStations(*record);
        }
    }

    void Add(Polyline const& polyline, std::size_t i, Vertex const& next,
             RoadRecord const* record) {
        Vertex const& vertex = polyline.vertices[i];
        if (vertex.at.x == next.at.x && vertex.at.y == next.at.y) {
            return; // twice the same
        }
        PlanElement element;
        element.from = vertex.at;
        element.to = next.at;
        element.bulge = vertex.bulge;
        if (record != nullptr) {
            element.station = record->stations[i];
        }
        element.where = LineText(vertex.line) + ", " + std::string(polyline.type) + " vertex " +
                        std::to_string(i + 1);
        m_alignment.plan.push_back(std::move(element));
    }

    // Null where there is none, or the line is no longer the one that it was made for.
    RoadRecord const* RecordOf(Polyline const& polyline) {
        auto const handle = m_drawing.recordOf.find(polyline.dictionary);
        if (handle == m_drawing.recordOf.end()) {
            return nullptr;
        }
        auto const record = m_drawing.records.find(handle->second);
        if (record == m_drawing.records.end()) {
            return nullptr;
        }
        m_alignment.name = record->second.name;
        if (!polyline.isClosed && Fits(record->second, polyline.vertices)) {
            return &record->second;
        }
        Note("the line was edited after its stations were stored: they are not taken over");
        return nullptr;
    }

    static bool Fits(RoadRecord const& record, std::vector<Vertex> const& vertices) {
        constexpr double edited = 0.01; // metres
        if (record.stations.size() != vertices.size() || record.lengths.size() != vertices.size()) {
            return false;
        }
        for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
            Segment const segment(vertices[i].at, vertices[i + 1].at, vertices[i].bulge);
            if (!(std::fabs(segment.Length() - record.lengths[i]) <= edited)) {
                return false;
            }
        }
        return true;
    }

    void TakeStations(RoadRecord const& record) {
        m_alignment.firstStation = record.stations.front();
        m_alignment.lastStation = record.stations.back();
        m_alignment.stationsDecrease = record.stations.back() < record.stations.front();
    }

    void TakeChain(Candidate const& candidate) {
        Chain const& chain = candidate.chain;
        std::span<Edge const> const edges = candidate.Edges();
        Edge const* heights = nullptr;
        for (Link const link : chain.links) {
            Edge const& edge = edges[link.edge];
            PlanElement element;
            element.from = StartOf(edges, link);
            element.to = EndOf(edges, link);
            element.bulge = link.isReversed ? -edge.bulge : edge.bulge;
            element.where = LineText(edge.line) + ", " + edge.Type();
            m_alignment.plan.push_back(std::move(element));
            heights = heights == nullptr && edge.hasHeights ? &edge : heights;
        }
        NoteGaps(candidate);
        if (heights != nullptr) {
            Note(LineText(heights->line) + ", " + heights->Type() +
                 ": heights are not taken over, neither this one nor others");
        }
    }

    void NoteGaps(Candidate const& candidate) {
        constexpr double worthTelling = 0.00005; // metres
        Chain const& chain = candidate.chain;
        if (chain.isClosed) {
            Note("the chain is closed, and goes back to where it begins");
        }
        if (chain.largestGap > worthTelling) {
            Note("ends that meet are up to " + Metres(chain.largestGap) + " m apart");
        }
        if (candidate.points > 0) {
            Note("passed over, for both ends are in one point: " +
                 std::to_string(candidate.points) + " LINE or ARC");
        }
    }

    Drawing const& m_drawing;
    Alignment m_alignment;
};

} // namespace

Alignment ReadDxf(std::string_view text, DxfChoice const& choice) {
    Drawing drawing = dxf::ReadDrawing(text);
    std::vector<Layer const*> const layers = LayersToSearch(drawing, choice.layer);
    dxf::DrawingUnit const unit = dxf::UnitOf(drawing.unit, choice.unit);
    Scale(drawing, unit.metres);
    Found const found = FindLines(layers, choice.tolerance);
    if (found.candidates.empty() && found.branches.empty()) {
        ThrowNothing(layers);
    }
    if (found.candidates.size() != 1 || !found.branches.empty()) {
        ThrowMany(found);
    }
    return AlignmentMaker(drawing).Make(found.candidates.front(), unit.note);
}

std::vector<DxfCandidate> ListDxf(std::string_view text, DxfChoice const& choice) {
    Drawing drawing = dxf::ReadDrawing(text);
    std::string_view const unit =
        choice.unit.empty() ? dxf::SignOf(drawing.unit) : std::string_view(choice.unit);
    Scale(drawing, dxf::UnitOf(drawing.unit, unit).metres);
    std::vector<Layer const*> layers;
    for (Layer const& layer : drawing.layers) {
        if (choice.layer.empty() || dxf::LayerKey(layer.name) == dxf::LayerKey(choice.layer)) {
            layers.push_back(&layer);
        }
    }
    Found found = FindLines(layers, choice.tolerance);
    std::vector<DxfCandidate> told;
    for (Candidate const& candidate : found.candidates) {
        told.push_back(Told(candidate));
    }
    told.insert(told.end(), found.branches.begin(), found.branches.end());
    return told;
}

} // namespace kvarnio
