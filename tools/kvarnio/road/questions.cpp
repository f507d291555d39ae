#include "questions.h"

#include <cmath>

#include <text/codepage.h>
#include <text/format.h>

#include <neighbours/road/station.h>

namespace kvarnio {
namespace {

constexpr char const* northings[] = {"x", "n", "north", "northing", "nord", "norr"};
constexpr char const* eastings[] = {"y", "e", "east", "easting", "ost", "öst"_1252, "øst"_1252};
constexpr char const* stations[] = {"station", "sektion", "km"};
constexpr char const* offsets[] = {"offset", "sida", "sidomått"_1252};

constexpr Quantity xNorth = {"x", northings};
constexpr Quantity yEast = {"y", eastings};
constexpr Quantity stationAlong = {"station", stations, true};
constexpr Quantity offsetBeside = {"offset", offsets};
constexpr Quantity heightAbove = {"height", {}};

std::string PrintedStation(double value, bool inKilometres) {
    return inKilometres ? StationText(value, 3) : kvarn::Format("%.4lf", value);
}

constexpr char const* noNumber = "the line gives no number there; kvarnio road check names the "
                                 "places";

} // namespace

std::string AskedLine::Outside(double station, char const* line, bool inKilometres) const {
    auto const printed = [&](double value) { return PrintedStation(value, inKilometres); };
    return "station " + printed(station) + " is not on the " + line + ", which has " +
           printed(m_vertices.front().sektion) + " to " + printed(m_vertices.back().sektion);
}

Answer AskedLine::Xy(std::vector<double> const& stationAndOffset, bool inKilometres) const {
    double north = 0;
    double east = 0;
    if (m_index.Vag2xy(stationAndOffset[0], stationAndOffset[1], &north, &east) != 0) {
        return {.reason = Outside(stationAndOffset[0], "line", inKilometres)};
    }
    return {.values = {north, east}};
}

Answer AskedLine::Station(std::vector<double> const& xAndY, bool) const {
    double along = 0;
    double beside = 0;
    if (m_index.Vagstv(xAndY[0], xAndY[1], &along, &beside) != 0) {
        return {.reason = "the point lies beside no segment and no inner vertex of the line"};
    }
    return {.values = {along, beside}};
}

Answer AskedLine::Z(std::vector<double> const& station, bool inKilometres) const {
    return Z(station[0], "line", inKilometres);
}

Answer AskedLine::Z(double station, char const* line, bool inKilometres) const {
    double z = 0;
    if (m_index.Vagprofz(station, &z) != 0) {
        return {.reason = station == m_vertices.back().y
                              ? "the last station of a profile, " +
                                    PrintedStation(station, inKilometres) + ", has no height"
                              : Outside(station, line, inKilometres)};
    }
    return {.values = {z}};
}

// A plan takes stations so far outside itself, and gives them to points beside its first vertex.
Answer AskedLine::Height(double station, bool inKilometres) const {
    constexpr double tolerance = 0.0001;
    double const first = m_vertices.front().y;
    bool const isFirst = station < first && station >= first - tolerance;
    return Z(isFirst ? first : station, "profile", inKilometres);
}

std::vector<Question> const& Questions() {
    static std::vector<Question> const questions = {
        {"xy",
         "Print the coordinates of a station and an offset",
         "Positive offsets lie to the right of travel.",
         "Example: kvarnio road xy VAG27.VL 0/420 -3.5 --height",
         {&stationAlong, &offsetBeside},
         {&xNorth, &yEast},
         &AskedLine::Xy,
         false},
        {"station",
         "Print the station and the offset of a point",
         "Positive offsets lie to the right of travel; on a line whose stations decrease to the "
         "left, but\nfor points beside a corner.",
         "Example: kvarnio road station VAG27.VL 6580502 153612 --height --km",
         {&xNorth, &yEast},
         {&stationAlong, &offsetBeside},
         &AskedLine::Station,
         false},
        {"z",
         "Print the height of a profile at a station",
         "The last station itself has no height.",
         "Example: kvarnio road z VAG27.VL 0/420",
         {&stationAlong},
         {&heightAbove},
         &AskedLine::Z,
         true},
    };
    return questions;
}

std::string NamesOf(std::vector<Quantity const*> const& quantities, char const* between) {
    std::string names;
    for (Quantity const* quantity : quantities) {
        names += (names.empty() ? "" : between) + std::string(quantity->name);
    }
    return names;
}

// What is no number comes from equal stations and coincident vertices.
Answer Ask(Question const& question, AskedLine const& line, std::vector<double> const& numbers,
           bool inKilometres) {
    Answer answer = (line.*question.ask)(numbers, inKilometres);
    for (double const value : answer.values) {
        if (!std::isfinite(value)) {
            return {.reason = noNumber};
        }
    }
    return answer;
}

void AddHeight(Answer& answer, AskedLine const* profile, double station, bool inKilometres) {
    if (profile == nullptr) {
        answer.reason = "no height: the road has no profile";
        return;
    }
    Answer const asked = profile->Height(station, inKilometres);
    if (!asked.values.empty() && std::isfinite(asked.values[0])) {
        answer.height = asked.values[0];
    } else {
        answer.reason = "no height: " + (asked.values.empty() ? asked.reason : noNumber);
    }
}

std::string Printed(double value) {
    std::string text = kvarn::Format("%.4lf", value);
    return text == "-0.0000" ? text.substr(1) : text;
}

} // namespace kvarnio
