#include <neighbours/lists/geojson.h>

#include <cmath>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "refused.h"
#include "roads.h"

namespace {

using Json = nlohmann::json;
using kvarnio::GeoJsonOptions;
using kvarnio::Road;
using kvarnio::ToGeoJson;

Json Written(Road const& road, GeoJsonOptions const& options = {}) {
    return Json::parse(ToGeoJson(road, options));
}

Json Line(Json const& collection) {
    return collection["features"][0]["geometry"]["coordinates"];
}

std::string Refusal(Road const& road, GeoJsonOptions const& options) {
    return RefusalOf([&] { ToGeoJson(road, options); });
}

TEST(GeoJsonTest, EastIsFirst) {
    Json const json = Written(ArcsWithProfile(), {0.001, 20.0, ""});
    EXPECT_EQ(json["type"], "FeatureCollection");
    EXPECT_FALSE(json.contains("crs"));
    EXPECT_EQ(Line(json).front(), Json({240, 10}));
    EXPECT_EQ(Line(json)[1], Json({240, 70}));
    EXPECT_EQ(Line(json).back(), Json({240, 250}));
    Json const& properties = json["features"][0]["properties"];
    EXPECT_EQ(properties["name"], Arcs().name);
    EXPECT_EQ(properties["fromStation"], 0);
    EXPECT_EQ(properties["toStation"], 248.7002);
    EXPECT_EQ(properties["largestDeviation"], 0.001);

    // 0, 20, ... 240 and the end.
    ASSERT_EQ(json["features"].size(), 1U + 14);
    Json const& station = json["features"][2];
    EXPECT_EQ(station["geometry"]["type"], "Point");
    EXPECT_EQ(station["geometry"]["coordinates"], Json({240, 30, 100.4}));
    EXPECT_EQ(station["properties"], Json({{"station", 20}, {"text", "0/020"}}));
    // Behind the profile's end there is no height.
    Json const& last = json["features"].back();
    EXPECT_EQ(last["geometry"]["coordinates"], Json({240, 250}));
    EXPECT_EQ(last["properties"]["text"], "0/248.700");
}

TEST(GeoJsonTest, ArcsAreDividedByTheDeviation) {
    for (double const deviation : {0.001, 0.1, 3.0, 100.0}) {
        Json const line = Line(Written(Arcs(), {deviation, std::nullopt, ""}));
        double most = 0;
        for (std::size_t i = 1; i < line.size(); ++i) {
            double const east = line[i][0];
            double const north = line[i][1];
            double const eastBefore = line[i - 1][0];
            double const northBefore = line[i - 1][1];
            if (north <= 70 || north > 130) {
                continue;
            }
            EXPECT_NEAR(std::hypot(east - 200, north - 100), 50, 1e-7);
            double const toMiddle =
                std::hypot((east + eastBefore) / 2 - 200, (north + northBefore) / 2 - 100);
            most = std::max(most, 50 - toMiddle);
        }
        EXPECT_LE(most, deviation + 1e-7);
        EXPECT_GE(most, std::min(deviation, 10.0) / 4) << "far more points than it takes";
    }
}

TEST(GeoJsonTest, CoordinateSystemIsNamedWhenItIsGiven) {
    EXPECT_EQ(Written(Arcs(), {0.001, std::nullopt, "EPSG:3006"})["crs"],
              Json::parse(R"({"type":"name","properties":{"name":"urn:ogc:def:crs:EPSG::3006"}})"));
    for (char const* const crs :
         {"EPSG:", "EPSG:30 06", "3006", "SWEREF 99 TM", "EPSG:3006\"", "EPSG:1234567890"}) {
        EXPECT_NE(Refusal(Arcs(), {0.001, std::nullopt, crs}).find("EPSG:3006"), std::string::npos)
            << crs;
    }
}

TEST(GeoJsonTest, NamesAreEscaped) {
    Road road = Arcs();
    road.name = "\"\\\n\x01 \xC3\xA5 \xF0\x9F\x9B\xA3";
    EXPECT_EQ(Written(road)["features"][0]["properties"]["name"], road.name);
    road.name = "\xE5";
    EXPECT_EQ(Written(road)["features"][0]["properties"]["name"], "\xEF\xBF\xBD");
}

TEST(GeoJsonTest, WhatCannotBeWrittenIsRefused) {
    for (double const bad : {0.0, -1.0, static_cast<double>(NAN), static_cast<double>(INFINITY)}) {
        EXPECT_NE(Refusal(Arcs(), {bad, std::nullopt, ""}).find("deviation"), std::string::npos);
        EXPECT_NE(Refusal(Arcs(), {0.001, bad, ""}).find("interval"), std::string::npos);
    }
    EXPECT_NE(Refusal(Arcs(), {1e-15, std::nullopt, ""}).find("the arc from vertex 2"),
              std::string::npos);
    EXPECT_NE(Refusal(Arcs(), {0.001, 1e-5, ""}).find("more than 1000000 stations"),
              std::string::npos);
    Road road = Arcs();
    road.plan[2] = road.plan[1];
    EXPECT_NE(Refusal(road, {}).find("arc from vertex 2 has no circle"), std::string::npos);
    road.plan[1].bulge = 0;
    road.plan[2].bulge = 0; // twice the same point is a line without length
    EXPECT_EQ(Line(Written(road))[2], Json({240, 190}));
}

} // namespace
