// Stations and offsets of points (Vagstv, mode 0) and back (Vag2xy) on winding lines, beside
// Boost.Geometry and GEOS. The points lie all along the line, on both sides; before the time is
// taken each contender must find where they were put.
//
// Vagstv/N, Vag2xy/N  N vertices, straight segments: the same work for all
// Vagstv/arcs/N       N - 1 arcs; the others get them as chords that stray 1 mm at most
//
// "Boost rtree" has an index over the segments, made before the time is taken; all the others
// search the line from its start to its end.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <string>

#include "contenders/roadline.h"

namespace {

// A line that sways about the x axis and never comes near itself.
class SwayingLine {
  public:
    SwayingLine(int count, bool arcs) : m_arcs(arcs) {
        Point at = {6'500'000, 150'000};
        double station = 0;
        for (int i = 0; i < count; ++i) {
            double const bearing = BearingAt(i);
            double const bulge = arcs ? BulgeAt(i) : 0;
            m_vertices.push_back({at, bulge, station});
            at = {at.x + chord * std::cos(bearing), at.y + chord * std::sin(bearing)};
            station += Length(bulge);
        }
    }

    RoadVertices const& Vertices() const { return m_vertices; }

    // The line as straight chords between points on it.
    RoadVertices Chords() const {
        RoadVertices chords;
        for (std::size_t i = 0; i + 1 < m_vertices.size(); ++i) {
            int const parts = m_arcs ? PartsOf(m_vertices[i].bulge) : 1;
            for (int part = 0; part < parts; ++part) {
                double const fraction = static_cast<double>(part) / parts;
                RoadPoint const road = {StationIn(i, fraction), 0};
                chords.push_back({PointIn(i, fraction, 0), 0, road.station});
            }
        }
        RoadVertex last = m_vertices.back();
        last.bulge = 0;
        chords.push_back(last);
        return chords;
    }

    double StationIn(std::size_t segment, double fraction) const {
        double const from = m_vertices[segment].station;
        return from + fraction * (m_vertices[segment + 1].station - from);
    }

    // In closed form.
    Point PointIn(std::size_t segment, double fraction, double offset) const {
        Point const from = m_vertices[segment].point;
        double const bearing = BearingAt(static_cast<int>(segment));
        double const bulge = m_vertices[segment].bulge;
        double along = fraction * chord;
        double left = offset;
        if (bulge != 0) { // from the circle's centre, which lies to the right for a positive bulge
            double const half = 2 * std::atan(bulge); // of the arc's angle
            double const radius = chord / 2 / std::sin(half);
            double const angle = (2 * fraction - 1) * half;
            along = chord / 2 + (radius + offset) * std::sin(angle);
            left = (radius + offset) * std::cos(angle) - radius * std::cos(half);
        }
        return {from.x + along * std::cos(bearing) - left * std::sin(bearing),
                from.y + along * std::sin(bearing) + left * std::cos(bearing)};
    }

  private:
    static constexpr double chord = 20;

    static double BearingAt(int i) { return 0.6 * std::sin(0.03 * i) + 0.01; }
    // Tangents meet at the vertices, nearly.
    static double BulgeAt(int i) {
        double const turn = BearingAt(i) - BearingAt(i + 1);
        double const least = 0.002; // an arc everywhere
        return std::tan((turn < 0 ? std::min(turn, -least) : std::max(turn, least)) / 4);
    }
    static double Length(double bulge) {
        double const half = 2 * std::atan(bulge);
        return bulge == 0 ? chord : chord / std::sin(half) * half;
    }
    static int PartsOf(double bulge) {
        double const height = std::fabs(bulge) * chord / 2;
        constexpr double most = 0.001;
        return static_cast<int>(std::ceil(std::sqrt(height / most)));
    }

    bool m_arcs;
    RoadVertices m_vertices;
};

struct Query {
    Point point;
    RoadPoint road;
};

std::vector<Query> Queries(SwayingLine const& line) {
    constexpr int count = 1000;
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> segment(0, line.Vertices().size() - 2);
    // Away from the vertices, so that the nearest segment is the one that is meant.
    std::uniform_real_distribution<double> fraction(0.1, 0.9);
    std::uniform_real_distribution<double> offset(-25, 25);
    std::vector<Query> queries;
    for (int i = 0; i < count; ++i) {
        std::size_t const s = segment(random);
        double const f = fraction(random);
        double const o = offset(random);
        queries.push_back({line.PointIn(s, f, o), {line.StationIn(s, f), o}});
    }
    return queries;
}

struct Tolerance {
    double along;
    double across;
};

void ToRoad(benchmark::State& state, RoadLine& line, std::vector<Query> const& queries,
            Tolerance tolerance) {
    for (Query const& query : queries) {
        RoadPoint const road = line.ToRoad(query.point);
        if (!(std::fabs(road.station - query.road.station) <= tolerance.along &&
              std::fabs(road.offset - query.road.offset) <= tolerance.across)) {
            state.SkipWithError("another station or offset was found");
            return;
        }
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(line.ToRoad(queries[next++ % queries.size()].point));
    }
}

void ToPlane(benchmark::State& state, RoadLine& line, std::vector<Query> const& queries,
             Tolerance tolerance) {
    for (Query const& query : queries) {
        Point const point = line.ToPlane(query.road);
        if (!(std::hypot(point.x - query.point.x, point.y - query.point.y) <= tolerance.across)) {
            state.SkipWithError("another point was found");
            return;
        }
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(line.ToPlane(queries[next++ % queries.size()].road));
    }
}

using Run = void(benchmark::State&, RoadLine&, std::vector<Query> const&, Tolerance);
using Make = std::unique_ptr<RoadLine>(RoadVertices const&);

constexpr Tolerance exact = {1e-6, 1e-6};
// Beside a chord that strays 1 mm from its arc a foot 25 m away moves along.
constexpr Tolerance chords = {0.15, 0.0015};

void Register(std::string const& group, char const* name, Run* run, Make* make, int count,
              bool arcs) {
    bool const ours = make == OurLine;
    benchmark::RegisterBenchmark((group + "/" + name).c_str(), [=](benchmark::State& state) {
        SwayingLine const line(count, arcs);
        auto const contender = make(ours ? line.Vertices() : line.Chords());
        run(state, *contender, Queries(line), ours || !arcs ? exact : chords);
    })->Unit(benchmark::kMicrosecond);
}

void RegisterToRoad(std::string const& group, int count, bool arcs) {
    Register(group, "ours", ToRoad, OurLine, count, arcs);
    Register(group, "GEOS", ToRoad, GeosLine, count, arcs);
    Register(group, "Boost.Geometry", ToRoad, BoostLine, count, arcs);
    Register(group, "Boost rtree", ToRoad, BoostIndexedLine, count, arcs);
}

void RegisterToPlane(std::string const& group, int count) {
    Register(group, "ours", ToPlane, OurLine, count, false);
    Register(group, "GEOS", ToPlane, GeosLine, count, false);
    Register(group, "Boost.Geometry", ToPlane, BoostLine, count, false);
}

bool const registered = [] {
    for (int const count : {1'000, 10'000}) {
        RegisterToRoad("Vagstv/" + std::to_string(count), count, false);
        RegisterToPlane("Vag2xy/" + std::to_string(count), count);
    }
    RegisterToRoad("Vagstv/arcs/1000", 1'000, true);
    return true;
}();

} // namespace
