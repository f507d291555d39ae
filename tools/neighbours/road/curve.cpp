#include "curve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include <geodata/roadsegment.h>

namespace kvarnio {
namespace {

using std::numbers::pi;

constexpr int samples = 24; // of a segment, where its deviation is looked for

RoadPoint Towards(double heading, double metres) {
    return {metres * std::cos(heading), -metres * std::sin(heading)};
}

RoadPoint operator+(RoadPoint a, RoadPoint b) {
    return {a.x + b.x, a.y + b.y};
}

// From the curvature at the start, 0, to that at the end, 1.
// Source: the transition curves of LandXML 1.2, and of Bloss and Schramm (two parabolas) in
// DIN and track design; each law is checked against the end that the file states.
double ShapeTurned(SpiralLaw law, double u) {
    double const rest = 1 - u;
    switch (law) {
    case SpiralLaw::bloss: // 3 u^2 - 2 u^3
        return u * u * u * (1 - u / 2);
    case SpiralLaw::cosine: // (1 - cos(pi u)) / 2
        return u / 2 - std::sin(pi * u) / (2 * pi);
    case SpiralLaw::sinusoid: // u - sin(2 pi u) / (2 pi)
        return u * u / 2 + (std::cos(2 * pi * u) - 1) / (4 * pi * pi);
    case SpiralLaw::biquadratic: // 2 u^2, and from the middle on 1 - 2 (1 - u)^2
        return u <= 0.5 ? 2 * u * u * u / 3 : u - 0.5 + 2 * rest * rest * rest / 3;
    default: // u
        return u * u / 2;
    }
}

double Distance(RoadPoint a, RoadPoint b) {
    return kvarn::Length(b - a);
}

} // namespace

double HeadingOf(RoadPoint vector) {
    return std::atan2(-vector.y, vector.x);
}

double Curve::Deviation(kovltype const& from, kovltype const& to, double begin, double end) const {
    Segment const segment(from, to);
    RoadPoint const chord = segment.To() - segment.From();
    double const length = kvarn::Length(chord);
    double most = std::max(Distance(At(begin), segment.From()), Distance(At(end), segment.To()));
    for (int i = 1; i < samples; ++i) {
        RoadPoint const p = At(begin + (end - begin) * i / samples);
        double const off =
            segment.IsArc()
                ? Distance(p, segment.Centre()) - segment.Radius()
                : (chord.x * (p.y - segment.From().y) - chord.y * (p.x - segment.From().x)) /
                      length;
        most = std::max(most, std::fabs(off));
    }
    return most;
}

ArcCurve::ArcCurve(RoadPoint from, RoadPoint to, double bulge)
    : m_arc(from, to, bulge), m_turn(4 * std::atan(bulge)),
      m_heading(HeadingOf(to - from) - m_turn / 2) {}

RoadPoint ArcCurve::At(double part) const {
    return part == 0 ? m_arc.From() : part == 1 ? m_arc.To() : m_arc.At(part);
}

SpiralCurve::SpiralCurve(RoadPoint from, RoadPoint to, Spiral const& spiral)
    : m_spiral(spiral), m_from(from), m_nodes{{0, 0}} {
    constexpr int nodes = 128;
    for (int i = 1; i <= nodes; ++i) {
        m_nodes.push_back(m_nodes.back() +
                          Step(static_cast<double>(i - 1) / nodes, static_cast<double>(i) / nodes));
    }
    RoadPoint const chord = to - from;
    m_misfit = kvarn::Length(m_nodes.back()) - kvarn::Length(chord);
    double const turn = HeadingOf(chord) - HeadingOf(m_nodes.back());
    for (RoadPoint& node : m_nodes) {
        node = Towards(HeadingOf(node) + turn, kvarn::Length(node));
    }
    m_heading = turn;
}

double SpiralCurve::Turned(double part) const {
    return m_spiral.length *
           (m_spiral.curvatureFrom * part +
            (m_spiral.curvatureTo - m_spiral.curvatureFrom) * ShapeTurned(m_spiral.law, part));
}

double SpiralCurve::Heading(double part) const {
    return m_heading + Turned(part);
}

// Gauss and Legendre's rule of five points.
RoadPoint SpiralCurve::Step(double from, double to) const {
    constexpr std::array<std::pair<double, double>, 5> rule = {{
        {0, 0.568888888888888889},
        {-0.538469310105683091, 0.478628670499366468},
        {0.538469310105683091, 0.478628670499366468},
        {-0.906179845938663993, 0.236926885056189088},
        {0.906179845938663993, 0.236926885056189088},
    }};
    double const half = (to - from) / 2;
    RoadPoint sum = {0, 0};
    for (auto const& [at, weight] : rule) {
        sum = sum + Towards(m_heading + Turned(from + half + at * half), weight);
    }
    return {sum.x * half * m_spiral.length, sum.y * half * m_spiral.length};
}

RoadPoint SpiralCurve::At(double part) const {
    auto const last = static_cast<double>(m_nodes.size() - 1);
    double const node = std::clamp(std::floor(part * last), 0.0, last);
    RoadPoint const known = m_nodes[static_cast<std::size_t>(node)];
    return m_from + known + (node < last ? Step(node / last, part) : RoadPoint{0, 0});
}

ParabolaCurve::ParabolaCurve(RoadPoint from, double gradientFrom, double gradientTo, double length)
    : m_from(from), m_gradient(gradientFrom), m_change(gradientTo - gradientFrom),
      m_length(length) {}

RoadPoint ParabolaCurve::At(double part) const {
    double const along = part * m_length;
    return {m_from.x + along * (m_gradient + m_change * part / 2), m_from.y + along};
}

double ParabolaCurve::Heading(double part) const {
    return std::atan(m_gradient + m_change * part) - pi / 2;
}

double ParabolaCurve::Deviation(kovltype const& from, kovltype const& to, double begin,
                                double end) const {
    return HeightDifference(*this, from, to, begin, end);
}

double HeightDifference(Curve const& curve, kovltype const& from, kovltype const& to, double begin,
                        double end) {
    kvarn::ProfileSegment const segment(from, to);
    double most = 0;
    for (int i = 0; i <= samples; ++i) {
        RoadPoint const p = curve.At(begin + (end - begin) * i / samples);
        double const station = std::clamp(p.y, from.sektion, to.sektion);
        most = std::max(most, std::fabs(segment.HeightAt(station) - p.x));
    }
    return most;
}

} // namespace kvarnio
