#include "roadplot.h"

#include <algorithm>
#include <cmath>

#include "../shared/failure.h"
#include "labels.h"
#include "plotparts.h"

namespace kvarnio {

char const* const plotStyle = R"(
text { font-family: Arial, "Liberation Sans", Helvetica, sans-serif; fill: #1a1a1a }
.strong { font-weight: bold }
.faint { fill: #5c6770 }
.curve { fill: #1f4e8c }
.page { fill: #ffffff }
.frame { fill: none; stroke: #1a1a1a; stroke-width: 0.5 }
.window { fill: #fdfdfc }
.rim { fill: none; stroke: #1a1a1a; stroke-width: 0.25 }
.thin { fill: none; stroke: #1a1a1a; stroke-width: 0.18 }
.grid { fill: none; stroke: #b4bcc2; stroke-width: 0.15 }
.leader { fill: none; stroke: #5c6770; stroke-width: 0.15; stroke-dasharray: 1 0.8 }
.area { opacity: 0.55 }
.band { fill: #f3dfa2; stroke: #f3dfa2; stroke-width: 0.1 }
.road { fill: none; stroke: #b3261e; stroke-width: 0.6; stroke-linejoin: round }
.tick { stroke: #1a1a1a; stroke-width: 0.2 }
.end { stroke: #1a1a1a; stroke-width: 0.4 }
.point { fill: #ffffff; stroke: #1a1a1a; stroke-width: 0.25 }
.ink { fill: #1a1a1a }
)";

namespace {

constexpr double margin = 6; // within the side column

// Breaks a text into lines at its blanks, or anywhere in a word that is longer than a line.
std::vector<std::string> Wrapped(std::string const& text, double size, double width) {
    std::vector<std::string> lines = {""};
    std::string word;
    auto const take = [&](std::string const& part) {
        if (!lines.back().empty() && WidthOf(lines.back() + part, size) > width) {
            lines.emplace_back();
        }
        lines.back() += lines.back().empty() && part == " " ? "" : part;
    };
    for (std::size_t i = 0; i <= text.size(); ++i) {
        bool const ends = i == text.size() || text[i] == ' ';
        bool const isLetter = !ends && (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80;
        if (ends || (isLetter && WidthOf(word, size) > width - 2 * size)) {
            take(word);
            word.clear();
        }
        if (!ends) {
            word += text[i];
        } else if (i < text.size()) {
            take(" ");
        }
    }
    return lines;
}

void DrawNorth(Svg& svg, Point foot) {
    constexpr double height = 18;
    constexpr double half = 3;
    Point const tip = {foot.x, foot.y - height};
    SvgPath left;
    left.MoveTo(tip).LineTo({foot.x - half, foot.y}).LineTo({foot.x, foot.y - 4}).Close();
    SvgPath right;
    right.MoveTo(tip).LineTo({foot.x + half, foot.y}).LineTo({foot.x, foot.y - 4}).Close();
    svg.Draw(left, "ink");
    svg.Draw(right, "thin");
    svg.Text({tip.x, tip.y - 3}, "N",
             {.size = 4, .anchor = TextStyle::Anchor::middle, .kind = "strong"});
}

void DrawScaleBar(Svg& svg, View const& view, Point from) {
    constexpr double shortest = 20;
    constexpr double height = 1.6;
    constexpr int parts = 4;
    double const metres = RoundInterval(shortest / view.right);
    double const part = metres * view.right / parts;
    for (int i = 0; i < parts; ++i) {
        svg.Draw(Rect{from.x + i * part, from.y, part, height}, i % 2 == 0 ? "ink" : "thin");
    }
    constexpr double below = 4;
    auto const number = [&](double fraction, std::string const& unit) {
        svg.Text({from.x + fraction * parts * part, from.y + below},
                 Grouped(fraction * metres) + unit,
                 {.size = 2.3, .anchor = TextStyle::Anchor::middle});
    };
    number(0, "");
    if (WidthOf(Grouped(metres), 2.3) < part) {
        number(0.5, "");
    }
    number(1, " m");
}

void DrawLegend(Svg& svg, Point from, bool hasPlan, bool hasArea) {
    constexpr double sample = 12;
    constexpr double row = 6;
    constexpr double gap = 3;
    auto const text = [&](std::string_view what) {
        svg.Text({from.x + sample + gap, from.y}, what, {.size = 2.5});
        from.y += row;
    };
    svg.Line(from, {from.x + sample, from.y}, "road");
    text("Road line");
    svg.Circle({from.x + sample / 2, from.y}, 0.75, "point");
    text("Tangent point or corner");
    if (hasPlan) {
        svg.Line({from.x + sample / 2, from.y - 1.5}, {from.x + sample / 2, from.y + 1.5}, "tick");
        text("Station, kilometres/metres");
    }
    if (hasArea) {
        svg.OpenGroup("area");
        svg.Draw(Rect{from.x, from.y - 1.5, sample, 3}, "band");
        svg.CloseGroup();
        text("Area");
    }
}

struct Row {
    char const* what;
    std::string value;
};

// The rows from the bottom of the column upwards, the name above them.
void DrawTitle(Svg& svg, Rect const& side, std::string const& name, std::vector<Row> rows) {
    constexpr double labelSize = 2;
    constexpr double valueSize = 2.8;
    constexpr double nameSize = 4.2;
    constexpr double lead = 1.45; // from line to line, of the size
    double const width = side.width - 2 * margin;
    double const left = side.x + margin;
    double bottom = side.Bottom();
    auto const draw = [&](Row const& row, double size, char const* kind) {
        std::vector<std::string> const lines = Wrapped(row.value, size, width);
        double const height = 6 + lead * size * static_cast<double>(lines.size());
        double const top = bottom - height;
        svg.Line({side.x, top}, {side.Right(), top}, "thin");
        svg.Text({left, top + 2.6}, row.what, {.size = labelSize, .kind = "faint"});
        double at = top + 4.4 + size / 2;
        for (std::string const& line : lines) {
            svg.Text({left, at}, line, {.size = size, .kind = kind});
            at += lead * size;
        }
        bottom = top;
    };
    std::reverse(rows.begin(), rows.end());
    for (Row const& row : rows) {
        draw(row, valueSize, "text");
    }
    draw({"ROAD", name.empty() ? "(no name)" : name}, nameSize, "strong");
}

std::string StationRange(double from, double to) {
    return StationText(from, 3) + " \xE2\x80\x93 " + StationText(to, 3);
}

double LengthOf(Figure const& figure) {
    double length = 0;
    for (Piece const& piece : figure.pieces) {
        length += piece.figure.Length();
    }
    return length;
}

struct Parts {
    Figure plan;
    Figure profile;
    std::optional<Area> area;
    std::vector<AreaPart> areaParts;
};

std::vector<Row> TitleRows(Parts const& parts, Sheet const& sheet, std::string const& file) {
    std::vector<kovltype> const& plan = parts.plan.vertices;
    std::vector<kovltype> const& profile = parts.profile.vertices;
    std::vector<Row> rows = {{"FILE", file}};
    if (sheet.plan) {
        rows.push_back({"SCALE, PLAN", ScaleText(sheet.plan->right) + " (A3)"});
    }
    if (sheet.profile) {
        rows.push_back({"SCALES, PROFILE", ScaleText(sheet.profile->right) + ", heights " +
                                               ScaleText(sheet.profile->up) + " (A3)"});
    }
    if (!plan.empty()) {
        rows.push_back({"PLAN, STATIONS", StationRange(plan.front().sektion, plan.back().sektion)});
        rows.push_back({"PLAN, LENGTH", Grouped(LengthOf(parts.plan)) + " m"});
    }
    if (parts.area) {
        Area const& area = *parts.area;
        rows.push_back({"AREA, STATIONS", StationRange(area.fromStation, area.toStation)});
        rows.push_back({"AREA, OFFSETS",
                        Trimmed(area.minOffset, 3) + " to " + Trimmed(area.maxOffset, 3) + " m"});
    }
    if (!profile.empty()) {
        rows.push_back({"PROFILE, STATIONS", StationRange(profile.front().y, profile.back().y)});
    }
    if (!plan.empty()) {
        rows.push_back({"COORDINATES", "x north, y east, metres"});
    }
    return rows;
}

void DrawSide(Svg& svg, Sheet const& sheet, Parts const& parts, PlotText const& text) {
    Rect const& side = sheet.side;
    svg.Line({side.x, side.y}, {side.x, side.Bottom()}, "thin");
    double at = side.y + 8;
    if (sheet.plan) {
        DrawNorth(svg, {side.Centre().x, at + 22});
        DrawScaleBar(svg, *sheet.plan, {side.x + margin + 2, at + 32});
        at += 48;
    }
    DrawLegend(svg, {side.x + margin, at}, sheet.plan.has_value(), !parts.areaParts.empty());
    DrawTitle(svg, side, text.name, TitleRows(parts, sheet, text.file));
}

} // namespace

Plot PlotRoad(std::vector<kovltype> const& plan, std::vector<kovltype> const& profile,
              std::optional<Area> const& area, PlotText const& text) {
    Parts parts{
        FigureOf(plan), FigureOf(profile), area && IsFinite(*area) ? area : std::nullopt, {}};
    auto planExtent = ExtentOf(parts.plan);
    auto const profileExtent = ExtentOf(parts.profile);
    if (!planExtent && !profileExtent) {
        throw Failure("there is nothing to draw: no vertex has numbers that a picture can show");
    }
    if (planExtent && parts.area) {
        parts.areaParts = AreaOf(parts.plan, *parts.area);
        for (AreaPart const& part : parts.areaParts) {
            part.minSide.AddTo(*planExtent);
            part.maxSide.AddTo(*planExtent);
        }
    }
    Sheet const sheet = LayOut(planExtent, profileExtent);
    Svg svg(sheet.width, sheet.height, text.name.empty() ? text.file : text.name, plotStyle);
    svg.Draw(Rect{0, 0, sheet.width, sheet.height}, "page");
    if (sheet.plan) {
        DrawPlan(svg, *sheet.plan, parts.plan, parts.areaParts);
    }
    if (sheet.profile) {
        DrawProfile(svg, *sheet.profile, parts.profile);
    }
    DrawSide(svg, sheet, parts, text);
    svg.Draw(sheet.frame, "frame");
    return {std::move(svg).Take(), parts.plan.leftOut + parts.profile.leftOut};
}

} // namespace kvarnio
