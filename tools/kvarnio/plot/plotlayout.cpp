#include "plotlayout.h"

#include <array>
#include <cmath>

#include <text/format.h>

namespace kvarnio {
namespace {

// Millimetres.
constexpr double frameMargin = 10;
constexpr double sideWidth = 66;
constexpr double profileHeight = 98;
constexpr double besidePlan = 9;     // for coordinates
constexpr double besideProfile = 14; // for heights
constexpr double aboveWindow = 9;    // for headings
constexpr double belowWindow = 9;    // for coordinates and stations
constexpr double rightOfWindow = 5;
constexpr double a3Long = 420;
constexpr double a3Short = 297;
constexpr double stripHeight = 170; // of a profile alone
constexpr double freeInPlan = 12;   // around what is drawn, for labels
constexpr double freeInProfile = 8;
constexpr double belowProfile = 16; // for the heights of the vertices

constexpr double millimetres = 1000; // a metre

constexpr std::array<double, 4> scaleSeries = {1, 2, 4, 5};

double RoundScale(double atLeast) {
    return FirstOf(scaleSeries, atLeast);
}

// At least ten metres each way, so that a point has a scale.
Extent WithSize(Extent e) {
    constexpr double least = 10;
    auto const widen = [](double& from, double& to) {
        double const missing = least - (to - from);
        if (missing > 0) {
            from -= missing / 2;
            to += missing / 2;
        }
    };
    widen(e.minX, e.maxX);
    widen(e.minY, e.maxY);
    return e;
}

Rect Window(Rect const& panel, double left) {
    return {panel.x + left, panel.y + aboveWindow, panel.width - left - rightOfWindow,
            panel.height - aboveWindow - belowWindow};
}

View PlanView(Extent const& given, Rect const& panel) {
    Extent const e = WithSize(given);
    Rect const window = Window(panel, besidePlan);
    double const scale =
        RoundScale(millimetres * std::max((e.maxY - e.minY) / (window.width - 2 * freeInPlan),
                                          (e.maxX - e.minX) / (window.height - 2 * freeInPlan)));
    double const perMetre = millimetres / scale;
    RoadPoint const middle = {e.minX + (e.maxX - e.minX) / 2, e.minY + (e.maxY - e.minY) / 2};
    return {window, middle, window.Centre(), perMetre, perMetre};
}

// Ten times the scale of the stations, or twenty times where the heights are flat; less where they
// have no room.
double HeightScale(double stationScale, double rise, double room) {
    constexpr double usual = 10;
    constexpr double most = 20;
    constexpr double flat = 0.35; // of the room
    double const needed = millimetres * rise / room;
    if (needed > stationScale / usual) {
        return RoundScale(needed);
    }
    return stationScale / (needed < flat * stationScale / usual ? most : usual);
}

// The stations in the plan's scale where they have room in it.
View ProfileView(Extent const& given, Rect const& panel, std::optional<View> const& plan) {
    Rect const window = Window(panel, besideProfile);
    double const length = std::max(given.maxY - given.minY, 10.0);
    double const rise = std::max(given.maxX - given.minX, 1.0);
    double const roomRight = window.width - 2 * freeInProfile;
    double const roomUp = window.height - freeInProfile - belowProfile;
    double const planScale = plan ? millimetres / plan->right : 0;
    double const stationScale = std::max(RoundScale(millimetres * length / roomRight), planScale);
    double const heightScale = HeightScale(stationScale, rise, roomUp);
    double const right = millimetres / stationScale;
    double const up = millimetres / heightScale;
    double const free = (roomUp - rise * up) / 3; // more above it than below
    double const aside = (window.width - length * right) / 2;
    return {window,
            {given.minX, given.minY},
            {window.x + aside, window.Bottom() - belowProfile - free},
            right,
            up};
}

Sheet LayOutOn(double width, double height, std::optional<Extent> const& plan,
               std::optional<Extent> const& profile) {
    Rect const frame = {frameMargin, frameMargin, width - 2 * frameMargin,
                        height - 2 * frameMargin};
    Sheet sheet{width,        height,
                frame,        {frame.Right() - sideWidth, frame.y, sideWidth, frame.height},
                std::nullopt, std::nullopt};
    Rect const panel = {frame.x, frame.y, frame.width - sideWidth, frame.height};
    double const below = plan && profile ? profileHeight : plan ? 0 : panel.height;
    if (plan) {
        sheet.plan = PlanView(*plan, {panel.x, panel.y, panel.width, panel.height - below});
    }
    if (profile) {
        sheet.profile = ProfileView(*profile, {panel.x, panel.Bottom() - below, panel.width, below},
                                    sheet.plan);
    }
    return sheet;
}

} // namespace

Extent View::Shown() const {
    return {origin.x - (window.Bottom() - at.y) / up, origin.x + (at.y - window.y) / up,
            origin.y - (at.x - window.x) / right, origin.y + (window.Right() - at.x) / right};
}

Sheet LayOut(std::optional<Extent> const& plan, std::optional<Extent> const& profile) {
    if (!plan) {
        return LayOutOn(a3Long, stripHeight, plan, profile);
    }
    Sheet const landscape = LayOutOn(a3Long, a3Short, plan, profile);
    Sheet const portrait = LayOutOn(a3Short, a3Long, plan, profile);
    return portrait.plan->right > landscape.plan->right * 1.01 ? portrait : landscape;
}

int PartsOf(double interval) {
    double const digit = interval / std::pow(10, std::floor(std::log10(interval * 1.01)));
    return digit > 1.5 && digit < 2.5 ? 4 : 5;
}

std::string ScaleText(double millimetresPerMetre) {
    double const scale = millimetres / millimetresPerMetre;
    return "1:" + (scale < 1000 ? Trimmed(scale, 1) : Grouped(scale));
}

std::string Grouped(double number) {
    constexpr char const* noBreakSpace = "\xC2\xA0";
    std::string const digits = Trimmed(std::fabs(number), 3);
    std::size_t const point = std::min(digits.find('.'), digits.size());
    std::string text = number < 0 ? "-" : "";
    for (std::size_t i = 0; i < digits.size(); ++i) {
        bool const group = i > 0 && i < point && (point - i) % 3 == 0;
        text += group ? noBreakSpace : "";
        text += digits[i];
    }
    return text;
}

std::string Trimmed(double number, int decimals) {
    std::string text = kvarn::Format("%.*lf", decimals, number);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        text.erase(text.find_last_not_of('.') + 1);
    }
    return text == "-0" ? "0" : text;
}

} // namespace kvarnio
