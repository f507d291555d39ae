// A drawing as SVG text, in millimetres on one sheet: x to the right, y down. What is given as text
// is UTF-8 and is escaped.
#pragma once

#include <string>
#include <string_view>

namespace kvarnio {

struct Point {
    double x;
    double y;
};

struct Rect {
    double x;
    double y;
    double width;
    double height;

    double Right() const { return x + width; }
    double Bottom() const { return y + height; }
    Point Centre() const { return {x + width / 2, y + height / 2}; }
    bool Contains(Point p) const {
        return p.x >= x && p.x <= Right() && p.y >= y && p.y <= Bottom();
    }
};

// A number in at most three decimals.
std::string SvgNumber(double value);

// The content of a path's attribute d.
class SvgPath {
  public:
    SvgPath& MoveTo(Point p);
    SvgPath& LineTo(Point p);
    // Clockwise is as seen on the sheet.
    SvgPath& ArcTo(Point p, double radiusX, double radiusY, bool large, bool clockwise);
    SvgPath& Close();

    bool Empty() const { return m_d.empty(); }
    std::string const& Text() const { return m_d; }

  private:
    SvgPath& Add(char command, Point p);
    std::string m_d;
};

struct TextStyle {
    enum class Anchor { start, middle, end };

    double size = 2.5; // of the letters, in millimetres
    Anchor anchor = Anchor::start;
    double angle = 0;          // degrees, clockwise
    char const* kind = "text"; // its class
};

class Svg {
  public:
    // The style is CSS for the classes that figures name.
    Svg(double width, double height, std::string_view title, char const* style);

    void OpenGroup(char const* kind);
    // What is drawn in the group is seen within the window alone.
    void OpenWindow(char const* id, Rect const& window);
    void CloseGroup();
    void Line(Point from, Point to, char const* kind);
    void Draw(SvgPath const& path, char const* kind);
    void Draw(Rect const& rect, char const* kind);
    void Circle(Point centre, double radius, char const* kind);
    // The point is in the middle of the letters' height.
    void Text(Point at, std::string_view text, TextStyle const& style);

    std::string Take() &&;

  private:
    std::string m_text;
};

} // namespace kvarnio
