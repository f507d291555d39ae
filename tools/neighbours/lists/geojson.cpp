#include "geojson.h"

#include <cmath>

#include <text/codepage.h>
#include <text/shown.h>

#include "../road/intervals.h"
#include "../road/letters.h"
#include "../road/roadheights.h"
#include "../road/station.h"

namespace kvarnio {
namespace {

constexpr std::size_t mostStations = 1'000'000;
constexpr double mostPoints = 10'000'000;

std::string Quoted(std::string_view utf8) {
    std::string text = "\"";
    for (char16_t const c : ToUtf16(utf8)) {
        bool const isPlain = c >= 0x20 && c < 0x7F && c != u'"' && c != u'\\';
        text += isPlain ? std::string(1, static_cast<char>(c)) : "\\u" + HexOf(c);
    }
    return text + '"';
}

// "urn:ogc:def:crs:EPSG::3006" of "EPSG:3006".
std::string UrnOf(std::string const& crs) {
    constexpr std::string_view authority = "EPSG:";
    constexpr std::size_t mostDigits = 9;
    bool const isKnown = kvarn::CompareNoCase1252(crs.substr(0, authority.size()), authority) == 0;
    std::string const number = isKnown ? crs.substr(authority.size()) : std::string();
    if (number.empty() || number.size() > mostDigits ||
        number.find_first_not_of("0123456789") != std::string::npos) {
        throw BadChoice("the coordinate system \"" + OnOneLine(crs) +
                        "\" is not named as EPSG and a number: EPSG:3006");
    }
    return "urn:ogc:def:crs:EPSG::" + number;
}

class Collection {
  public:
    Collection(Road const& road, GeoJsonOptions const& options) : m_road(road), m_options(options) {
        if (!std::isfinite(options.deviation) || options.deviation <= 0) {
            throw BadChoice("the largest deviation is a number of metres above 0");
        }
    }

    std::string Text() && {
        std::string const crs = m_options.crs.empty() ? "" : UrnOf(m_options.crs);
        double const interval =
            m_options.interval ? *m_options.interval : UsualInterval(m_road.plan);
        auto const stations = StationsAlong(m_road.plan, interval, mostStations);
        m_text = "{\"type\":\"FeatureCollection\"";
        if (!crs.empty()) {
            m_text += R"(,"crs":{"type":"name","properties":{"name":")" + crs + "\"}}";
        }
        m_text += ",\"features\":[\n";
        AddLine();
        AddStations(stations, DecimalsOf(interval));
        return std::move(m_text) + "\n]}\n";
    }

  private:
    void BeginGeometry(char const* type) {
        m_text += R"({"type":"Feature","geometry":{"type":")";
        m_text += type;
        m_text += "\",\"coordinates\":";
    }

    void AddPoint(RoadPoint p, std::optional<double> height = std::nullopt) {
        m_text += '[' + Metres(p.y) + ',' + Metres(p.x) +
                  (height ? ',' + Metres(*height) : std::string()) + ']';
    }

    void AddLine() {
        std::vector<kovltype> const& plan = m_road.plan;
        BeginGeometry("LineString");
        m_text += '[';
        AddPoint({plan.front().x, plan.front().y});
        for (std::size_t i = 1; i < plan.size(); ++i) {
            if (plan[i].x != plan[i - 1].x || plan[i].y != plan[i - 1].y) {
                AddSegment(Segment(plan[i - 1], plan[i]), i);
            }
        }
        m_text += R"(]},"properties":{"name":)" + Quoted(m_road.name) +
                  ",\"fromStation\":" + Metres(plan.front().sektion) +
                  ",\"toStation\":" + Metres(plan.back().sektion) +
                  ",\"largestDeviation\":" + kvarn::Shortest(m_options.deviation) + "}}";
    }

    // An arc in equal parts, each so short that it rises by no more than the deviation.
    void AddSegment(Segment const& segment, std::size_t number) {
        double parts = 1;
        if (segment.IsArc()) {
            double const rise = std::min(m_options.deviation / segment.Radius(), 1.0);
            double const most = 4 * std::asin(std::sqrt(rise / 2)); // the angle of a part
            parts = std::ceil(4 * std::fabs(std::atan(segment.Bulge())) / most);
            m_points += parts;
            if (!(m_points < mostPoints)) {
                throw NotTaken("the line would have more than 10000000 points: the arc from "
                               "vertex " +
                               std::to_string(number) + " has the radius " +
                               Metres(segment.Radius()));
            }
        }
        for (int part = 1; part < static_cast<int>(parts); ++part) {
            m_text += ',';
            AddPoint(segment.At(part / parts));
        }
        m_text += ',';
        AddPoint(segment.To());
    }

    void AddStations(std::vector<StationPlace> const& stations, int decimals) {
        RoadHeights const heights(m_road.profile);
        for (StationPlace const& place : stations) {
            kovltype const* const from = &m_road.plan[place.segment];
            bool const isEnd = &place == &stations.front() || &place == &stations.back();
            auto const answer = heights.At(place.station);
            m_text += ",\n";
            BeginGeometry("Point");
            AddPoint(Segment(from[0], from[1]).At(place.fraction),
                     answer ? std::optional(answer->height) : std::nullopt);
            m_text += R"(},"properties":{"station":)" + Metres(place.station) + ",\"text\":\"" +
                      StationText(place.station, isEnd ? 3 : decimals) + "\"}}";
        }
    }

    Road const& m_road;
    GeoJsonOptions const& m_options;
    std::string m_text;
    double m_points = 0;
};

} // namespace

std::string ToGeoJson(Road const& road, GeoJsonOptions const& options) {
    return Collection(road, options).Text();
}

} // namespace kvarnio
