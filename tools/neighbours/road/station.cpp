#include "station.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include <text/format.h>

namespace kvarnio {
namespace {

constexpr double kilometre = 1000;

// Digits, with a point among them: the parser would take a sign and an exponent as well.
std::optional<double> ReadDigits(std::string_view text, std::string_view allowed) {
    bool const isDigits = !text.empty() && text.front() != '.' &&
                          text.find_first_not_of(allowed) == std::string_view::npos;
    return isDigits ? ReadNumber(text) : std::nullopt;
}

} // namespace

std::string StationText(double station, int decimals) {
    double const unit = std::pow(10, -decimals);
    double const rounded = std::round(std::fabs(station) / unit) * unit;
    double const kilometres = std::floor((rounded + unit / 4) / kilometre);
    double const metres = std::max(rounded - kilometres * kilometre, 0.0);
    int const width = decimals > 0 ? 4 + decimals : 3;
    return std::string(station < 0 && rounded > 0 ? "-" : "") +
           kvarn::Format("%.0lf/%0*.*lf", kilometres, width, decimals, metres);
}

std::optional<double> ReadNumber(std::string_view text) {
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    double number = 0;
    char const* const end = text.data() + text.size();
    auto const parsed = std::from_chars(text.data(), end, number);
    bool const isNumber = parsed.ec == std::errc() && parsed.ptr == end && std::isfinite(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<double> ReadStation(std::string_view text) {
    std::size_t const slash = text.find('/');
    if (slash == std::string_view::npos) {
        return ReadNumber(text);
    }
    bool const isNegative = text.starts_with('-');
    std::size_t const first = isNegative || text.starts_with('+') ? 1 : 0;
    auto const kilometres =
        ReadDigits(text.substr(0, slash).substr(std::min(first, slash)), "0123456789");
    auto const metres = ReadDigits(text.substr(slash + 1), "0123456789.");
    if (!kilometres || !metres || *metres >= kilometre) {
        return std::nullopt;
    }
    double const station = *kilometres * kilometre + *metres;
    return isNegative ? -station : station;
}

} // namespace kvarnio
