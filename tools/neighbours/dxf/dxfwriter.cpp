#include <cmath>
#include <numbers>

#include "../road/intervals.h"
#include "../road/letters.h"
#include "../road/station.h"
#include "../road/upright.h"
#include "dxf.h"
#include "dxflayers.h"
#include "dxfoutput.h"

namespace kvarnio {
namespace {

using dxf::Output;

constexpr std::size_t mostStations = 100'000;

// How large texts and ticks are, in metres. Texts of neighbouring stations keep clear of each
// other.
struct Sizes {
    explicit Sizes(double interval) : letters(interval / 5), tick(letters * 0.75) {}

    double letters;
    double tick; // to either side of the line
};

void WritePolyline(Output& out, std::span<kokotype const> vertices, bool isClosed) {
    out.Integer(90, static_cast<std::int64_t>(vertices.size())).Integer(70, isClosed ? 1 : 0);
    for (kokotype const& v : vertices) {
        out.Number(10, v.y).Number(20, v.x);
        if (v.bulge != 0) {
            out.Bulge(42, v.bulge);
        }
    }
}

RoadPoint Moved(RoadPoint from, RoadPoint direction, double distance) {
    return {from.x + direction.x * distance, from.y + direction.y * distance};
}

// The line's vertices as a polyline has them.
std::vector<kokotype> VerticesOf(std::vector<kovltype> const& plan) {
    std::vector<kokotype> vertices;
    vertices.reserve(plan.size());
    for (kovltype const& v : plan) {
        vertices.push_back({v.x, v.y, v.bulge});
    }
    return vertices;
}

class RoadDrawing {
  public:
    RoadDrawing(Road const& road, DxfDrawing const& drawing)
        : m_road(road), m_usual(UsualInterval(road.plan)),
          m_interval(drawing.interval.value_or(m_usual)),
          m_stations(StationsAlong(road.plan, m_interval, mostStations)),
          m_sizes(std::min(m_interval, m_usual)) {
        if (drawing.area && IsFinite(*drawing.area)) {
            m_area = AreaOf(FigureOf(road.plan), *drawing.area);
        }
    }

    std::string Text() && {
        Extent const shown = Shown();
        WriteTables(m_out, shown);
        m_out.Text(0, "SECTION").Text(2, "ENTITIES");
        WriteLine();
        WriteStations();
        WriteArea();
        m_out.Text(0, "ENDSEC");
        WriteObjects();
        m_out.Text(0, "EOF");
        Output header;
        WriteHeader(header, shown, m_out.LastHandle() + 1);
        return std::move(header).Take() + std::move(m_out).Take();
    }

  private:
    Extent Shown() const {
        constexpr double letters = 12; // of a station's text, and some room
        Extent extent = ExtentOf(m_road.plan);
        for (AreaPart const& part : m_area) {
            part.minSide.AddTo(extent);
            part.maxSide.AddTo(extent);
        }
        return extent.Grown(letters * m_sizes.letters);
    }

    void WriteLine() {
        m_dictionary = m_out.NewHandle();
        m_out.BeginEntity("LWPOLYLINE", "AcDbPolyline", dxf::lineLayer, m_dictionary);
        m_line = m_out.Begun();
        WritePolyline(m_out, VerticesOf(m_road.plan), false);
    }

    void WriteArea() {
        std::vector<kokotype> const outline = OutlineOf(m_area);
        if (!outline.empty()) {
            m_out.BeginEntity("LWPOLYLINE", "AcDbPolyline", dxf::areaLayer);
            WritePolyline(m_out, outline, true);
        }
    }

    // A tick at each station, and a text where it has room beside those of the ends.
    void WriteStations() {
        constexpr double room = 1.5; // of the letters' height
        double const first = m_stations.front().station;
        double const last = m_stations.back().station;
        for (StationPlace const& place : m_stations) {
            bool const isEnd = &place == &m_stations.front() || &place == &m_stations.back();
            kovltype const* const from = &m_road.plan[place.segment];
            Segment const segment(from[0], from[1]);
            RoadPoint const at = segment.At(place.fraction);
            RoadPoint const across = segment.Across(place.fraction);
            if (!std::isfinite(across.x) || !std::isfinite(at.x) || !std::isfinite(at.y)) {
                continue; // two vertices in one point have no direction
            }
            WriteTick(at, across);
            double const toEnd =
                std::min(std::fabs(place.station - first), std::fabs(place.station - last));
            if (isEnd || toEnd > room * m_sizes.letters) {
                WriteText(at, across, TextOf(place.station));
            }
        }
    }

    // An end is seldom in round numbers.
    std::string TextOf(double station) const {
        constexpr int most = 3;
        double const inIntervals = station / m_interval;
        bool const isRound = std::fabs(inIntervals - std::round(inIntervals)) < 1e-6;
        return StationText(station, isRound ? DecimalsOf(m_interval) : most);
    }

    void WriteTick(RoadPoint at, RoadPoint across) {
        m_out.BeginEntity("LINE", "AcDbLine", dxf::tickLayer);
        m_out.Point(0, Moved(at, across, -m_sizes.tick)).Point(1, Moved(at, across, m_sizes.tick));
    }

    // To the right of the line, reading away from it or, where that would be upside down, towards
    // it.
    void WriteText(RoadPoint at, RoadPoint across, std::string const& text) {
        constexpr double halfTurn = 180;
        constexpr double beside = 0.6; // of the letters' height
        constexpr double letterWidth = 0.9;
        double clockwise = std::atan2(-across.x, across.y) * halfTurn / std::numbers::pi;
        bool const readsAway = Upright(clockwise);
        double const angle = -clockwise * std::numbers::pi / halfTurn;
        RoadPoint const upwards = {std::cos(angle), -std::sin(angle)};
        RoadPoint const anchor = Moved(at, across, m_sizes.tick + beside * m_sizes.letters);
        double const width = letterWidth * m_sizes.letters * static_cast<double>(text.size());
        RoadPoint const start =
            Moved(Moved(anchor, across, readsAway ? 0 : width), upwards, -m_sizes.letters / 2);
        m_out.BeginEntity("TEXT", "AcDbText", dxf::stationLayer).Point(0, start);
        m_out.Number(40, m_sizes.letters).Text(1, text).Number(50, 0 - clockwise);
        m_out.Text(7, "Standard").Integer(72, readsAway ? left : right).Point(1, anchor);
        m_out.Text(100, "AcDbText").Integer(73, middle);
    }

    // The name and the stations, attached to the line.
    void WriteObjects() {
        constexpr Output::Handle none = 0;
        Output::Handle const record = m_out.NewHandle();
        Output::Handle const groups = m_out.NewHandle();
        m_out.Text(0, "SECTION").Text(2, "OBJECTS");
        BeginDictionary(Output::rootDictionary, none).Text(3, "ACAD_GROUP").HandleOf(350, groups);
        BeginDictionary(groups, Output::rootDictionary);
        BeginDictionary(m_dictionary, m_line).Text(3, dxf::roadRecord).HandleOf(360, record);
        m_out.Begin("XRECORD", record, m_dictionary).Text(100, "AcDbXrecord").Integer(280, 1);
        m_out.Text(1, dxf::roadRecord);
        WriteName();
        std::vector<kovltype> const& plan = m_road.plan;
        for (std::size_t i = 0; i < plan.size(); ++i) {
            bool const isLast = i + 1 == plan.size();
            double const length = isLast ? 0 : Segment(plan[i], plan[i + 1]).Length();
            m_out.Number(40, plan[i].sektion).Number(40, length);
        }
        m_out.Text(0, "ENDSEC");
    }

    Output& BeginDictionary(Output::Handle handle, Output::Handle owner) {
        m_out.Begin("DICTIONARY", handle, owner).Text(100, "AcDbDictionary");
        return m_out.Integer(281, 1);
    }

    // In pieces: a line of a drawing has a limited length.
    void WriteName() {
        constexpr std::size_t piece = 30;
        std::u16string const letters = ToUtf16(m_road.name);
        for (std::u16string_view rest = letters; !rest.empty();) {
            std::u16string_view const some = rest.substr(0, piece);
            bool const splitsPair = some.size() == piece && (some.back() & 0xFC00U) == 0xD800;
            std::u16string_view const whole = some.substr(0, some.size() - (splitsPair ? 1 : 0));
            m_out.Letters(1, whole);
            rest.remove_prefix(whole.size());
        }
    }

    static constexpr int left = 0; // how a text is anchored
    static constexpr int right = 2;
    static constexpr int middle = 2;

    Road const& m_road;
    double m_usual;
    double m_interval;
    std::vector<StationPlace> m_stations;
    Sizes m_sizes;
    std::vector<AreaPart> m_area;
    Output m_out;
    Output::Handle m_line = 0;
    Output::Handle m_dictionary = 0;
};

} // namespace

std::string ToDxf(Road const& road, DxfDrawing const& drawing) {
    return RoadDrawing(road, drawing).Text();
}

} // namespace kvarnio
