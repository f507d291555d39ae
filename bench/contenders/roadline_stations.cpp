// Those who find a straight by a station, with its direction computed before.
#include <algorithm>
#include <cmath>
#include <map>

#include "roadline.h"

namespace {

struct Straight {
    Point from;
    Point direction; // of length 1
    double station;

    Point At(RoadPoint point) const {
        double const along = point.station - station;
        return {from.x + along * direction.x - point.offset * direction.y,
                from.y + along * direction.y + point.offset * direction.x};
    }
};

std::vector<Straight> StraightsOf(RoadVertices const& vertices) {
    std::vector<Straight> straights;
    for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
        Point const from = vertices[i].point;
        double const dx = vertices[i + 1].point.x - from.x;
        double const dy = vertices[i + 1].point.y - from.y;
        double const length = std::sqrt(dx * dx + dy * dy);
        straights.push_back({from, {dx / length, dy / length}, vertices[i].station});
    }
    return straights;
}

class MapOfStationsImpl : public RoadLine {
  public:
    explicit MapOfStationsImpl(RoadVertices const& vertices) {
        for (Straight const& s : StraightsOf(vertices)) {
            m_straights.emplace(s.station, s);
        }
    }
    Point ToPlane(RoadPoint point) override {
        return std::prev(m_straights.upper_bound(point.station))->second.At(point);
    }

  private:
    std::map<double, Straight> m_straights;
};

class BisectedStationsImpl : public RoadLine {
  public:
    explicit BisectedStationsImpl(RoadVertices const& vertices)
        : m_straights(StraightsOf(vertices)) {
        for (Straight const& s : m_straights) {
            m_stations.push_back(s.station);
        }
    }
    Point ToPlane(RoadPoint point) override {
        auto const after = std::upper_bound(m_stations.begin(), m_stations.end(), point.station);
        return m_straights[static_cast<std::size_t>(after - m_stations.begin() - 1)].At(point);
    }

  private:
    std::vector<Straight> m_straights;
    std::vector<double> m_stations;
};

class StationsWithCursorImpl : public RoadLine {
  public:
    explicit StationsWithCursorImpl(RoadVertices const& vertices)
        : m_straights(StraightsOf(vertices)) {}
    Point ToPlane(RoadPoint point) override {
        while (m_cursor > 0 && m_straights[m_cursor].station > point.station) {
            --m_cursor;
        }
        while (m_cursor + 1 < m_straights.size() &&
               m_straights[m_cursor + 1].station <= point.station) {
            ++m_cursor;
        }
        return m_straights[m_cursor].At(point);
    }

  private:
    std::vector<Straight> m_straights;
    std::size_t m_cursor = 0;
};

} // namespace

std::unique_ptr<RoadLine> MapOfStations(RoadVertices const& vertices) {
    return std::make_unique<MapOfStationsImpl>(vertices);
}

std::unique_ptr<RoadLine> BisectedStations(RoadVertices const& vertices) {
    return std::make_unique<BisectedStationsImpl>(vertices);
}

std::unique_ptr<RoadLine> StationsWithCursor(RoadVertices const& vertices) {
    return std::make_unique<StationsWithCursorImpl>(vertices);
}
