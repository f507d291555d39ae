// A LandXML file as a tree of elements that know their lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace kvarnio {

// Without the prefix of a name space.
std::string_view LocalName(pugi::xml_node node);

// The child elements of a name, wherever they stand among the others.
std::vector<pugi::xml_node> Children(pugi::xml_node node, std::string_view name);
// The first of them, or an empty node.
pugi::xml_node Child(pugi::xml_node node, std::string_view name);

// A text in quotation marks, as messages show it.
std::string Quoted(std::string_view text);
// Several, with commas between.
std::string Listed(std::vector<std::string> const& names);

// The text's lines, by the positions that the parser tells.
class LineNumbers {
  public:
    LineNumbers() = default;
    explicit LineNumbers(std::string_view text);
    std::size_t Of(std::ptrdiff_t position) const;

  private:
    std::vector<std::size_t> m_ends;
};

class LandXmlDocument {
  public:
    // Throws NotTaken, with the line, for a text that is no LandXML, or not whole, or built to be
    // expanded: one with a DOCTYPE, or elements nested beyond reason.
    explicit LandXmlDocument(std::string_view text);

    pugi::xml_node Root() const { return m_root; }

    // For messages: line 12, Curve "K1".
    std::string Where(pugi::xml_node node) const;

  private:
    void RequireShallow() const;

    LineNumbers m_lines;
    pugi::xml_document m_document;
    pugi::xml_node m_root;
};

} // namespace kvarnio
