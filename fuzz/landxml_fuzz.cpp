// LandXML of anybody: what is taken over is a road file that reads back as it is, and comes back
// through LandXML the same.
#include <formats/checks/checkvagfil.h>
#include <neighbours/landxml/landxml.h>
#include <neighbours/road/makeroad.h>

#include "taken.h"

namespace {

template <class Action> auto Taken(Action action) {
    return TakenUnless<kvarnio::NotTaken>(action);
}

kvarnio::Road RoadOf(std::string_view text) {
    return kvarnio::MakeRoad(kvarnio::ReadLandXml(text, {}), {.tolerance = 0.01}).road;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string const text(data, data + size);
    auto const road = Taken([&] { return RoadOf(text); });
    if (!road) {
        return 0;
    }
    std::string const written = kvarnio::RoadText(*road);
    kvarn::VagfilContent const content = kvarn::ReadVagfil(written);
    Check(content.skipped == 0 && content.plan.vertices.size() == road->plan.size() &&
              content.profile.vertices.size() == road->profile.size(),
          "programs read each vertex");
    auto const out = Taken([&] { return kvarnio::ToLandXml(*road, {"2026-01-01", "00:00:00"}); });
    if (out) {
        auto const back = Taken([&] { return RoadOf(*out); });
        Check(back && kvarnio::RoadText(*back) == written, "what goes out comes back");
    }
    return 0;
}
