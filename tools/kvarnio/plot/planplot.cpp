// The plan: coordinate grid, area, line, stations, radii.
#include <cmath>

#include "labels.h"
#include "plotparts.h"

namespace kvarnio {
namespace {

constexpr TextStyle gridText = {.size = 2, .kind = "faint"};
constexpr TextStyle stationText = {.size = 2.3};
constexpr TextStyle endText = {.size = 2.5, .kind = "strong"};
constexpr TextStyle radiusText = {.size = 2.3, .kind = "curve"};

constexpr double besideTick = 2.6; // millimetres, where a station's text begins
constexpr double besideEnd = 3.2;  // and that of an end

TextStyle With(TextStyle style, TextStyle::Anchor anchor, double angle = 0) {
    style.anchor = anchor;
    style.angle = angle;
    return style;
}

double Millimetres(View const& view, double metres) {
    return metres * view.right;
}

// Crosses where the round coordinates meet, and their numbers beside the window.
void DrawGrid(Svg& svg, View const& view) {
    constexpr double apart = 40;
    constexpr double arm = 2;
    constexpr double outside = 2.5;
    double const step = RoundInterval(apart / view.right);
    Extent const shown = view.Shown();
    std::vector<double> const xs = Multiples(shown.minX, shown.maxX, step);
    std::vector<double> const ys = Multiples(shown.minY, shown.maxY, step);
    Rect const& window = view.window;
    for (double const x : xs) {
        for (double const y : ys) {
            Point const p = view.On({x, y});
            SvgPath cross;
            cross.MoveTo({p.x - arm, p.y}).LineTo({p.x + arm, p.y});
            cross.MoveTo({p.x, p.y - arm}).LineTo({p.x, p.y + arm});
            svg.Draw(cross, "grid");
        }
    }
    constexpr double upwards = -90;
    double const fromCorner = 12; // a number's half length
    for (double const x : xs) {
        double const at = view.On({x, 0}).y;
        if (at > window.y + fromCorner && at < window.Bottom() - fromCorner) {
            svg.Line({window.x, at}, {window.x + 1, at}, "thin");
            svg.Text({window.x - outside, at}, "x " + Grouped(x),
                     With(gridText, TextStyle::Anchor::middle, upwards));
        }
    }
    for (double const y : ys) {
        double const at = view.On({0, y}).x;
        if (at > window.x + fromCorner && at < window.Right() - fromCorner) {
            svg.Line({at, window.Bottom()}, {at, window.Bottom() - 1}, "thin");
            svg.Text({at, window.Bottom() + outside}, "y " + Grouped(y),
                     With(gridText, TextStyle::Anchor::middle));
        }
    }
}

void DrawArea(Svg& svg, View const& view, std::vector<AreaPart> const& area) {
    svg.OpenGroup("area");
    for (AreaPart const& part : area) {
        SvgPath path;
        path.MoveTo(view.On(part.minSide.From()));
        Append(path, view, part.minSide);
        path.LineTo(view.On(part.maxSide.To()));
        Append(path, view, part.maxSide, true);
        svg.Draw(path.Close(), "band");
    }
    svg.CloseGroup();
}

// Where a station is on the sheet, and the step from there to positive offsets.
struct Place {
    Point at;
    Point across;
};

Place PlaceAt(Segment const& segment, View const& view, double fraction) {
    Point const along = DirectionAt(segment, view, fraction);
    return {view.On(segment.At(fraction)), {-along.y, along.x}};
}

Point Opposite(Point p) {
    return {-p.x, -p.y};
}

void DrawTick(Svg& svg, Place const& place, double half, char const* kind) {
    svg.Line({place.at.x - half * place.across.x, place.at.y - half * place.across.y},
             {place.at.x + half * place.across.x, place.at.y + half * place.across.y}, kind);
}

class StationDrawer {
  public:
    StationDrawer(Svg& svg, View const& view, Figure const& figure, Labels& labels)
        : m_svg(svg), m_view(view), m_figure(figure), m_labels(labels),
          m_first(figure.pieces.front().fromStation), m_last(figure.pieces.back().toStation) {
        constexpr double apart = 15;
        m_interval = StationInterval(apart / view.right, m_first, m_last);
    }

    void DrawEnds() {
        constexpr double half = 2.2;
        Piece const& first = m_figure.pieces.front();
        Piece const& last = m_figure.pieces.back();
        for (auto const& [place, station] : {std::pair(PlaceAt(first.figure, m_view, 0), m_first),
                                             std::pair(PlaceAt(last.figure, m_view, 1), m_last)}) {
            DrawTick(m_svg, place, half, "end");
            PlaceText(place, StationText(station, 2), endText, besideEnd);
        }
    }

    void DrawTicks() {
        constexpr double half = 1.5;
        constexpr double minorHalf = 0.8;
        double const minor = m_interval / PartsOf(m_interval);
        EachMultiple(
            minor, [&](Place const& place, double) { DrawTick(m_svg, place, minorHalf, "tick"); });
        EachMultiple(m_interval, [&](Place const& place, double station) {
            constexpr double tooNear = 0.25; // of the interval, for the text of an end
            DrawTick(m_svg, place, half, "tick");
            if (std::fabs(station - m_first) > tooNear * m_interval &&
                std::fabs(station - m_last) > tooNear * m_interval) {
                PlaceText(place, StationText(station, DecimalsOf(m_interval)), stationText,
                          besideTick);
            }
        });
    }

  private:
    // Within the line; a place where two segments meet once.
    template <class Draw> void EachMultiple(double step, Draw draw) {
        constexpr int most = 3000;
        int count = 0;
        for (Piece const& piece : m_figure.pieces) {
            double const length = piece.toStation - piece.fromStation;
            for (double const station : Multiples(piece.fromStation, piece.toStation, step)) {
                double const fraction = (station - piece.fromStation) / length;
                if (fraction > 1e-9 && fraction <= 1 && ++count <= most) {
                    draw(PlaceAt(piece.figure, m_view, fraction), station);
                }
            }
        }
    }

    void PlaceText(Place const& place, std::string const& text, TextStyle const& style,
                   double beside) {
        m_labels.Place(m_svg, {LabelAlong(place.at, place.across, beside, text, style),
                               LabelAlong(place.at, Opposite(place.across), beside, text, style)});
    }

    Svg& m_svg;
    View const& m_view;
    Figure const& m_figure;
    Labels& m_labels;
    double m_first;
    double m_last;
    double m_interval;
};

// Where segments meet: tangent points and corners.
void DrawVertices(Svg& svg, View const& view, Figure const& figure) {
    constexpr double radius = 0.75;
    constexpr double apart = 1.6;
    Point before = {-apart, -apart};
    for (kovltype const& v : figure.vertices) {
        Point const p = view.On({v.x, v.y});
        if (Distance(p, before) >= apart) {
            svg.Circle(p, radius, "point");
            before = p;
        }
    }
}

// On the inner side of each arc that is long enough, or on the outer one.
void DrawRadii(Svg& svg, View const& view, Figure const& figure, Labels& labels) {
    constexpr double shortest = 6;
    constexpr double beside = 2.9;
    constexpr int most = 500;
    int count = 0;
    for (Piece const& piece : figure.pieces) {
        Segment const& arc = piece.figure;
        if (!arc.IsArc() || Millimetres(view, arc.Length()) < shortest || ++count > most) {
            continue;
        }
        std::string const text = "R=" + Trimmed(arc.Radius(), 2);
        auto const label = [&](double fraction, bool inside) {
            Place const place = PlaceAt(arc, view, fraction);
            bool const acrossIsOut = arc.Bulge() > 0;
            return LabelBeside(place.at,
                               acrossIsOut == inside ? Opposite(place.across) : place.across,
                               beside, text, radiusText);
        };
        labels.Place(svg,
                     {label(0.5, true), label(0.42, true), label(0.58, true), label(0.34, true),
                      label(0.66, true), label(0.5, false), label(0.42, false), label(0.58, false),
                      label(0.34, false), label(0.66, false)});
    }
}

} // namespace

void DrawPlan(Svg& svg, View const& view, Figure const& figure, std::vector<AreaPart> const& area) {
    svg.Draw(view.window, "window");
    svg.OpenWindow("plan", view.window);
    DrawArea(svg, view, area);
    svg.CloseGroup();
    DrawGrid(svg, view);
    svg.OpenWindow("line", view.window);
    Labels labels(view.window);
    for (Point const p : PointsAlong(figure, view)) {
        labels.Avoid(p);
    }
    if (!figure.pieces.empty()) {
        svg.Draw(PathOf(figure, view), "road");
        StationDrawer stations(svg, view, figure, labels);
        stations.DrawEnds();
        stations.DrawTicks();
    }
    if (!IsCrowded(figure, view)) {
        DrawVertices(svg, view, figure);
    }
    DrawRadii(svg, view, figure, labels);
    svg.CloseGroup();
    svg.Draw(view.window, "rim");
    svg.Text({view.window.x, view.window.y - 3.5}, "PLAN  " + ScaleText(view.right),
             {.size = 3, .kind = "strong"});
}

} // namespace kvarnio
