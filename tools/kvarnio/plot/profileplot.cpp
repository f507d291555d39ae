// The profile: its axes, the line with its vertical curves, grades and heights.
#include <cmath>

#include <text/format.h>

#include "labels.h"
#include "plotparts.h"

namespace kvarnio {
namespace {

constexpr TextStyle axisText = {.size = 2.2};
constexpr TextStyle heightText = {.size = 2.2, .kind = "faint"};
constexpr TextStyle gradeText = {.size = 2.2};
constexpr TextStyle radiusText = {.size = 2.3, .kind = "curve"};
constexpr double beside = 2.9; // millimetres, from the line to its texts

TextStyle With(TextStyle style, TextStyle::Anchor anchor, double angle = 0) {
    style.anchor = anchor;
    style.angle = angle;
    return style;
}

std::string Decimals(double number) {
    return kvarn::Format("%.2lf", number);
}

void DrawHeightAxis(Svg& svg, View const& view) {
    constexpr double apart = 8;
    constexpr double outside = 1.5;
    Rect const& window = view.window;
    double const step = RoundInterval(apart / view.up);
    Extent const shown = view.Shown();
    for (double const height : Multiples(shown.minX, shown.maxX, step)) {
        double const at = view.On({height, 0}).y;
        svg.Line({window.x, at}, {window.Right(), at}, "grid");
        svg.Text({window.x - outside, at}, Trimmed(height, 3),
                 With(axisText, TextStyle::Anchor::end));
    }
    constexpr double upwards = -90;
    svg.Text({window.x - 11.5, window.Centre().y}, "Height, m",
             With(axisText, TextStyle::Anchor::middle, upwards));
}

void DrawStationAxis(Svg& svg, View const& view) {
    constexpr double apart = 18;
    constexpr double outside = 2.5;
    Rect const& window = view.window;
    Extent const shown = view.Shown();
    double const interval = StationInterval(apart / view.right, shown.minY, shown.maxY);
    for (double const station : Multiples(shown.minY, shown.maxY, interval)) {
        double const at = view.On({0, station}).x;
        svg.Line({at, window.y}, {at, window.Bottom()}, "grid");
        svg.Text({at, window.Bottom() + outside}, StationText(station, DecimalsOf(interval)),
                 With(axisText, TextStyle::Anchor::middle));
    }
    svg.Text({window.Right(), window.Bottom() + 2.3 * outside}, "Station, km/m",
             With(axisText, TextStyle::Anchor::end));
}

// The vertices, and their heights at the foot of the window.
void DrawVertices(Svg& svg, View const& view, Figure const& figure, Labels& labels) {
    constexpr double radius = 0.75;
    constexpr double apart = 1.6;
    constexpr double aside = 1.5;
    constexpr Point upwards = {0, -1};
    double const foot = view.window.Bottom();
    Point before = {-apart, -apart};
    for (kovltype const& v : figure.vertices) {
        Point const p = view.On({v.x, v.y});
        if (Distance(p, before) < apart) {
            continue;
        }
        before = p;
        std::string const text = Decimals(v.x);
        if (labels.Place(svg, {LabelAlong({p.x - aside, foot}, upwards, 1, text, heightText),
                               LabelAlong({p.x + aside, foot}, upwards, 1, text, heightText)})) {
            svg.Line({p.x, p.y + radius}, {p.x, foot}, "leader");
        }
        svg.Circle(p, radius, "point");
    }
}

// The text along a segment, on the upper side of its line where it has room there.
void PlaceAlong(Svg& svg, View const& view, Segment const& segment, std::string const& text,
                TextStyle const& style, Labels& labels) {
    auto const label = [&](double fraction, bool above) {
        Point const along = DirectionAt(segment, view, fraction);
        double const side = (along.x >= 0) == above ? 1 : -1;
        return LabelBeside(view.On(segment.At(fraction)), {side * along.y, -side * along.x}, beside,
                           text, style);
    };
    labels.Place(svg, {label(0.5, true), label(0.35, true), label(0.65, true), label(0.5, false),
                       label(0.35, false), label(0.65, false)});
}

// The radius of a curve, the grade of a straight.
void DrawSegmentTexts(Svg& svg, View const& view, Figure const& figure, Labels& labels) {
    constexpr double shortest = 8;
    constexpr double percent = 100;
    constexpr int most = 500;
    int count = 0;
    for (Piece const& piece : figure.pieces) {
        Segment const& segment = piece.figure;
        if (segment.Length() * view.right < shortest || ++count > most) {
            continue;
        }
        RoadPoint const step = segment.To() - segment.From();
        double const grade = percent * step.x / step.y;
        if (segment.IsArc()) {
            PlaceAlong(svg, view, segment, "R=" + Trimmed(segment.Radius(), 1), radiusText, labels);
        } else if (std::isfinite(grade)) {
            PlaceAlong(svg, view, segment,
                       std::string(grade > 0 ? "+" : "") + Decimals(grade) + " %", gradeText,
                       labels);
        }
    }
}

} // namespace

void DrawProfile(Svg& svg, View const& view, Figure const& figure) {
    Rect const& window = view.window;
    svg.Draw(window, "window");
    DrawHeightAxis(svg, view);
    DrawStationAxis(svg, view);
    svg.OpenWindow("profile", window);
    Labels labels(window);
    for (Point const p : PointsAlong(figure, view)) {
        labels.Avoid(p);
    }
    if (!figure.pieces.empty()) {
        svg.Draw(PathOf(figure, view), "road");
    }
    if (!IsCrowded(figure, view)) {
        DrawVertices(svg, view, figure, labels);
    }
    DrawSegmentTexts(svg, view, figure, labels);
    svg.CloseGroup();
    svg.Draw(window, "rim");
    svg.Text({window.x, window.y - 3.5},
             "PROFILE  stations " + ScaleText(view.right) + ", heights " + ScaleText(view.up) +
                 " (\xC3\x97" + Trimmed(view.up / view.right, 1) + ")",
             {.size = 3, .kind = "strong"});
}

} // namespace kvarnio
