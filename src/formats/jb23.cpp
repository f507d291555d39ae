#include "jb23.h"

#include <iterator>

#include "../text/format.h"
#include "../text/scan.h"

namespace kvarn {
namespace {

constexpr std::string_view scaleEnding = "SKALA";
constexpr std::string_view stepEnding = "STEG";

// In the order of their lines.
constexpr std::string_view quantities[] = {"SJUNK",  "HAST",  "KRAFT", "RPM", "SPOL", "FLODE",
                                           "HAMMAR", "TRYCK", "QT",    "FT",  "U"};
static_assert(std::size(quantities) == jb23Lines);

} // namespace

ScalePlace::ScalePlace(std::string_view key)
    : isStep(key.find(stepEnding) != std::string_view::npos) {
    int number = 0;
    for (std::string_view const quantity : quantities) {
        ++number;
        if (key.starts_with(quantity) &&
            key.substr(quantity.size()) == (isStep ? stepEnding : scaleEnding)) {
            line = number;
        }
    }
}

ScaleLine::ScaleLine(std::string_view line) {
    Scan(line, scale, step);
}

std::string ScaleLine::Text() const {
    return Format("%s   %s\n", scale, step);
}

std::string ScaleAt(LineReader& lines, ScalePlace const& place) {
    std::string_view line;
    for (int number = 1; lines.ReadLine(line); ++number) {
        if (number == place.line) {
            return std::string(ScaleLine(line).At(place));
        }
    }
    return {};
}

std::string WithScale(LineReader& lines, ScalePlace const& place, std::string_view word) {
    std::string text;
    auto const put = [&](ScaleLine line) {
        line.At(place) = word;
        AppendTextMode(text, line.Text());
    };
    std::string_view line;
    int count = 0;
    while (lines.ReadLine(line)) {
        if (++count == place.line) {
            put(ScaleLine(line));
        } else {
            AppendTextMode(text.append(line), "\n");
        }
    }
    if (count < place.line) {
        put(ScaleLine("0", "0"));
    }
    return text;
}

std::string NewScales(ScalePlace const& place, std::string_view word) {
    constexpr char const* usualStep = "50";
    return place.line == 1 && !place.isStep ? InTextMode(ScaleLine(word, usualStep).Text()) : "";
}

} // namespace kvarn
