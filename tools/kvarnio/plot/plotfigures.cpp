#include "plotfigures.h"

#include <cmath>

namespace kvarnio {
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
