#include "vagfil.h"

#include <cmath>
#include <initializer_list>

#include "../text/format.h"
#include "../text/letters.h"
#include "../text/plainnumber.h"
#include "../text/scan.h"

namespace kvarn {
namespace {

constexpr char dollar = '$';

std::optional<VagfilHeader> HeaderOf(std::string_view text) {
    std::string_view line;
    return LineReader(text).ReadLine(line) ? std::optional(VagfilHeader(line)) : std::nullopt;
}

// A profile's vertex holds its station twice.
double StationGap(kovltype const& vertex) {
    return std::fabs(vertex.y - vertex.sektion);
}

bool BeginsPlan(std::optional<VagfilHeader> const& header, std::string_view text) {
    constexpr double same = 0.1; // metres
    if (!header) {
        return true;
    }
    if (header->HasType() && (header->type == vagtypPlan || header->type == vagtypProfil)) {
        return header->type == vagtypPlan;
    }
    LineReader lines(text);
    std::string_view second;
    kovltype vertex{};
    bool const isProfile = header->count >= vertexValues && StationGap(header->vertex) <= same &&
                           lines.ReadLine(second) && lines.ReadLine(second) &&
                           ReadVertex(second, vertex) && StationGap(vertex) < same;
    return !isProfile;
}

} // namespace

VagfilHeader::VagfilHeader(std::string_view line) {
    count = Scan(line, vertex.x, vertex.y, vertex.bulge, vertex.sektion, type);
    std::size_t const first = line.find(dollar);
    if (first != std::string_view::npos) {
        name = line.substr(first + 1);
        std::size_t const length = name.find(dollar);
        afterName = length == std::string_view::npos ? "" : name.substr(length);
        name = name.substr(0, length);
    }
}

std::string VagfilHeader::Name() const {
    std::string converted(name.substr(0, longestVagnamn));
    OemToAnsiNordic(converted.data());
    return converted;
}

bool ReadVertex(std::string_view line, kovltype& vertex) {
    return Scan(line, vertex.x, vertex.y, vertex.bulge, vertex.sektion) == vertexValues;
}

bool TakeVertex(std::string_view& text, kovltype& vertex) {
    char const* next = text.data();
    char const* const end = next + text.size();
    auto const take = [&](char c) {
        bool const found = next != end && *next == c;
        next += found ? 1 : 0;
        return found;
    };
    kovltype v{};
    bool const taken = TakePlainNumber(next, end, v.x) && take(' ') &&
                       TakePlainNumber(next, end, v.y) && take(' ') &&
                       TakePlainNumber(next, end, v.bulge) && take(' ') &&
                       TakePlainNumber(next, end, v.sektion) && take('\r') && take('\n');
    if (taken) {
        vertex = v;
        text.remove_prefix(static_cast<std::size_t>(next - text.data()));
    }
    return taken;
}

VagfilReader::VagfilReader(std::string_view text)
    : m_lines(text), m_header(HeaderOf(text)), m_isPlan(BeginsPlan(m_header, text)) {}

bool VagfilReader::Next(VagfilLine& line) {
    line = {};
    if (!m_lines.ReadLine(line.line)) {
        return false;
    }
    switch (m_part) {
    case Part::vertices:
        ReadLine(line);
        break;
    case Part::title: // this line and the next are passed over, whatever they hold
        line.kind = VagfilLine::Kind::heading;
        m_part = Part::secondStar;
        break;
    case Part::secondStar:
        line.kind = VagfilLine::Kind::heading;
        m_part = Part::profile;
        break;
    case Part::profile:
        ReadProfileLine(line);
    }
    return true;
}

void VagfilReader::ReadLine(VagfilLine& line) {
    using Kind = VagfilLine::Kind;
    kovltype& v = line.vertex;
    char rest[2] = "";
    int const count = Scan(line.line.text, v.x, v.y, v.bulge, v.sektion, rest);
    line.hasRest = count > vertexValues;
    if (count >= vertexValues) {
        line.kind = m_isPlan ? Kind::vertex : Kind::profileVertex;
    } else if (IsStarLine(line.line.text)) {
        line.kind = Kind::star;
        m_part = Part::title;
    } else {
        line.kind = Kind::bad;
    }
}

void VagfilReader::ReadProfileLine(VagfilLine& line) {
    char rest[2] = "";
    int const count = Scan(line.line.text, m_last.x, m_last.y, m_last.bulge, rest);
    line.hasRest = count > profileVertexValues;
    line.kind = count >= profileVertexValues ? VagfilLine::Kind::profileVertex
                                             : VagfilLine::Kind::badProfileVertex;
    m_last.sektion = m_last.y;
    line.vertex = m_last;
}

namespace {

void AppendNumbers(std::string& out, std::initializer_list<double> numbers) {
    for (char const* separator = ""; double const number : numbers) {
        out += separator;
        AppendFixed(out, number, vertexDecimals);
        separator = " ";
    }
}

void AppendNumbers(std::string& out, kovltype const& v) {
    AppendNumbers(out, {v.x, v.y, v.bulge, v.sektion});
}

} // namespace

void AppendVertex(std::string& out, kovltype const& vertex) {
    AppendNumbers(out, vertex);
    out += "\r\n";
}

void AppendVertex(std::string& out, kovltype const& vertex, std::int32_t type,
                  std::string_view name) {
    AppendNumbers(out, vertex);
    AppendTextMode(out, Format(" %d $%s\n", type, name));
}

void AppendProfileVertex(std::string& out, kovltype const& vertex) {
    AppendNumbers(out, {vertex.x, vertex.y, vertex.bulge});
    out += "\r\n";
}

} // namespace kvarn
