// A drawing in DXF is a road or is refused with a reason. A road that comes out of one has numbers
// alone, and comes back from its own drawing.
#include <algorithm>
#include <cmath>
#include <string>

#include <neighbours/dxf/dxf.h>

#include "taken.h"

namespace {

template <class Action> auto Taken(Action action) {
    return TakenUnless<kvarnio::NotTaken>(action);
}

using kvarnio::Alignment;
using kvarnio::PlanElement;
using kvarnio::Road;

bool IsPlace(kvarnio::RoadPoint p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

double LengthOf(PlanElement const& element) {
    return kvarnio::Segment(element.from, element.to, element.bulge).Length();
}

void CheckElements(Alignment const& alignment, double tolerance) {
    Check(!alignment.plan.empty(), "an alignment has elements");
    PlanElement const* before = nullptr;
    for (PlanElement const& element : alignment.plan) {
        Check(IsPlace(element.from) && IsPlace(element.to) && std::isfinite(element.bulge),
              "the values are numbers");
        Check(!element.where.empty() && !element.spiral, "each is named");
        Check(element.station.has_value() == alignment.lastStation.has_value(),
              "all stations are known, or none is");
        Check(before == nullptr ||
                  kvarn::Length(element.from - before->to) <= tolerance * (1 + 1e-9),
              "elements meet");
        before = &element;
    }
}

// Numbers that the digits of a drawing hold.
bool IsUsual(PlanElement const& element) {
    constexpr double far = 1e7;
    constexpr double least = 0.001;
    return std::max({std::fabs(element.from.x), std::fabs(element.from.y), std::fabs(element.to.x),
                     std::fabs(element.to.y)}) < far &&
           std::fabs(element.bulge) < 2 && LengthOf(element) > least;
}

void CheckThereAndBack(Alignment const& alignment) {
    constexpr double printed = 1e-7;
    Road road{alignment.name, {}, {}};
    double station = 0;
    for (PlanElement const& element : alignment.plan) {
        road.plan.push_back({element.from.x, element.from.y, element.bulge, station});
        station += LengthOf(element);
    }
    PlanElement const& last = alignment.plan.back();
    road.plan.push_back({last.to.x, last.to.y, 0, station});
    auto const text = Taken([&] { return kvarnio::ToDxf(road); });
    Check(text.has_value(), "a usual road is written");
    auto const back = Taken([&] { return kvarnio::ReadDxf(*text); });
    Check(back && back->name == alignment.name && back->notes.empty(), "and read again");
    Check(back->plan.size() == alignment.plan.size(), "with all elements");
    for (std::size_t i = 0; i < back->plan.size(); ++i) {
        kovltype const& vertex = road.plan[i];
        PlanElement const& element = back->plan[i];
        Check(std::fabs(element.from.x - vertex.x) < printed &&
                  std::fabs(element.from.y - vertex.y) < printed &&
                  std::fabs(element.bulge - vertex.bulge) < printed &&
                  std::fabs(element.station.value_or(NAN) - vertex.sektion) < printed,
              "where they were");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(data, data + size);
    kvarnio::DxfChoice choice;
    choice.unit = "m";
    auto const alignment = Taken([&] { return kvarnio::ReadDxf(text, choice); });
    auto const candidates = Taken([&] { return kvarnio::ListDxf(text, choice); });
    if (!alignment) {
        return 0;
    }
    Check(candidates && !candidates->empty(), "what is taken is listed");
    CheckElements(*alignment, choice.tolerance);
    bool const isUsual = std::all_of(alignment->plan.begin(), alignment->plan.end(), IsUsual);
    if (isUsual && alignment->plan.size() < 1000) {
        CheckThereAndBack(*alignment);
    }
    return 0;
}
