#include "landxmldocument.h"

#include <algorithm>
#include <optional>

#include <text/codepage.h>

#include "../road/alignment.h"
#include "../road/letters.h"

namespace kvarnio {
namespace {

using pugi::xml_node;

constexpr int deepest = 64; // levels of elements; files of road programs have about twenty

// The text between the first quotation marks after a name.
std::string_view QuotedAfter(std::string_view text, std::string_view name) {
    std::size_t const at = text.find(name);
    std::size_t const begin = at == std::string_view::npos ? at : text.find_first_of("\"'", at);
    if (begin == std::string_view::npos) {
        return {};
    }
    text.remove_prefix(begin + 1);
    return text.substr(0, text.find_first_of("\"'"));
}

// In UTF-8, from the encoding that the file states; nothing where it is UTF-8 already. Code page
// 1252 has the letters of ISO 8859-1 in the same places.
std::optional<std::string> Converted(std::string_view text) {
    std::string_view const declaration =
        text.starts_with("<?xml") ? text.substr(0, text.find("?>")) : std::string_view();
    std::string_view const encoding = QuotedAfter(declaration, "encoding");
    auto const is = [&](std::string_view name) {
        return kvarn::CompareNoCase1252(encoding, name) == 0;
    };
    if (encoding.empty() || is("UTF-8") || is("US-ASCII")) {
        return std::nullopt;
    }
    if (is("ISO-8859-1") || is("windows-1252")) {
        return kvarn::ToUtf8(text);
    }
    throw NotTaken("line 1: the encoding " + Quoted(encoding) +
                   " is not known: save the file as UTF-8");
}

// A document type, which may stand before the root element, could define entities.
void RequireNoDoctype(std::string_view text, LineNumbers const& lines) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::size_t at = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    while (true) {
        at = text.find_first_not_of(" \t\r\n", at);
        std::string_view const rest = at < text.size() ? text.substr(at) : std::string_view();
        std::string_view const end = rest.starts_with("<?")     ? "?>"
                                     : rest.starts_with("<!--") ? "-->"
                                                                : "";
        std::size_t const ends = end.empty() ? std::string_view::npos : rest.find(end);
        if (ends == std::string_view::npos) {
            if (rest.starts_with("<!")) {
                throw NotTaken("line " + std::to_string(lines.Of(static_cast<std::ptrdiff_t>(at))) +
                               ": a document type (DOCTYPE), which LandXML has none of");
            }
            return;
        }
        at += ends + end.size();
    }
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

LandXmlDocument::LandXmlDocument(std::string_view text) {
    RequirePlainText(text);
    std::optional<std::string> const converted = Converted(text);
    text = converted ? std::string_view(*converted) : text;
    m_lines = LineNumbers(text);
    RequireNoDoctype(text, m_lines);
    pugi::xml_parse_result const result = m_document.load_buffer(
        text.data(), text.size(),
        pugi::parse_cdata | pugi::parse_escapes | pugi::parse_wconv_attribute | pugi::parse_eol |
            pugi::parse_embed_pcdata,
        pugi::encoding_utf8);
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
