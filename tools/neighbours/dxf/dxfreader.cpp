#include "dxf.h"

#include <cmath>

#include "dxfcandidates.h"
#include "dxfgroups.h"
#include "dxfunits.h"

namespace kvarnio {
namespace {

using dxf::Candidate;
using dxf::Chain;
using dxf::Drawing;
using dxf::Edge;
using dxf::Found;
using dxf::Layer;
using dxf::LineText;
using dxf::Link;
using dxf::Polyline;
using dxf::RoadRecord;
using dxf::Vertex;

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
        if (!record->second.stations.empty()) {
            std::vector<double> const& stations = record->second.stations;
            m_alignment.firstStation = stations.front();
            m_alignment.stationsDecrease = stations.back() < stations.front();
        }
        Note("the line was edited after its stations were stored: they are computed anew from "
             "the first one");
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
        NoteChain(candidate);
        if (heights != nullptr) {
            Note(LineText(heights->line) + ", " + heights->Type() +
                 ": heights are not taken over, neither this one nor others");
        }
    }

    void NoteChain(Candidate const& candidate) {
        Chain const& chain = candidate.chain;
        if (chain.isClosed) {
            Note("the chain is closed, and goes back to where it begins");
        }
        if (candidate.doubles > 0) {
            Note("passed over, for they are drawn twice: " + std::to_string(candidate.doubles) +
                 " LINE or ARC");
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
