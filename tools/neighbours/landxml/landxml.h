// LandXML 1.2: alignments with lines, curves and spirals, profiles with points of vertical
// intersection. A point is northing and easting there, in this order, which is x and y here; a
// curve that turns counter-clockwise there turns to the left.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "../road/alignment.h"

namespace kvarnio {

// What to take of a file; empty for the only one that there is.
struct LandXmlChoice {
    std::string name = {};
    std::string profile = {};
    bool planAlone = false;
    double tolerance = 0.001; // metres by which radius, centre and ends of a curve may disagree
};

// An alignment that a file holds.
struct LandXmlAlignment {
    std::string name;
    std::vector<std::string> profiles;
    std::size_t lines = 0;
    std::size_t curves = 0;
    std::size_t spirals = 0;
};

// Whether a text is LandXML, or would be if it were whole.
bool IsLandXml(std::string_view text);

// Throw NotTaken, with the line, for a text that is no LandXML, or not whole, or built to be
// expanded: one with a DOCTYPE, or elements nested beyond reason.
std::vector<LandXmlAlignment> ListLandXml(std::string_view text);
Alignment ReadLandXml(std::string_view text, LandXmlChoice const& choice);

// When a file was made, as its root element has it.
struct LandXmlTime {
    std::string date; // 2026-11-23
    std::string time; // 08:15:00
};

// Throws NotTaken for a vertex that is no number, for stations that jump, and for a profile whose
// stations do not grow.
std::string ToLandXml(Road const& road, LandXmlTime const& made);

} // namespace kvarnio
