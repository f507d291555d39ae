// Stations and offsets of points (Vagstv, mode 0) and back (Vag2xy) on winding lines, by the line
// and by its index. The points lie all along the line, on both sides; before the time is taken each
// contender must find where they were put. N vertices:
//
// Vagstv/N, Vagstv/arcs/N     one walk through all segments. Of arcs the peers get chords that
// stray 1 mm
//                             at most
// Vagindex/Vagstv/...         the same with an index, made before the time is taken
// Vagindex/made/...           making it from a line
// Vag2xy/N, Vagindex/Vag2xy/random/N
//                             stations anywhere, on straights
// Vagindex/Vag2xy/sequence/N  every 7 m
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
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

constexpr int queryCount = 1000;

// Away from the vertices, so that the nearest segment is the one that is meant.
std::vector<Query> RandomQueries(SwayingLine const& line) {
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> segment(0, line.Vertices().size() - 2);
    std::uniform_real_distribution<double> fraction(0.1, 0.9);
    std::uniform_real_distribution<double> offset(-25, 25);
    std::vector<Query> queries;
    for (int i = 0; i < queryCount; ++i) {
        std::size_t const s = segment(random);
        double const f = fraction(random);
        double const o = offset(random);
        queries.push_back({line.PointIn(s, f, o), {line.StationIn(s, f), o}});
    }
    return queries;
}

std::vector<Query> QueriesInSequence(SwayingLine const& line) {
    constexpr double step = 7;
    std::vector<Query> queries;
    std::size_t segment = line.Vertices().size() / 3;
    double station = line.StationIn(segment, 0) + 0.5; // never at a vertex
    for (int i = 0; i < queryCount; ++i, station += step) {
        while (line.StationIn(segment, 1) <= station) {
            ++segment;
        }
        double const from = line.StationIn(segment, 0);
        double const fraction = (station - from) / (line.StationIn(segment, 1) - from);
        queries.push_back({line.PointIn(segment, fraction, -3), {station, -3}});
    }
    return queries;
}

struct Tolerance {
    double along;
    double across;
};

// A contender and what it is asked, made and checked once for all repetitions.
struct Prepared {
    std::unique_ptr<RoadLine> line;
    std::vector<Query> queries;
    bool isRight = false;
};

bool FindsRoad(RoadLine& line, Query const& query, Tolerance tolerance) {
    RoadPoint const road = line.ToRoad(query.point);
    return std::fabs(road.station - query.road.station) <= tolerance.along &&
           std::fabs(road.offset - query.road.offset) <= tolerance.across;
}

bool FindsPoint(RoadLine& line, Query const& query, Tolerance tolerance) {
    Point const point = line.ToPlane(query.road);
    return std::hypot(point.x - query.point.x, point.y - query.point.y) <= tolerance.across;
}

void ToRoad(benchmark::State& state, RoadLine& line, std::vector<Query> const& queries) {
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(line.ToRoad(queries[next++ % queries.size()].point));
    }
}

void ToPlane(benchmark::State& state, RoadLine& line, std::vector<Query> const& queries) {
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(line.ToPlane(queries[next++ % queries.size()].road));
    }
}

void MakeIndex(benchmark::State& state, IndexMaker& maker) {
    for (auto _ : state) {
        maker.Make();
    }
}

using Run = void(benchmark::State&, RoadLine&, std::vector<Query> const&);
using Finds = bool(RoadLine&, Query const&, Tolerance);
using Make = std::unique_ptr<RoadLine>(RoadVertices const&);
using Choose = std::vector<Query>(SwayingLine const&);

constexpr Tolerance exact = {1e-6, 1e-6};
// Beside a chord that strays 1 mm from its arc a foot 25 m away moves along.
constexpr Tolerance chordal = {0.15, 0.0015};

enum class Geometry { straights, arcs, chordsOfArcs };

struct Task {
    std::string group;
    Run* run;
    Finds* finds;
    Choose* choose;
    int count;
};

Prepared Prepare(Task const& task, Make* make, Geometry geometry) {
    SwayingLine const line(task.count, geometry != Geometry::straights);
    bool const isChords = geometry == Geometry::chordsOfArcs;
    Prepared prepared = {make(isChords ? line.Chords() : line.Vertices()), task.choose(line)};
    prepared.isRight =
        std::all_of(prepared.queries.begin(), prepared.queries.end(), [&](Query const& query) {
            return task.finds(*prepared.line, query, isChords ? chordal : exact);
        });
    return prepared;
}

void Register(Task const& task, char const* name, Make* make,
              Geometry geometry = Geometry::straights) {
    auto const prepared = std::make_shared<std::optional<Prepared>>();
    benchmark::RegisterBenchmark((task.group + "/" + name).c_str(), [=](benchmark::State& state) {
        if (!*prepared) {
            *prepared = Prepare(task, make, geometry);
        }
        if (!(*prepared)->isRight) {
            state.SkipWithError("another place was found");
            return;
        }
        task.run(state, *(*prepared)->line, (*prepared)->queries);
    })->Unit(benchmark::kMicrosecond);
}

void RegisterMaking(std::string const& group, char const* name,
                    std::unique_ptr<IndexMaker> (*make)(RoadVertices const&), int count,
                    Geometry geometry) {
    benchmark::RegisterBenchmark((group + "/" + name).c_str(), [=](benchmark::State& state) {
        SwayingLine const line(count, geometry != Geometry::straights);
        MakeIndex(state,
                  *make(geometry == Geometry::chordsOfArcs ? line.Chords() : line.Vertices()));
    })->Unit(benchmark::kMicrosecond);
}

void RegisterToRoad(int count) {
    std::string const n = std::to_string(count);
    Task const straights = {"Vagstv/" + n, ToRoad, FindsRoad, RandomQueries, count};
    Register(straights, "ours", OurLine);
    if (count <= 10'000) { // it takes long
        Register(straights, "GEOS", GeosLine);
    }
    Register(straights, "Boost.Geometry", BoostLine);
    Register(straights, "limit", FlatStraights);
    Task const arcs = {"Vagstv/arcs/" + n, ToRoad, FindsRoad, RandomQueries, count};
    Register(arcs, "ours", OurLine, Geometry::arcs);
    Register(arcs, "Boost.Geometry", BoostLine, Geometry::chordsOfArcs);
    Register(arcs, "limit", FlatArcs, Geometry::arcs);
    Task const indexed = {"Vagindex/Vagstv/" + n, ToRoad, FindsRoad, RandomQueries, count};
    Register(indexed, "ours", OurIndex);
    Register(indexed, "Boost R*-tree", BoostTree);
    Task const indexedArcs = {"Vagindex/Vagstv/arcs/" + n, ToRoad, FindsRoad, RandomQueries, count};
    Register(indexedArcs, "ours", OurIndex, Geometry::arcs);
    Register(indexedArcs, "Boost R*-tree", BoostTree, Geometry::chordsOfArcs);
    std::string const made = "Vagindex/made/" + n;
    RegisterMaking(made, "ours", OurIndexMaker, count, Geometry::straights);
    RegisterMaking(made, "Boost R*-tree", BoostTreeMaker, count, Geometry::straights);
    std::string const madeArcs = "Vagindex/made/arcs/" + n;
    RegisterMaking(madeArcs, "ours", OurIndexMaker, count, Geometry::arcs);
    RegisterMaking(madeArcs, "Boost R*-tree", BoostTreeMaker, count, Geometry::chordsOfArcs);
}

void RegisterToPlane(int count) {
    std::string const n = std::to_string(count);
    Task const one = {"Vag2xy/" + n, ToPlane, FindsPoint, RandomQueries, count};
    Register(one, "ours", OurLine);
    Register(one, "std::map", MapOfStations);
    Register(one, "limit", BisectedStations);
    Task const random = {"Vagindex/Vag2xy/random/" + n, ToPlane, FindsPoint, RandomQueries, count};
    Register(random, "ours", OurIndex);
    Register(random, "std::map", MapOfStations);
    Register(random, "limit", BisectedStations);
    Task const sequence = {"Vagindex/Vag2xy/sequence/" + n, ToPlane, FindsPoint, QueriesInSequence,
                           count};
    Register(sequence, "ours", OurIndex);
    Register(sequence, "array with cursor", StationsWithCursor);
}

bool const registered = [] {
    for (int const count : {1'000, 10'000, 100'000}) {
        RegisterToRoad(count);
        RegisterToPlane(count);
    }
    return true;
}();

} // namespace
