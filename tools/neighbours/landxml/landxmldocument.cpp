#include "landxmldocument.h"

#include <algorithm>

#include "../road/alignment.h"
#include "../road/letters.h"

namespace kvarnio {
namespace {

using pugi::xml_node;

constexpr int deepest = 64; // levels of elements; files of road programs have about twenty

// What stands before the root element. A document type could define entities.
void RequireNoDoctype(std::string_view text) {
    std::size_t const at = text.find("<!DOCTYPE");
    std::size_t const root = text.find("<LandXML");
    if (at != std::string_view::npos && at < root) {
        throw NotTaken(
            "line " +
            std::to_string(LineNumbers(text.substr(0, at)).Of(static_cast<std::ptrdiff_t>(at))) +
            ": a document type (DOCTYPE), which LandXML has none of");
    }
}

pugi::xml_encoding EncodingOf(std::string_view text) {
    std::string_view const declaration = text.substr(0, text.find("?>"));
    return declaration.starts_with("<?xml") && declaration.find("8859-1") != std::string_view::npos
               ? pugi::encoding_latin1
               : pugi::encoding_utf8;
}

} // namespace

std::string_view LocalName(xml_node node) {
    std::string_view const name = node.name();
    std::size_t const colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

// The child elements of a name, wherever they stand among the others.
std::vector<xml_node> Children(xml_node node, std::string_view name) {
    std::vector<xml_node> found;
    for (xml_node const child : node.children()) {
        if (LocalName(child) == name) {
            found.push_back(child);
        }
    }
    return found;
}

xml_node Child(xml_node node, std::string_view name) {
    for (xml_node const child : node.children()) {
        if (LocalName(child) == name) {
            return child;
        }
    }
    return {};
}

std::string Quoted(std::string_view text) {
    return std::string("\"").append(OnOneLine(text)).append("\"");
}

std::string Listed(std::vector<std::string> const& names) {
    std::string list;
    for (std::string const& name : names) {
        list.append(list.empty() ? "" : ", ").append(Quoted(name));
    }
    return list;
}

LineNumbers::LineNumbers(std::string_view text) {
    for (std::size_t at = text.find('\n'); at != std::string_view::npos;
         at = text.find('\n', at + 1)) {
        m_ends.push_back(at);
    }
}

std::size_t LineNumbers::Of(std::ptrdiff_t position) const {
    auto const end =
        std::lower_bound(m_ends.begin(), m_ends.end(), static_cast<std::size_t>(position));
    return 1 + static_cast<std::size_t>(end - m_ends.begin());
}

LandXmlDocument::LandXmlDocument(std::string_view text) : m_lines(text) {
    RequirePlainText(text);
    RequireNoDoctype(text);
    pugi::xml_parse_result const result = m_document.load_buffer(
        text.data(), text.size(),
        pugi::parse_cdata | pugi::parse_escapes | pugi::parse_wconv_attribute | pugi::parse_eol |
            pugi::parse_embed_pcdata,
        EncodingOf(text));
    if (!result) {
        throw NotTaken("line " + std::to_string(m_lines.Of(result.offset)) +
                       ": this is no XML, or the file is not whole: " + result.description());
    }
    m_root = m_document.first_child();
    if (LocalName(m_root) != "LandXML") {
        throw NotTaken("this is no LandXML: its root element is " + Quoted(m_root.name()));
    }
    RequireShallow();
}

std::string LandXmlDocument::Where(xml_node node) const {
    std::string where = "line " + std::to_string(m_lines.Of(node.offset_debug())) + ", " +
                        std::string(LocalName(node));
    if (char const* const name = node.attribute("name").value(); *name != '\0') {
        where.append(" ").append(Quoted(name));
    }
    return where;
}

void LandXmlDocument::RequireShallow() const {
    int depth = 1;
    for (xml_node node = m_root; node;) {
        if (xml_node const child = node.first_child()) {
            if (++depth > deepest) {
                throw NotTaken(Where(child) + ": elements are nested more than " +
                               std::to_string(deepest) + " deep");
            }
            node = child;
            continue;
        }
        while (node && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        node = node.next_sibling();
    }
}

} // namespace kvarnio
