#include "makeroad.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include <formats/vagfil.h>
#include <text/codepage.h>
#include <text/format.h>

#include "arcs.h"

namespace kvarnio {
namespace {

using kvarn::Format;

double Distance(RoadPoint a, RoadPoint b) {
    return kvarn::Length(b - a);
}

bool IsFinite(RoadPoint p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

std::string Count(std::size_t count, char const* what) {
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

class PlanMaker {
  public:
    PlanMaker(Alignment const& alignment, MakingRoad const& how, MadeRoad& made)
        : m_alignment(alignment), m_how(how), m_made(made),
          m_direction(alignment.stationsDecrease ? -1 : 1) {}

    void Make() {
        std::vector<PlanElement> const& plan = m_alignment.plan;
        double station = m_alignment.firstStation;
        for (std::size_t i = 0; i < plan.size(); ++i) {
            RequireMeeting(i);
            if (i == 0) {
                RequireFirstStation(plan[i]);
            }
            station = plan[i].station.value_or(station);
            double const begin = station;
            double const length = AddPieces(plan[i]);
            LookAtJoint(i);
            station = EndStation(i, begin, length);
            SetStations(begin, station);
        }
        if (!plan.empty()) {
            RoadPoint const end = plan.back().to;
            m_made.road.plan.push_back({AsInFile(end.x), AsInFile(end.y), 0, AsInFile(station)});
        }
        NoteJoints();
    }

  private:
    void RequireMeeting(std::size_t i) const {
        PlanElement const& element = m_alignment.plan[i];
        if (!IsFinite(element.from) || !IsFinite(element.to) || !std::isfinite(element.bulge)) {
            throw NotTaken(element.where + ": a number is missing or out of all bounds");
        }
        if (i == 0) {
            return;
        }
        PlanElement const& before = m_alignment.plan[i - 1];
        if (double const gap = Distance(before.to, element.from); gap > m_how.tolerance) {
            throw NotTaken(element.where +
                           Format(": begins %.4lf m from the end of the element before it, ", gap) +
                           before.where);
        }
    }

    void RequireFirstStation(PlanElement const& first) const {
        double const jump =
            first.station.value_or(m_alignment.firstStation) - m_alignment.firstStation;
        if (!(std::fabs(jump) <= std::max(stationRounding, m_how.tolerance))) {
            throw NotTaken(first.where + Format(": its station is %.4lf, that of the alignment's "
                                                "start %.4lf",
                                                *first.station, m_alignment.firstStation));
        }
    }

    // How far it lies from the end of the element before it, and whether it goes on in its
    // direction. Corners between straights are a line's own.
    void LookAtJoint(std::size_t i) {
        PlanElement const& element = m_alignment.plan[i];
        double const before = std::exchange(m_headingAtEnd, m_headings.second);
        if (i == 0) {
            return;
        }
        PlanElement const& last = m_alignment.plan[i - 1];
        m_largestGap = std::max(m_largestGap, Distance(last.to, element.from));
        auto const isStraight = [](PlanElement const& one) {
            return !one.spiral && !kvarn::IsArc(one.bulge);
        };
        if (isStraight(last) && isStraight(element)) {
            return;
        }
        constexpr double worthTelling =
            0.001; // radians, and metres: of coordinates that are rounded
        double const shorter =
            std::min(Distance(last.from, last.to), Distance(element.from, element.to));
        double const angle =
            std::fabs(std::remainder(m_headings.first - before, 2 * std::numbers::pi));
        if (angle > worthTelling + worthTelling / shorter) {
            ++m_bends;
            m_bendAt = angle > m_largestBend ? element.where : m_bendAt;
            m_largestBend = std::max(m_largestBend, angle);
        }
    }

    void NoteJoints() {
        constexpr double worthTelling = 0.00005; // metres
        if (m_largestGap > worthTelling) {
            m_made.notes.push_back(
                Format("elements that meet are up to %.4lf m apart", m_largestGap));
        }
        if (m_bends > 0) {
            constexpr double gon = 200 / std::numbers::pi;
            m_made.notes.push_back(
                Count(m_bends, "bend") + " between an arc or a spiral and what is beside it" +
                Format(", the largest of %.3lf gon at ", m_largestBend * gon) + m_bendAt);
        }
    }

    // Returns the length in metres.
    double AddPieces(PlanElement const& element) {
        m_begin = m_made.road.plan.size();
        m_parts.clear();
        if (element.spiral) {
            return AddSpiral(element);
        }
        Segment const segment(element.from, element.to, element.bulge);
        double const chord = HeadingOf(element.to - element.from);
        double const half = segment.IsArc() ? 2 * std::atan(element.bulge) : 0;
        m_headings = {chord - half, chord + half};
        if (!segment.IsArc()) {
            AddVertex(0, element.from, 0);
            return segment.Length();
        }
        AddArc(element, segment);
        return segment.Length();
    }

    double AddSpiral(PlanElement const& element) {
        if (m_how.exact) {
            throw NotTaken(element.where + ": a road file has no spirals");
        }
        SpiralCurve const curve(element.from, element.to, *element.spiral);
        if (!(std::fabs(curve.Misfit()) <= m_how.tolerance)) {
            throw NotTaken(element.where +
                           Format(": its length and radii make a spiral whose ends are %.4lf m "
                                  "further apart than they are",
                                  curve.Misfit()));
        }
        m_headings = {curve.Heading(0), curve.Heading(1)};
        Arcs const arcs = AddArcs(element, curve, 0, 1);
        m_made.notes.push_back(element.where + ": the spiral became " +
                               Count(arcs.starts.size(), "arc") +
                               Format(", the largest deviation is %.4lf m", arcs.deviation));
        return element.spiral->length;
    }

    void AddArc(PlanElement const& element, Segment const& segment) {
        if (AsInFile(Distance(element.from, element.to)) == 0) {
            throw NotTaken(element.where + ": the arc ends where it begins");
        }
        // Of nearly a full circle the halves are still half circles in the file's decimals.
        double const quarterTurn = std::atan(std::fabs(element.bulge));
        std::size_t const parts = AsInFile(std::tan(quarterTurn)) < 1       ? 1
                                  : AsInFile(std::tan(quarterTurn / 2)) < 1 ? 2
                                                                            : 3;
        std::size_t count = 0;
        for (std::size_t i = 0; i < parts; ++i) {
            double const from = static_cast<double>(i) / static_cast<double>(parts);
            double const to = static_cast<double>(i + 1) / static_cast<double>(parts);
            Segment const part = parts > 1 ? segment.Part(from, to) : segment;
            ArcCurve const curve(part.From(), part.To(), part.Bulge());
            count += AddArcs(element, curve, from, to).starts.size();
        }
        if (count > 1) {
            m_made.notes.push_back(
                element.where + ": the arc was divided into " + std::to_string(count) +
                (parts > 1 ? ": programs follow one of a half circle or more the other way round"
                           : ": the four decimals of one bulge would move it further"));
        }
    }

    Arcs AddArcs(PlanElement const& element, Curve const& curve, double from, double to) {
        Arcs arcs = ArcsAlong(curve, m_how.tolerance);
        if (arcs.starts.empty()) {
            throw NotTaken(element.where +
                           Format(": no arcs with four decimals stay within %.6lf m of it; a "
                                  "greater --tolerance may be held",
                                  m_how.tolerance));
        }
        for (ArcStart const& start : arcs.starts) {
            AddVertex(from + start.part * (to - from), start.at, start.bulge);
        }
        m_made.deviation = std::max(m_made.deviation, arcs.deviation);
        return arcs;
    }

    void AddVertex(double part, RoadPoint at, double bulge) {
        m_made.road.plan.push_back({AsInFile(at.x), AsInFile(at.y), bulge, 0});
        m_parts.push_back(part);
    }

    // That of the next element where the file states it.
    double EndStation(std::size_t i, double begin, double length) const {
        std::vector<PlanElement> const& plan = m_alignment.plan;
        double const computed = begin + m_direction * length;
        std::optional<double> const stated =
            i + 1 < plan.size() ? plan[i + 1].station : m_alignment.lastStation;
        if (!stated) {
            return computed;
        }
        double const jump = *stated - computed;
        if (!(std::fabs(jump) <= std::max(stationRounding, m_how.tolerance))) {
            throw NotTaken(plan[i].where +
                           Format(": the station at its end is %.4lf, by its length it is %.4lf; a "
                                  "road file has no station equations",
                                  *stated, computed));
        }
        return *stated;
    }

    void SetStations(double begin, double end) {
        for (std::size_t i = 0; i < m_parts.size(); ++i) {
            m_made.road.plan[m_begin + i].sektion = AsInFile(begin + m_parts[i] * (end - begin));
        }
    }

    Alignment const& m_alignment;
    MakingRoad const& m_how;
    MadeRoad& m_made;
    double m_direction;
    std::size_t m_begin = 0;              // of the element's vertices
    std::vector<double> m_parts;          // where they are on it
    std::pair<double, double> m_headings; // of the element's ends
    double m_headingAtEnd = 0;            // of the one before it
    double m_largestGap = 0;
    std::size_t m_bends = 0;
    double m_largestBend = 0;
    std::string m_bendAt;
};

class ProfileMaker {
  public:
    ProfileMaker(std::vector<ProfilePoint> const& points, MakingRoad const& how, MadeRoad& made)
        : m_points(points), m_how(how), m_made(made) {}

    void Make() {
        for (std::size_t i = 0; i < m_points.size(); ++i) {
            RequireOrder(i);
            bool const isInner = i > 0 && i + 1 < m_points.size();
            if (!HasCurve(m_points[i])) {
                AddVertex(Place(m_points[i]), 0);
            } else if (isInner) {
                AddCurve(i);
            } else {
                throw NotTaken(m_points[i].where +
                               ": a vertical curve at the end of the profile has no gradient "
                               "beyond it");
            }
        }
        if (m_made.road.profile.size() == 1) {
            throw NotTaken(m_points.front().where +
                           ": a profile of one point gives no heights; --no-profile leaves it out");
        }
    }

  private:
    static bool HasCurve(ProfilePoint const& point) {
        return point.radius || point.lengthBefore > 0 || point.lengthAfter > 0;
    }
    static RoadPoint Place(ProfilePoint const& point) { return {point.height, point.station}; }

    void RequireOrder(std::size_t i) const {
        ProfilePoint const& point = m_points[i];
        if (!IsFinite(Place(point))) {
            throw NotTaken(point.where + ": a number is missing or out of all bounds");
        }
        if (i > 0 && !(point.station > m_points[i - 1].station)) {
            throw NotTaken(point.where +
                           Format(": its station %.4lf does not follow that of the point before "
                                  "it, %.4lf",
                                  point.station, m_points[i - 1].station));
        }
    }

    double Gradient(std::size_t i) const { // from a point to the next
        ProfilePoint const& from = m_points[i];
        ProfilePoint const& to = m_points[i + 1];
        return (to.height - from.height) / (to.station - from.station);
    }

    void AddCurve(std::size_t i) {
        ProfilePoint const& point = m_points[i];
        m_difference = 0;
        m_count = 0;
        double const in = Gradient(i - 1);
        double const out = Gradient(i);
        double before = point.lengthBefore;
        double after = point.lengthAfter;
        if (point.radius) {
            // The tangents of a circle are equally long.
            double const half = (std::atan(out) - std::atan(in)) / 2;
            double const tangent = std::fabs(*point.radius * std::tan(half));
            before = tangent * std::cos(std::atan(in));
            after = tangent * std::cos(std::atan(out));
            double const stated = point.lengthBefore + point.lengthAfter;
            if (stated > 0 && std::fabs(before + after - stated) > m_how.tolerance) {
                throw NotTaken(point.where +
                               Format(": its radius makes it %.4lf m long, its length is %.4lf",
                                      before + after, stated));
            }
        }
        RoadPoint const begin = End(i, -before, in, m_end);
        RoadPoint const end = End(i, after, out, {m_points[i + 1].height, m_points[i + 1].station});
        if (!(begin.y >= m_end.y) || !(end.y <= m_points[i + 1].station)) {
            throw NotTaken(point.where +
                           ": the vertical curve reaches beyond the curve or point beside it");
        }
        if (point.radius) {
            AddCircle(point, begin, end, std::tan((std::atan(out) - std::atan(in)) / 4));
            return;
        }
        if (m_how.exact) {
            throw NotTaken(point.where + ": a road file has no parabolas");
        }
        double const length = before + after;
        double const middle = (in * before + out * after) / length;
        if (before == after) {
            AddArcs(point, ParabolaCurve(begin, in, out, length));
        } else { // two parabolas that meet below or above the point
            AddArcs(point, ParabolaCurve(begin, in, middle, before));
            RoadPoint const meet = {begin.x + before * (in + middle) / 2, begin.y + before};
            AddArcs(point, ParabolaCurve(meet, middle, out, after));
        }
        AddVertex(end, 0);
        m_made.notes.push_back(
            point.where + ": the parabola became " + Count(m_count, "circular curve") +
            Format(", the largest difference in height is %.4lf m", m_difference));
    }

    // The end of a curve on its tangent; the point that is already there, where one is.
    RoadPoint End(std::size_t i, double along, double gradient, RoadPoint there) const {
        RoadPoint const end = {m_points[i].height + along * gradient, m_points[i].station + along};
        return Distance(end, there) <= m_how.tolerance ? there : end;
    }

    void AddCircle(ProfilePoint const& point, RoadPoint begin, RoadPoint end, double bulge) {
        AddArcs(point, ArcCurve(begin, end, bulge));
        AddVertex(end, 0);
        if (m_difference > m_how.tolerance) {
            m_made.notes.push_back(
                point.where + Format(": the heights that programs compute on this curve differ "
                                     "from its circle by up to %.4lf m",
                                     m_difference));
        }
    }

    void AddArcs(ProfilePoint const& point, Curve const& curve) {
        Arcs const arcs = ArcsAlong(curve, m_how.tolerance);
        if (arcs.starts.empty()) {
            throw NotTaken(point.where +
                           Format(": no circular curves with four decimals stay within %.6lf m of "
                                  "it; a greater --tolerance may be held",
                                  m_how.tolerance));
        }
        RoadPoint const end = curve.At(1);
        m_count += arcs.starts.size();
        for (std::size_t i = 0; i < arcs.starts.size(); ++i) {
            ArcStart const& start = arcs.starts[i];
            AddVertex(start.at, start.bulge);
            bool const isLast = i + 1 == arcs.starts.size();
            RoadPoint const to = isLast ? end : arcs.starts[i + 1].at;
            kovltype const next = {AsInFile(to.x), AsInFile(to.y), 0, AsInFile(to.y)};
            m_difference = std::max(
                m_difference, HeightDifference(curve, m_made.road.profile.back(), next, start.part,
                                               isLast ? 1 : arcs.starts[i + 1].part));
        }
        m_made.heightDifference = std::max(m_made.heightDifference, m_difference);
    }

    // At a place where a vertex is already, that one gets the bulge.
    void AddVertex(RoadPoint at, double bulge) {
        std::vector<kovltype>& profile = m_made.road.profile;
        kovltype const vertex = {AsInFile(at.x), AsInFile(at.y), bulge, AsInFile(at.y)};
        if (!profile.empty() && profile.back().x == vertex.x && profile.back().y == vertex.y) {
            profile.back().bulge = bulge;
        } else {
            profile.push_back(vertex);
        }
        m_end = at;
    }

    std::vector<ProfilePoint> const& m_points;
    MakingRoad const& m_how;
    MadeRoad& m_made;
    RoadPoint m_end = {0, -1e300}; // of what has been made
    double m_difference = 0;       // of this point's curve
    std::size_t m_count = 0;       // of the curves that it became
};

// The name in the file's code page; a question mark for a letter that it lacks, and for a dollar
// sign, which would end the name.
std::string NameInFile(std::string_view utf8) {
    std::string name;
    while (!utf8.empty()) {
        std::optional<char32_t> const letter = kvarn::TakeCodePoint(utf8);
        std::optional<char> const byte = letter ? kvarn::Byte1252(*letter) : std::nullopt;
        if (!letter) {
            utf8.remove_prefix(1);
        }
        bool const isControl = letter && *letter < ' ';
        name += isControl ? ' ' : byte && *byte != '$' ? *byte : '?';
    }
    return name.substr(0, kvarn::longestVagnamn);
}

// As programs will read it.
std::string NameOfText(std::string_view text) {
    return kvarn::ToUtf8(kvarn::VagfilHeader(text.substr(0, text.find('\r'))).Name());
}

} // namespace

MadeRoad MakeRoad(Alignment const& alignment, MakingRoad const& how) {
    MadeRoad made;
    made.notes = alignment.notes;
    made.road.name = alignment.name;
    PlanMaker(alignment, how, made).Make();
    ProfileMaker(alignment.profile, how, made).Make();
    if (made.road.plan.empty() && made.road.profile.empty()) {
        throw NotTaken("the alignment has neither a plan nor a profile");
    }
    if (std::string const name = NameOfText(RoadText(made.road)); name != alignment.name) {
        made.notes.push_back("the name \"" + alignment.name + "\" is kept as \"" + name + '"');
    }
    return made;
}

std::string RoadText(Road const& road) {
    std::string text;
    std::string const name = NameInFile(road.name);
    bool const hasPlan = !road.plan.empty();
    std::vector<kovltype> const& first = hasPlan ? road.plan : road.profile;
    for (std::size_t i = 0; i < first.size(); ++i) {
        if (i == 0) {
            kvarn::AppendVertex(text, first[i], hasPlan ? kvarn::vagtypPlan : kvarn::vagtypProfil,
                                name);
        } else {
            kvarn::AppendVertex(text, first[i]);
        }
    }
    if (hasPlan && !road.profile.empty()) {
        text += kvarn::profileHeading;
        for (kovltype const& vertex : road.profile) {
            kvarn::AppendProfileVertex(text, {vertex.x, vertex.y, vertex.bulge, 0});
        }
    }
    return text;
}

} // namespace kvarnio
