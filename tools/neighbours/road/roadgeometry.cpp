#include "roadgeometry.h"

#include <cmath>
#include <numbers>

namespace kvarnio {

void Extent::Add(RoadPoint p) {
    if (std::isfinite(p.x) && std::isfinite(p.y)) {
        minX = std::min(minX, p.x);
        maxX = std::max(maxX, p.x);
        minY = std::min(minY, p.y);
        maxY = std::max(maxY, p.y);
    }
}

Extent Extent::Grown(double margin) const {
    return {minX - margin, maxX + margin, minY - margin, maxY + margin};
}

Segment::Segment(RoadPoint from, RoadPoint to, double bulge)
    : m_from(from), m_to(to), m_bulge(bulge), m_isArc(kvarn::IsArc(bulge)) {
    if (m_isArc) {
        m_circle = kvarn::CircleThrough(from, to, bulge);
        RoadPoint const out = from - m_circle.centre;
        m_bearing = std::atan2(out.x, out.y);
        m_sweep = 4 * std::atan(bulge);
    }
}

double Segment::Length() const {
    return m_isArc ? m_circle.radius * std::fabs(m_sweep) : kvarn::Length(m_to - m_from);
}

RoadPoint Segment::At(double fraction) const {
    if (!m_isArc) {
        RoadPoint const d = m_to - m_from;
        return {m_from.x + fraction * d.x, m_from.y + fraction * d.y};
    }
    double const a = Bearing(fraction);
    return {m_circle.centre.x + m_circle.radius * std::sin(a),
            m_circle.centre.y + m_circle.radius * std::cos(a)};
}

RoadPoint Segment::Across(double fraction) const {
    if (!m_isArc) {
        RoadPoint const d = m_to - m_from;
        double const length = kvarn::Length(d);
        return {-d.y / length, d.x / length};
    }
    double const a = Bearing(fraction);
    double const outwards = m_bulge > 0 ? 1 : -1;
    return {outwards * std::sin(a), outwards * std::cos(a)};
}

Segment Segment::Part(double from, double to) const {
    return {At(from), At(to), m_isArc ? std::tan((to - from) * m_sweep / 4) : 0};
}

Segment Segment::Beside(double offset) const {
    double const inwards = m_bulge > 0 ? -offset : offset;
    double const moved =
        m_isArc && inwards > m_circle.radius ? std::copysign(m_circle.radius, offset) : offset;
    auto const move = [&](double fraction) {
        RoadPoint const p = At(fraction);
        RoadPoint const across = Across(fraction);
        return RoadPoint{p.x + moved * across.x, p.y + moved * across.y};
    };
    return {move(0), move(1), m_bulge};
}

void Segment::AddTo(Extent& extent) const {
    extent.Add(m_from);
    extent.Add(m_to);
    if (!m_isArc || !std::isfinite(m_bearing)) {
        return;
    }
    // Where the arc runs along an axis, between its ends.
    constexpr double quarter = std::numbers::pi / 2;
    double const first = std::min(m_bearing, m_bearing + m_sweep) / quarter;
    double const last = std::max(m_bearing, m_bearing + m_sweep) / quarter;
    double const axis = std::ceil(first);
    constexpr int most = 4; // in a full turn
    for (int i = 0; i < most && axis + i <= last; ++i) {
        extent.Add(At(((axis + i) * quarter - m_bearing) / m_sweep));
    }
}

bool IsAsLongAs(Segment const& segment, double stations) {
    return std::fabs(stations - segment.Length()) <= stationRounding;
}

std::optional<double> BearingAt(Segment const& segment, double fraction) {
    constexpr double fullTurn = 400; // gon
    RoadPoint const right = segment.Across(fraction);
    double const bearing = std::atan2(-right.x, right.y) * fullTurn / (2 * std::numbers::pi);
    if (!std::isfinite(bearing)) {
        return std::nullopt;
    }
    return bearing < 0 ? bearing + fullTurn : bearing;
}

bool IsFinite(kovltype const& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.bulge) &&
           std::isfinite(v.sektion);
}

Extent ExtentOf(std::span<kovltype const> vertices) {
    Extent extent;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        extent.Add({vertices[i].x, vertices[i].y});
        if (i + 1 < vertices.size()) {
            Segment(vertices[i], vertices[i + 1]).AddTo(extent);
        }
    }
    return extent;
}

double LengthOf(std::span<kovltype const> vertices) {
    double length = 0;
    for (std::size_t i = 1; i < vertices.size(); ++i) {
        length += Segment(vertices[i - 1], vertices[i]).Length();
    }
    return length;
}

} // namespace kvarnio
