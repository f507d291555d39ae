#include "stenkod.h"

#include "../text/format.h"
#include "../text/scan.h"

namespace kvarn {

Material MaterialLine::Completed() const {
    Material material = asWritten;
    material.angle = degrees * radiansPerDegree;
    if (!(material.scale >= leastScale)) {
        material.scale = Material().scale;
    }
    if (material.pattern < 1 || material.pattern > mostPattern) {
        material.pattern = Material().pattern;
    }
    if (material.number >= 0) {
        material.flag = Material().flag;
    }
    return material;
}

MaterialReader::MaterialReader(LineReader& lines, MaterialKind kind, bool norwegian)
    : m_lines(lines), m_norwegian(norwegian) {
    SkipStarLines(lines, StarsBefore(kind));
}

bool MaterialReader::Next(MaterialLine& line) {
    line = {};
    if (!m_lines.ReadLine(line.line) || IsStarLine(line.line.text)) {
        return false;
    }
    Material& m = line.asWritten;
    line.count =
        Scan(line.line.text, m.number, m.name, m.text, m.scale, m.pattern, line.degrees, m.flag);
    if (line.IsRead()) {
        line.isShift = m_norwegian && m.number == shiftNumber && m.name.starts_with(shiftName);
        m_shift = line.isShift ? 1 : m_shift;
        line.changes = m.number >= 0 ? std::optional(m.number - m_shift) : std::nullopt;
    }
    return true;
}

std::string MaterialText(Material const& m) {
    return m.text.empty() ? ShortMaterialText(m.number, m.name)
                          : InTextMode(Format("%d %s %s %.3lf %d %.3lf %d\n", m.number, m.name,
                                              m.text, m.scale, m.pattern, m.angle, m.flag));
}

std::string ShortMaterialText(std::int16_t number, std::string_view name) {
    return InTextMode(Format("%d %s\n", number, name));
}

std::string BeforeSection(std::string text, MaterialKind kind) {
    int missing = StarsBefore(kind);
    std::size_t end = 0;
    while (missing > 0 && end < text.size()) {
        missing -= text[end] == '*' ? 1 : 0;
        std::size_t const feed = text.find('\n', end);
        end = feed == std::string::npos ? text.size() : feed + 1;
    }
    text.resize(end);
    if (!text.empty() && !text.ends_with('\n')) {
        text += "\r\n";
    }
    for (; missing > 0; --missing) {
        text += "*\r\n";
    }
    return text;
}

} // namespace kvarn
