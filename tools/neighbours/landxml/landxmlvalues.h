// The numbers and points of a LandXML file, in metres.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "../road/roadgeometry.h"
#include "landxmldocument.h"

namespace kvarnio {

// Throw NotTaken, with the element, for what is no number or not there.
class LandXmlValues {
  public:
    // Of a document that the caller keeps.
    explicit LandXmlValues(LandXmlDocument const& document);

    // A sentence on the file's unit where it is not the metre; otherwise empty.
    std::string const& Note() const { return m_note; }

    double Length(pugi::xml_node node, char const* attribute) const;
    // Two numbers or three between blanks: northing and easting, or station and height.
    RoadPoint Pair(pugi::xml_node node) const;
    // The point that stands in a child of that name, or that this refers to.
    std::optional<RoadPoint> PointIn(pugi::xml_node element, char const* name);
    RoadPoint Point(pugi::xml_node element, char const* name);

    [[noreturn]] void Refuse(pugi::xml_node node, std::string const& why) const;
    std::string Where(pugi::xml_node node) const { return m_document.Where(node); }

  private:
    // The first number of a text, taken off it; nothing for what is none, or no place on the earth.
    std::optional<double> TakeLength(std::string_view& text) const;

    LandXmlDocument const& m_document;
    double m_metres = 1; // in the file's unit
    std::string m_note;
    std::map<std::string, pugi::xml_node> m_points; // by their names; none for one of several
};

} // namespace kvarnio
