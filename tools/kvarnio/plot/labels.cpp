#include "labels.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <neighbours/road/upright.h>

namespace kvarnio {
namespace {

constexpr double halfTurn = 180;

double Degrees(Point direction) {
    return std::atan2(direction.y, direction.x) * halfTurn / std::numbers::pi;
}

Point Moved(Point from, Point direction, double distance) {
    return {from.x + direction.x * distance, from.y + direction.y * distance};
}

double Dot(Point a, Point b) {
    return a.x * b.x + a.y * b.y;
}

} // namespace

Label LabelAlong(Point from, Point direction, double distance, std::string text, TextStyle style) {
    style.angle = Degrees(direction);
    style.anchor = Upright(style.angle) ? TextStyle::Anchor::start : TextStyle::Anchor::end;
    return {Moved(from, direction, distance), std::move(text), style};
}

Label LabelBeside(Point from, Point direction, double distance, std::string text, TextStyle style) {
    style.angle = Degrees({-direction.y, direction.x});
    Upright(style.angle);
    style.anchor = TextStyle::Anchor::middle;
    return {Moved(from, direction, distance), std::move(text), style};
}

double WidthOf(std::string_view utf8, double size) {
    constexpr double letter = 0.56; // a digit's width
    auto const letters = std::count_if(utf8.begin(), utf8.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
    });
    return letter * size * static_cast<double>(letters);
}

Labels::Box Labels::BoxOf(Label const& label) {
    constexpr double clear = 0.7; // millimetres
    double const angle = label.style.angle * std::numbers::pi / halfTurn;
    double const half = WidthOf(label.text, label.style.size) / 2;
    double const shift = label.style.anchor == TextStyle::Anchor::start ? half
                         : label.style.anchor == TextStyle::Anchor::end ? -half
                                                                        : 0;
    Point const along = {std::cos(angle), std::sin(angle)};
    return {Moved(label.at, along, shift), along, half + clear, label.style.size * 0.4 + clear};
}

bool Labels::Box::Contains(Point p) const {
    Point const d = {p.x - centre.x, p.y - centre.y};
    return std::fabs(Dot(d, along)) <= halfLength &&
           std::fabs(Dot(d, {-along.y, along.x})) <= halfHeight;
}

double Labels::Box::Reach(Point direction) const {
    return halfLength * std::fabs(Dot(along, direction)) +
           halfHeight * std::fabs(Dot({-along.y, along.x}, direction));
}

// Two rectangles are apart when they are along one of their sides.
bool Labels::Box::Overlaps(Box const& other) const {
    Point const d = {other.centre.x - centre.x, other.centre.y - centre.y};
    auto const apart = [&](Point side) {
        return std::fabs(Dot(d, side)) > Reach(side) + other.Reach(side);
    };
    return !apart(along) && !apart({-along.y, along.x}) && !apart(other.along) &&
           !apart({-other.along.y, other.along.x});
}

bool Labels::HasRoom(Box const& box) const {
    double const reachX = box.Reach({1, 0});
    double const reachY = box.Reach({0, 1});
    bool const inside = m_window.Contains({box.centre.x - reachX, box.centre.y - reachY}) &&
                        m_window.Contains({box.centre.x + reachX, box.centre.y + reachY});
    return inside &&
           std::none_of(m_boxes.begin(), m_boxes.end(),
                        [&](Box const& other) { return box.Overlaps(other); }) &&
           std::none_of(m_points.begin(), m_points.end(), [&](Point p) { return box.Contains(p); });
}

bool Labels::Place(Svg& svg, std::initializer_list<Label> candidates) {
    for (Label const& label : candidates) {
        Box const box = BoxOf(label);
        if (HasRoom(box)) {
            svg.Text(label.at, label.text, label.style);
            m_boxes.push_back(box);
            return true;
        }
    }
    return false;
}

} // namespace kvarnio
