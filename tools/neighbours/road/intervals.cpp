#include "intervals.h"

#include <text/format.h>

#include "alignment.h"

namespace kvarnio {
namespace {

// Nearer to an end than this, a multiple is the end itself.
constexpr double sameStation = 0.00005; // metres: files have four decimals

// Which way the stations go: 1 or -1. Vertices may share one.
double DirectionOf(std::span<kovltype const> plan) {
    double const direction = plan.back().sektion < plan.front().sektion ? -1 : 1;
    for (std::size_t i = 1; i < plan.size(); ++i) {
        if (direction * (plan[i].sektion - plan[i - 1].sektion) < 0) {
            throw NotTaken("the stations do not go one way: vertex " + std::to_string(i + 1) +
                           " has " + Metres(plan[i].sektion) + ", the one before it " +
                           Metres(plan[i - 1].sektion));
        }
    }
    if (plan.front().sektion == plan.back().sektion) {
        throw NotTaken("all vertices have the station " + Metres(plan.front().sektion));
    }
    return direction;
}

void RequireInterval(double interval) {
    if (!std::isfinite(interval) || interval <= 0) {
        throw BadChoice("an interval between stations is a number of metres above 0");
    }
}

// Puts stations, in the order of travel, on their segments.
class Places {
  public:
    Places(std::span<kovltype const> plan, double direction)
        : m_plan(plan), m_direction(direction) {}

    StationPlace At(double station) {
        auto const isBehind = [&](kovltype const& v) {
            return m_direction * (station - v.sektion) >= 0;
        };
        while (m_segment + 2 < m_plan.size() && isBehind(m_plan[m_segment + 1])) {
            ++m_segment;
        }
        double const from = m_plan[m_segment].sektion;
        double const step = m_plan[m_segment + 1].sektion - from;
        return {station, m_segment, step == 0 ? 1 : (station - from) / step};
    }

  private:
    std::span<kovltype const> m_plan;
    double m_direction;
    std::size_t m_segment = 0;
};

} // namespace

double RoundInterval(double atLeast) {
    return FirstOf(std::array<double, 3>{1, 2, 5}, atLeast);
}

std::vector<double> Multiples(double from, double to, double step) {
    constexpr int most = 1000;
    std::vector<double> values;
    double const first = std::ceil(std::min(from, to) / step - 1e-6);
    double const last = std::floor(std::max(from, to) / step + 1e-6);
    for (int i = 0; i < most && first + i <= last; ++i) {
        values.push_back((first + i) * step);
    }
    return values;
}

double StationInterval(double apart, double from, double to) {
    constexpr double mostLabels = 200;
    return RoundInterval(std::max(apart, std::fabs(to - from) / mostLabels));
}

int DecimalsOf(double interval) {
    return std::max(0, static_cast<int>(std::ceil(-std::log10(interval * 1.01))));
}

double UsualInterval(std::span<kovltype const> plan) {
    constexpr double stations = 75; // at most, nearly
    constexpr double shortest = 0.01;
    RequireLine(plan);
    double const length = std::fabs(plan.back().sektion - plan.front().sektion);
    return RoundInterval(std::max(length / stations, shortest));
}

void RequireLine(std::span<kovltype const> plan) {
    for (std::size_t i = 0; i < plan.size(); ++i) {
        if (!IsFinite(plan[i])) {
            throw NotTaken("vertex " + std::to_string(i + 1) +
                           " of the plan holds a value that is not a number or is infinite");
        }
    }
    if (plan.size() < 2) {
        throw NotTaken(plan.empty() ? "the road has no plan"
                                    : "the plan has one vertex alone, which is no line");
    }
    for (std::size_t i = 0; i + 1 < plan.size(); ++i) {
        Segment const segment(plan[i], plan[i + 1]);
        if (segment.IsArc() && !std::isfinite(segment.Length())) {
            throw NotTaken("the arc from vertex " + std::to_string(i + 1) + " has no circle");
        }
    }
}

std::vector<StationPlace> StationsAlong(std::span<kovltype const> plan, double interval,
                                        std::size_t most) {
    RequireInterval(interval);
    RequireLine(plan);
    double const direction = DirectionOf(plan);
    double const first = plan.front().sektion;
    double const last = plan.back().sektion;
    double const count = std::fabs(last - first) / interval;
    if (!(count < static_cast<double>(most) - 2)) {
        throw NotTaken("at so short an interval the line has more than " + std::to_string(most) +
                       " stations");
    }
    std::vector<StationPlace> stations;
    stations.reserve(static_cast<std::size_t>(count) + 3);
    Places places(plan, direction);
    stations.push_back(places.At(first));
    double const isEnd = std::min(sameStation, interval / 4);
    double const from = direction > 0 ? std::floor(first / interval) : std::ceil(first / interval);
    auto const steps = static_cast<std::size_t>(count) + 2;
    for (std::size_t i = 0; i <= steps; ++i) {
        double const station = (from + direction * static_cast<double>(i)) * interval;
        if (direction * (station - first) > isEnd && direction * (last - station) > isEnd) {
            stations.push_back(places.At(station));
        }
    }
    stations.push_back(places.At(last));
    return stations;
}

} // namespace kvarnio
