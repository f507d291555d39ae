// One entity or object of a DXF text: its type and its groups.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dxfgroups.h"

namespace kvarnio::dxf {

struct Entity {
    std::string_view type;
    std::size_t line = 0; // of its type
    std::vector<Group> groups;

    // The first group of a code, or null.
    Group const* Find(int code) const;
    // Throw NotTaken where there is no such group, or it is no such number.
    double Coordinate(int code) const;
    double Number(int code) const;
    // What it is where there is none.
    double CoordinateOr(int code, double otherwise) const;
    std::int64_t FlagsOr0(int code) const;
    bool IsInPaperSpace() const;
    // The handle of the dictionary that is attached to it; 0 for none.
    std::uint64_t Dictionary() const;

    // "line 40, ARC"
    std::string Where() const;
    [[noreturn]] void Refuse(std::string const& why) const;
};

// Whether an entity in a plane of its own is seen from below, with X the other way round. Refuses
// one that does not lie flat.
bool IsMirrored(Entity const& entity);

} // namespace kvarnio::dxf
