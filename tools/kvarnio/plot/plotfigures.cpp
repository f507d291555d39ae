#include "plotfigures.h"

#include <cmath>

namespace kvarnio {
namespace {

constexpr double largest = 1e13; // metres

bool CanBeDrawn(kovltype const& v) {
    return IsFinite(v) && std::fabs(v.x) <= largest && std::fabs(v.y) <= largest &&
           std::fabs(v.sektion) <= largest;
}

bool CanBeDrawn(Segment const& segment) {
    return !segment.IsArc() ||
           (std::isfinite(segment.Radius()) && std::fabs(segment.Centre().x) <= 1000 * largest &&
            std::fabs(segment.Centre().y) <= 1000 * largest);
}

bool Coincide(kovltype const& p, kovltype const& q) {
    return p.x == q.x && p.y == q.y;
}

} // namespace

Figure FigureOf(std::vector<kovltype> const& vertices) {
    Figure figure;
    kovltype const* before = nullptr;
    for (kovltype const& v : vertices) {
        bool const drawn = CanBeDrawn(v);
        if (!drawn) {
            ++figure.leftOut;
        } else {
            figure.vertices.push_back(v);
        }
        if (drawn && before != nullptr && !Coincide(*before, v)) {
            Segment const segment(*before, v);
            if (CanBeDrawn(segment)) {
                figure.pieces.push_back({segment, before->sektion, v.sektion});
            } else {
                ++figure.leftOut;
            }
        }
        before = drawn ? &v : nullptr;
    }
    return figure;
}

std::optional<Extent> ExtentOf(Figure const& figure) {
    Extent extent;
    for (kovltype const& v : figure.vertices) {
        extent.Add({v.x, v.y});
    }
    for (Piece const& piece : figure.pieces) {
        piece.figure.AddTo(extent);
    }
    return extent.Empty() ? std::nullopt : std::optional(extent);
}

std::vector<AreaPart> AreaOf(Figure const& figure, Area const& area) {
    auto const [low, high] = std::minmax(area.fromStation, area.toStation);
    std::vector<AreaPart> parts;
    for (Piece const& piece : figure.pieces) {
        double const step = piece.toStation - piece.fromStation;
        double const first = (low - piece.fromStation) / step;
        double const last = (high - piece.fromStation) / step;
        double const from = std::max(0.0, std::min(first, last));
        double const to = std::min(1.0, std::max(first, last));
        if (step == 0 || !(from < to)) {
            continue;
        }
        Segment const part = piece.figure.Part(from, to);
        if (part.Length() > 0) { // a part may be too short for its coordinates
            parts.push_back({part.Beside(area.minOffset), part.Beside(area.maxOffset)});
        }
    }
    return parts;
}

void Append(SvgPath& path, View const& view, Segment const& segment, bool backwards) {
    constexpr double straight = 0.001; // millimetres that an arc bows
    Point const from = view.On(segment.From());
    Point const to = view.On(segment.To());
    Point const target = backwards ? from : to;
    double const bow = std::fabs(segment.Bulge()) / 2 * Distance(from, to);
    if (!segment.IsArc() || !(bow > straight)) {
        path.LineTo(target);
    } else {
        path.ArcTo(target, segment.Radius() * view.right, segment.Radius() * view.up,
                   std::fabs(segment.Bulge()) > 1, (segment.Bulge() < 0) != backwards);
    }
}

SvgPath PathOf(Figure const& figure, View const& view) {
    SvgPath path;
    RoadPoint end{};
    for (Piece const& piece : figure.pieces) {
        RoadPoint const from = piece.figure.From();
        if (path.Empty() || from.x != end.x || from.y != end.y) {
            path.MoveTo(view.On(from));
        }
        Append(path, view, piece.figure);
        end = piece.figure.To();
    }
    return path;
}

std::vector<Point> PointsAlong(Figure const& figure, View const& view) {
    constexpr std::size_t most = 20000;
    constexpr int mostOfPiece = 2000;
    std::vector<Point> points;
    for (Piece const& piece : figure.pieces) {
        double const length = piece.figure.Length() * std::max(view.right, view.up);
        int const steps = static_cast<int>(std::min(std::ceil(length) + 1, 1.0 * mostOfPiece));
        for (int i = 0; i <= steps && points.size() < most; ++i) {
            points.push_back(view.On(piece.figure.At(static_cast<double>(i) / steps)));
        }
    }
    return points;
}

bool IsCrowded(Figure const& figure, View const& view) {
    constexpr double room = 3; // millimetres a vertex
    double length = 0;
    for (Piece const& piece : figure.pieces) {
        length += Distance(view.On(piece.figure.From()), view.On(piece.figure.To()));
    }
    return !figure.pieces.empty() && static_cast<double>(figure.vertices.size()) * room > length;
}

Point DirectionAt(Segment const& segment, View const& view, double fraction) {
    RoadPoint const across = segment.Across(fraction);
    Point const step = {-across.x * view.right, -across.y * view.up}; // a quarter turn back
    double const length = std::hypot(step.x, step.y);
    return {step.x / length, step.y / length};
}

double Distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

} // namespace kvarnio
