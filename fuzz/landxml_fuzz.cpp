// LandXML of anybody: what is taken over is a road file that reads back as it is, and comes back
// through LandXML the same.
#include <cstdlib>
#include <string_view>

#include <formats/checks/checkvagfil.h>
#include <neighbours/landxml/landxml.h>
#include <neighbours/road/makeroad.h>

using namespace kvarnio;

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string_view const text(reinterpret_cast<char const*>(data), size);
    try {
        MadeRoad const made = MakeRoad(ReadLandXml(text, {}), {.tolerance = 0.01});
        std::string const road = RoadText(made.road);
        kvarn::VagfilContent const content = kvarn::ReadVagfil(road);
        Require(content.skipped == 0);
        Require(content.plan.vertices.size() == made.road.plan.size());
        Require(content.profile.vertices.size() == made.road.profile.size());
        std::string const out = ToLandXml(made.road, {"2026-01-01", "00:00:00"});
        MadeRoad const back = MakeRoad(ReadLandXml(out, {}), {.tolerance = 0.01});
        Require(RoadText(back.road) == road);
    } catch (NotTaken const&) {
        return 0;
    }
    return 0;
}
