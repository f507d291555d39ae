#include "dxfentity.h"

#include <algorithm>
#include <cmath>

#include "../road/alignment.h"

namespace kvarnio::dxf {

Group const* Entity::Find(int code) const {
    auto const found = std::find_if(groups.begin(), groups.end(),
                                    [&](Group const& group) { return group.code == code; });
    return found == groups.end() ? nullptr : &*found;
}

double Entity::Coordinate(int code) const {
    Group const* const group = Find(code);
    if (group == nullptr) {
        Refuse("group " + std::to_string(code) + " is missing");
    }
    return CoordinateIn(*group);
}

double Entity::Number(int code) const {
    Group const* const group = Find(code);
    if (group == nullptr) {
        Refuse("group " + std::to_string(code) + " is missing");
    }
    return NumberIn(*group);
}

double Entity::CoordinateOr(int code, double otherwise) const {
    Group const* const group = Find(code);
    return group == nullptr ? otherwise : CoordinateIn(*group);
}

std::int64_t Entity::FlagsOr0(int code) const {
    Group const* const group = Find(code);
    return group == nullptr ? 0 : IntegerIn(*group);
}

bool Entity::IsInPaperSpace() const {
    constexpr int inPaperSpace = 67;
    return FlagsOr0(inPaperSpace) == 1;
}

std::uint64_t Entity::Dictionary() const {
    constexpr int application = 102;
    constexpr int owned = 360;
    bool isInside = false;
    for (Group const& group : groups) {
        if (group.code == application) {
            isInside = group.value == "{ACAD_XDICTIONARY";
        } else if (isInside && group.code == owned) {
            return HandleIn(group);
        }
    }
    return 0;
}

std::string Entity::Where() const {
    return LineText(line) + ", " + std::string(type);
}

void Entity::Refuse(std::string const& why) const {
    throw NotTaken(Where() + ": " + why);
}

bool IsMirrored(Entity const& entity) {
    constexpr int x = 210;
    constexpr int y = 220;
    constexpr int z = 230;
    constexpr double flat = 1e-9;
    double const upwards = entity.CoordinateOr(z, 1);
    if (std::fabs(entity.CoordinateOr(x, 0)) > flat ||
        std::fabs(entity.CoordinateOr(y, 0)) > flat || std::fabs(std::fabs(upwards) - 1) > flat) {
        entity.Refuse("it does not lie flat: its extrusion is neither 0, 0, 1 nor 0, 0, -1");
    }
    return upwards < 0;
}

} // namespace kvarnio::dxf
