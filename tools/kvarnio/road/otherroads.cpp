#include "otherroads.h"

#include <map>

#include <neighbours/dxf/dxf.h>
#include <neighbours/landxml/landxml.h>

#include "../shared/backup.h"
#include "../shared/failure.h"
#include "../shared/output.h"
#include "../shared/platform.h"
#include "../shared/road/exchangeformat.h"

namespace kvarnio {
namespace {

struct Listing {
    std::vector<std::vector<std::string>> rows;
    Json json = Json::array();
};

Listing OfLandXml(std::string const& text) {
    Listing listing{{{"ALIGNMENT", "LINES", "CURVES", "SPIRALS", "PROFILES"}}};
    for (LandXmlAlignment const& one : ListLandXml(text)) {
        std::string profiles;
        for (std::string const& profile : one.profiles) {
            profiles += (profiles.empty() ? "" : ", ") + profile;
        }
        listing.rows.push_back({one.name, std::to_string(one.lines), std::to_string(one.curves),
                                std::to_string(one.spirals), profiles});
        listing.json.push_back({{"name", one.name},
                                {"lines", one.lines},
                                {"curves", one.curves},
                                {"spirals", one.spirals},
                                {"profiles", one.profiles}});
    }
    return listing;
}

Listing OfDxf(std::string const& text) {
    constexpr std::size_t most = 5; // of a layer: ticks along a road are lines too
    Listing listing{{{"LAYER", "HOLDS", "WHERE"}}};
    std::map<std::string, std::size_t> counts;
    for (DxfCandidate const& one : ListDxf(text)) {
        if (++counts[one.layer] <= most) {
            listing.rows.push_back({one.layer, one.what, one.where});
        }
        listing.json.push_back({{"layer", one.layer}, {"holds", one.what}, {"where", one.where}});
    }
    for (auto const& [layer, count] : counts) {
        if (count > most) {
            listing.rows.push_back(
                {layer, "and " + std::to_string(count - most) + " more", "--json lists all"});
        }
    }
    return listing;
}

} // namespace

void PrintOtherRoads(Context const& context, std::string const& typed) {
    ExchangeFormat const format = FormatToRead("", typed);
    std::string const path = LibraryPath(typed);
    std::string const text = ReadWhole(path);
    try {
        Listing const listing = format == ExchangeFormat::dxf ? OfDxf(text) : OfLandXml(text);
        if (context.json) {
            PrintJson(
                {{"file", Shown(path)}, {"format", NameOf(format)}, {"alignments", listing.json}});
        } else {
            PrintTable(listing.rows);
        }
    } catch (NotTaken const& refusal) {
        throw Failure(Shown(path) + ": " + refusal.what());
    }
}

} // namespace kvarnio
