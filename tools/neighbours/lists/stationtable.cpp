#include "stationtable.h"

#include <algorithm>
#include <cmath>

#include <geodata/roadsegment.h>
#include <text/format.h>

#include "../road/intervals.h"
#include "../road/roadheights.h"

namespace kvarnio {
namespace {

constexpr std::size_t mostRows = 10'000'000;
constexpr double percent = 100;

class Rows {
  public:
    Rows(Road const& road, StationTable const& table) : m_road(road), m_table(table) {
        if (table.decimalComma && table.separator == ',') {
            throw BadChoice("a comma cannot separate both columns and decimals");
        }
    }

    std::string Text() && {
        double const interval = m_table.interval ? *m_table.interval : UsualInterval(m_road.plan);
        auto const stations = StationsAlong(m_road.plan, interval, mostRows);
        m_text = "station;x;y;bearing;radius;height;gradient";
        std::replace(m_text.begin(), m_text.end(), ';', m_table.separator);
        RoadHeights const heights(m_road.profile);
        for (StationPlace const& place : stations) {
            m_text += '\n';
            AddRow(place, heights.At(place.station));
        }
        return std::move(m_text) + '\n';
    }

  private:
    void AddRow(StationPlace const& place, std::optional<ProfileAnswer> const& profile) {
        kovltype const* const from = &m_road.plan[place.segment];
        Segment const segment(from[0], from[1]);
        kvarn::Point const at = kvarn::PlanSegment(from[0], from[1]).At(place.station, 0);
        Add(place.station);
        Next(at.x);
        Next(at.y);
        Next(BearingAt(segment, place.fraction));
        Next(segment.IsArc() ? std::optional(std::copysign(segment.Radius(), segment.Bulge()))
                             : std::nullopt);
        Next(profile ? std::optional(profile->height) : std::nullopt);
        Next(profile ? std::optional(percent * profile->gradient) : std::nullopt);
    }

    void Next(std::optional<double> number) {
        m_text += m_table.separator;
        if (number) {
            Add(*number);
        }
    }

    void Add(double number) {
        constexpr int decimals = 4;
        std::size_t const from = m_text.size();
        constexpr double nothing = 0.00005;
        kvarn::AppendFixed(m_text, std::fabs(number) < nothing ? 0 : number, decimals);
        if (m_table.decimalComma) {
            std::replace(m_text.begin() + static_cast<std::ptrdiff_t>(from), m_text.end(), '.',
                         ',');
        }
    }

    Road const& m_road;
    StationTable const& m_table;
    std::string m_text;
};

} // namespace

std::string ToCsv(Road const& road, StationTable const& table) {
    return Rows(road, table).Text();
}

} // namespace kvarnio
