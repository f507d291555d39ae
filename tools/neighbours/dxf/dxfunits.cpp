#include "dxfunits.h"

#include <algorithm>
#include <array>

#include <text/shown.h>

#include "../road/alignment.h"
#include "../road/letters.h"

namespace kvarnio::dxf {
namespace {

struct Unit {
    std::int64_t code; // of $INSUNITS
    std::string_view sign;
    char const* name;
    double metres;
};

constexpr std::array<Unit, 8> units = {{{1, "in", "inches", 0.0254},
                                        {2, "ft", "feet", 0.3048},
                                        {4, "mm", "millimetres", 0.001},
                                        {5, "cm", "centimetres", 0.01},
                                        {6, "m", "metres", 1},
                                        {7, "km", "kilometres", 1000},
                                        {14, "dm", "decimetres", 0.1},
                                        {21, "us-ft", "US survey feet", 1200.0 / 3937}}};

Unit const* UnitStated(std::int64_t code) {
    auto const* const unit =
        std::find_if(units.begin(), units.end(), [&](Unit const& u) { return u.code == code; });
    return unit == units.end() ? nullptr : unit;
}

std::string Named(std::int64_t stated, Unit const* unit) {
    return unit != nullptr ? unit->name : "the unit of $INSUNITS " + std::to_string(stated);
}

Unit const& UnitNamed(std::string_view sign) {
    auto const* const unit =
        std::find_if(units.begin(), units.end(), [&](Unit const& u) { return u.sign == sign; });
    if (unit != units.end()) {
        return *unit;
    }
    std::string signs;
    for (Unit const& u : units) {
        signs += (signs.empty() ? "" : ", ") + std::string(u.sign);
    }
    throw BadChoice("the unit \"" + OnOneLine(sign) + "\" is none of " + signs);
}

} // namespace

DrawingUnit UnitOf(std::int64_t stated, std::string_view given) {
    Unit const* const unit = UnitStated(stated);
    bool const isMetres = stated == 0 || (unit != nullptr && unit->metres == 1);
    if (given.empty()) {
        if (!isMetres) {
            throw NotTaken("the drawing is in " + Named(stated, unit) +
                           ": --unit m takes its numbers as metres" +
                           (unit != nullptr
                                ? ", --unit " + std::string(unit->sign) + " converts them"
                                : std::string()));
        }
        return {};
    }
    Unit const& chosen = UnitNamed(given);
    if (chosen.metres == 1) {
        return {1, isMetres ? ""
                            : "the drawing states " + Named(stated, unit) +
                                  "; its numbers were taken as metres"};
    }
    return {chosen.metres, std::string("the drawing's ") + chosen.name +
                               " were converted to metres by the factor " +
                               kvarn::Shortest(chosen.metres)};
}

std::string_view SignOf(std::int64_t stated) {
    Unit const* const unit = UnitStated(stated);
    return unit == nullptr ? "m" : unit->sign;
}

} // namespace kvarnio::dxf
