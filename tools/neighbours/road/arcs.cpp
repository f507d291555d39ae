#include "arcs.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <formats/vagfil.h>

namespace kvarnio {
namespace {

// Units of the last decimal in one, of coordinates and of bulges.
double const decimals = std::pow(10, kvarn::vertexDecimals);

// What a bulge of one unit turns: angles of short arcs are multiples of it.
double const quantum = 4 * std::atan(1 / decimals);

double BulgeOf(double turn) {
    return std::tan(turn / 4);
}

class Divider {
  public:
    Divider(Curve const& curve, double tolerance)
        : m_curve(curve), m_tolerance(tolerance), m_begin(curve.Heading(0)),
          m_turn(curve.Heading(1) - m_begin) {}

    Arcs Divide() {
        if (Try({0, 1}) || TryWithShortRest()) {
            return m_arcs;
        }
        constexpr int most = 4000;
        for (int pieces = 1; pieces <= most; pieces += 1 + pieces / 8) {
            if (Try(BiarcParts(pieces)) || Try(EvenParts(pieces))) {
                return m_arcs;
            }
        }
        return {};
    }

  private:
    // From the first part to the last: whether the arcs between them are near enough.
    bool Try(std::vector<double> const& parts) {
        m_arcs = {};
        for (std::size_t i = 1; i < parts.size(); ++i) {
            double const turn = m_curve.Heading(parts[i]) - m_curve.Heading(parts[i - 1]);
            m_arcs.starts.push_back(
                {parts[i - 1], Rounded(m_curve.At(parts[i - 1])), AsInFile(BulgeOf(turn))});
        }
        return IsNearEnough();
    }
    bool Try(std::vector<ArcStart> starts) {
        m_arcs = {std::move(starts), 0};
        return !m_arcs.starts.empty() && IsNearEnough();
    }

    bool IsNearEnough() {
        double heading = m_begin; // where the arc before ends
        for (std::size_t i = 0; i < m_arcs.starts.size(); ++i) {
            ArcStart const& start = m_arcs.starts[i];
            bool const isLast = i + 1 == m_arcs.starts.size();
            double const end = isLast ? 1 : m_arcs.starts[i + 1].part;
            RoadPoint const to = isLast ? Rounded(m_curve.At(1)) : m_arcs.starts[i + 1].at;
            if (!GoesOn(start, to, heading)) {
                return false;
            }
            double const off =
                m_curve.Deviation({start.at.x, start.at.y, start.bulge, StationIn(start.at)},
                                  {to.x, to.y, 0, StationIn(to)}, start.part, end);
            if (!(off <= m_tolerance)) {
                return false;
            }
            m_arcs.deviation = std::max(m_arcs.deviation, off);
        }
        return true;
    }

    // Whether an arc begins in a heading, which then becomes that of its end; the last one has to
    // end in the curve's. They may differ by what the decimals of bulges and coordinates explain.
    // Programs follow an arc of a half circle or more the other way round.
    bool GoesOn(ArcStart const& start, RoadPoint to, double& heading) const {
        RoadPoint const chord = to - start.at;
        double const length = kvarn::Length(chord);
        double const allowed = 4 / decimals + 2 / (decimals * length); // radians
        auto const isSame = [&](double a, double b) {
            return std::fabs(std::remainder(a - b, 2 * std::numbers::pi)) <= allowed;
        };
        double const middle = HeadingOf(chord);
        double const half = 2 * std::atan(start.bulge);
        bool const isLast = &start == &m_arcs.starts.back();
        bool const begins = isSame(middle - half, heading);
        heading = middle + half;
        return std::fabs(start.bulge) < 1 && length > 0 && begins &&
               (!isLast || isSame(heading, m_begin + m_turn));
    }

    // Of a profile; a plan's figures do not look at it.
    static double StationIn(RoadPoint p) { return p.y; }

    static RoadPoint Rounded(RoadPoint p) { return {AsInFile(p.x), AsInFile(p.y)}; }

    // The part at which the curve has turned so far.
    double PartWith(double turned) const {
        double low = 0;
        double high = 1;
        bool const grows = m_turn > 0;
        constexpr int halvings = 60;
        for (int i = 0; i < halvings; ++i) {
            double const middle = (low + high) / 2;
            bool const isBefore = (m_curve.Heading(middle) - m_begin < turned) == grows;
            (isBefore ? low : high) = middle;
        }
        return (low + high) / 2;
    }

    double Quanta(double part) const {
        return std::round((m_curve.Heading(part) - m_begin) / quantum);
    }

    // An arc whose bulge the file holds exactly, and a rest that is so short that it does not
    // matter.
    bool TryWithShortRest() {
        double const chord = kvarn::Length(m_curve.At(1) - m_curve.At(0));
        for (double const rest : {20.0, 10.0, 5.0, 2.5, 1.25}) { // metres
            double const turn = m_curve.Heading(1 - rest / chord) - m_begin;
            double const part =
                chord > 2 * rest ? PartWith(4 * std::atan(AsInFile(BulgeOf(turn)))) : 0;
            if (part > 0 && part < 1 && Try({0, part, 1})) {
                return true;
            }
        }
        return false;
    }

    // Two arcs with a common tangent between each two of evenly spaced places, where they have the
    // curve's tangent; nothing where these have none.
    std::vector<ArcStart> BiarcParts(int pieces) const {
        double const shortest = 0.25 / pieces;
        std::vector<ArcStart> starts;
        double from = 0;
        for (int i = 1; i <= pieces; ++i) {
            double to = 1;
            if (i < pieces) {
                to = PartWith(quantum * Quanta(static_cast<double>(i) / pieces));
            }
            if (to - from < shortest || (i < pieces && 1 - to < shortest)) {
                continue; // it turns less than the file can tell
            }
            AppendBiarc(starts, from, to);
            from = to;
        }
        return starts;
    }

    // Arcs between evenly spaced places, for a curve that turns too little for other divisions.
    static std::vector<double> EvenParts(int pieces) {
        std::vector<double> parts;
        for (int i = 0; i <= pieces; ++i) {
            parts.push_back(static_cast<double>(i) / pieces);
        }
        return parts;
    }

    // The directions of the two chords follow from the angles that they turn; their lengths are
    // those that lead to the end. One arc where no two do.
    void AppendBiarc(std::vector<ArcStart>& starts, double from, double to) const {
        double const middle = (from + to) / 2;
        double const begin = m_curve.Heading(from);
        double const end = m_curve.Heading(to);
        RoadPoint const at = m_curve.At(from);
        RoadPoint const way = m_curve.At(to) - at;
        for (double const further : {0.0, -1.0, 1.0}) {
            double const meet = m_begin + quantum * (Quanta(middle) + further);
            double const first = (begin + meet) / 2;
            double const second = (meet + end) / 2;
            double const cross = std::sin(second - first);
            double const along = way.x * std::sin(second) + way.y * std::cos(second);
            double const share = along / cross;
            double const rest = -(way.x * std::sin(first) + way.y * std::cos(first)) / cross;
            double const least = kvarn::Length(way) / 8;
            if (share > least && rest > least) {
                RoadPoint const joint = {at.x + share * std::cos(first),
                                         at.y - share * std::sin(first)};
                starts.push_back({from, Rounded(at), AsInFile(BulgeOf(meet - begin))});
                starts.push_back(
                    {PartBeside(joint, from, to), Rounded(joint), AsInFile(BulgeOf(end - meet))});
                return;
            }
        }
        starts.push_back({from, Rounded(at), AsInFile(BulgeOf(end - begin))});
    }

    // Where the curve passes a point that is beside it, between two parts.
    double PartBeside(RoadPoint p, double from, double to) const {
        double const speed = kvarn::Length(m_curve.At(to) - m_curve.At(from)) / (to - from);
        double part = (from + to) / 2;
        constexpr int steps = 4; // each leaves a small share of the distance
        for (int i = 0; i < steps; ++i) {
            RoadPoint const off = p - m_curve.At(part);
            double const heading = m_curve.Heading(part);
            part += (off.x * std::cos(heading) - off.y * std::sin(heading)) / speed;
        }
        return std::clamp(part, from, to);
    }

    Curve const& m_curve;
    double m_tolerance;
    double m_begin;
    double m_turn;
    Arcs m_arcs;
};

} // namespace

double AsInFile(double value) {
    return std::round(value * decimals) / decimals + 0.0; // no -0
}

Arcs ArcsAlong(Curve const& curve, double tolerance) {
    return Divider(curve, tolerance).Divide();
}

} // namespace kvarnio
