// Labels that keep clear of the lines of a drawing and of each other.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "svg.h"

namespace kvarnio {

// A text in its place: where it is anchored, and how it is turned.
struct Label {
    Point at;
    std::string text;
    TextStyle style;
};

// A text that begins at a distance from a point in a direction and reads along it, from the left
// or from below.
Label LabelAlong(Point from, Point direction, double distance, std::string text, TextStyle style);
// A text whose middle is at a distance from a point in a direction, and which reads across it.
Label LabelBeside(Point from, Point direction, double distance, std::string text, TextStyle style);

double WidthOf(std::string_view utf8, double size);

class Labels {
  public:
    explicit Labels(Rect const& window) : m_window(window) {}

    // What labels keep clear of.
    void Avoid(Point p) { m_points.push_back(p); }

    // The first of the labels that has room within the window; false when none has.
    bool Place(Svg& svg, std::initializer_list<Label> candidates);

  private:
    struct Box {
        Point centre;
        Point along; // a step of length one, in the direction of reading
        double halfLength;
        double halfHeight;

        bool Contains(Point p) const;
        bool Overlaps(Box const& other) const;
        double Reach(Point direction) const; // half its size in a direction
    };

    static Box BoxOf(Label const& label);
    bool HasRoom(Box const& box) const;

    Rect m_window;
    std::vector<Point> m_points;
    std::vector<Box> m_boxes;
};

} // namespace kvarnio
