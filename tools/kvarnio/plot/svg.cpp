#include "svg.h"

#include <charconv>
#include <utility>

namespace kvarnio {
namespace {

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (char const c : text) {
        switch (c) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

std::string Attribute(char const* name, std::string_view value) {
    return std::string(" ") + name + "=\"" + Escaped(value) + '"';
}

std::string Attribute(char const* name, double value) {
    return Attribute(name, SvgNumber(value));
}

std::string Attributes(Rect const& rect) {
    return Attribute("x", rect.x) + Attribute("y", rect.y) + Attribute("width", rect.width) +
           Attribute("height", rect.height);
}

char const* Name(TextStyle::Anchor anchor) {
    switch (anchor) {
    case TextStyle::Anchor::middle:
        return "middle";
    case TextStyle::Anchor::end:
        return "end";
    case TextStyle::Anchor::start:
    default:
        return "start";
    }
}

} // namespace

std::string SvgNumber(double value) {
    constexpr int decimals = 3;
    char digits[400];
    auto const end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    std::string_view text(digits, static_cast<std::size_t>(end.ptr - digits));
    text = text.substr(0, text.find_last_not_of('0') + 1);
    text.remove_suffix(text.ends_with('.') ? 1 : 0);
    return text == "-0" ? "0" : std::string(text);
}

SvgPath& SvgPath::Add(char command, Point p) {
    m_d += command + SvgNumber(p.x) + ' ' + SvgNumber(p.y);
    return *this;
}

SvgPath& SvgPath::MoveTo(Point p) {
    return Add('M', p);
}

SvgPath& SvgPath::LineTo(Point p) {
    return Add('L', p);
}

SvgPath& SvgPath::ArcTo(Point p, double radiusX, double radiusY, bool large, bool clockwise) {
    m_d += 'A' + SvgNumber(radiusX) + ' ' + SvgNumber(radiusY) + " 0 " + (large ? '1' : '0') +
           (clockwise ? " 1" : " 0");
    return Add(' ', p);
}

SvgPath& SvgPath::Close() {
    m_d += 'Z';
    return *this;
}

Svg::Svg(double width, double height, std::string_view title, char const* style)
    : m_text(R"(<?xml version="1.0" encoding="UTF-8"?>)"
             "\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
             Attribute("width", SvgNumber(width) + "mm") +
             Attribute("height", SvgNumber(height) + "mm") +
             Attribute("viewBox", "0 0 " + SvgNumber(width) + ' ' + SvgNumber(height)) +
             ">\n<title>" + Escaped(title) + "</title>\n<style>" + style + "</style>\n") {}

void Svg::OpenGroup(char const* kind) {
    m_text += "<g" + Attribute("class", kind) + ">\n";
}

void Svg::OpenWindow(char const* id, Rect const& window) {
    m_text += "<clipPath" + Attribute("id", id) + "><rect" + Attributes(window) +
              "/></clipPath>\n<g" + Attribute("clip-path", std::string("url(#") + id + ')') + ">\n";
}

void Svg::CloseGroup() {
    m_text += "</g>\n";
}

void Svg::Line(Point from, Point to, char const* kind) {
    m_text += "<line" + Attribute("class", kind) + Attribute("x1", from.x) +
              Attribute("y1", from.y) + Attribute("x2", to.x) + Attribute("y2", to.y) + "/>\n";
}

void Svg::Draw(SvgPath const& path, char const* kind) {
    m_text += "<path" + Attribute("class", kind) + Attribute("d", path.Text()) + "/>\n";
}

void Svg::Draw(Rect const& rect, char const* kind) {
    m_text += "<rect" + Attribute("class", kind) + Attributes(rect) + "/>\n";
}

void Svg::Circle(Point centre, double radius, char const* kind) {
    m_text += "<circle" + Attribute("class", kind) + Attribute("cx", centre.x) +
              Attribute("cy", centre.y) + Attribute("r", radius) + "/>\n";
}

void Svg::Text(Point at, std::string_view text, TextStyle const& style) {
    constexpr double toBaseline = 0.35; // of the size, from the middle of a capital
    m_text +=
        "<text" + Attribute("class", style.kind) + Attribute("font-size", style.size) +
        Attribute("text-anchor", Name(style.anchor)) +
        Attribute("transform", "translate(" + SvgNumber(at.x) + ' ' + SvgNumber(at.y) +
                                   (style.angle != 0 ? ") rotate(" + SvgNumber(style.angle) + ')'
                                                     : std::string(")"))) +
        Attribute("y", toBaseline * style.size) + '>' + Escaped(text) + "</text>\n";
}

std::string Svg::Take() && {
    return std::move(m_text) + "</svg>\n";
}

} // namespace kvarnio
