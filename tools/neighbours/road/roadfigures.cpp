#include "roadfigures.h"

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

bool IsFinite(Area const& area) {
    return std::isfinite(area.fromStation) && std::isfinite(area.toStation) &&
           std::isfinite(area.minOffset) && std::isfinite(area.maxOffset);
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

std::vector<kokotype> OutlineOf(std::vector<AreaPart> const& parts) {
    std::vector<kokotype> outline;
    auto const add = [&](RoadPoint p, double bulge) {
        if (!outline.empty() && outline.back().x == p.x && outline.back().y == p.y) {
            outline.pop_back(); // nothing lies between the two
        }
        outline.push_back({p.x, p.y, bulge});
    };
    for (AreaPart const& part : parts) {
        add(part.minSide.From(), part.minSide.Bulge());
        add(part.minSide.To(), 0);
    }
    for (std::size_t i = parts.size(); i-- > 0;) {
        add(parts[i].maxSide.To(), -parts[i].maxSide.Bulge());
        add(parts[i].maxSide.From(), 0);
    }
    return outline;
}

} // namespace kvarnio
