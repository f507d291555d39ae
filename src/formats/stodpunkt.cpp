#include "stodpunkt.h"

#include <cmath>

#include "../text/format.h"
#include "../text/letters.h"
#include "../text/text.h"

namespace kvarn {

StodpunktHeader::StodpunktHeader(LineReader& lines) {
    for (StodpunktLine& number : numbers) {
        number = StodpunktLine(lines);
    }
    for (end = StodpunktLine(lines); end.HoldsNumber(); end = StodpunktLine(lines)) {
        skipped.push_back(end.line);
    }
}

bool IsGvy(std::string_view name) {
    return SameText(name, "gvy");
}

std::string StodpunktBlock::Name() const {
    std::string_view word;
    Scan(name.line.text, word);
    std::string converted(word);
    OemToAnsiNordic(converted.data());
    return converted;
}

bool StodpunktReader::Next(StodpunktBlock& block) {
    block.name = StodpunktLine(m_lines);
    if (!block.name.isThere || IsStarLine(block.name.line.text)) {
        m_end = block.name;
        return false;
    }
    block.level = StodpunktLine(m_lines);
    block.rest = StodpunktLine(m_lines);
    return true;
}

std::string StodpunktHeaderText(double const (&numbers)[stodpunktNumbers - 1], double sixth) {
    auto const& n = numbers;
    return InTextMode(Format("%f\n%f\n%f\n%f\n%f\n%f\n*\n", n[0], n[1], n[2], n[3], n[4], sixth));
}

std::string GvyText(double level) {
    return std::fabs(level) > 0 ? InTextMode(Format("gvy\n%9.4f\n\n", level)) : "";
}

std::string StodpunktText(std::string_view name, double level,
                          float const (&values)[stodpunktNumbers]) {
    auto const& v = values;
    return InTextMode(Format("%s\n%9.4f\n%6.2f %6.2f %6.2f %6.2f %6.2f %6.2f\n", name, level, v[0],
                             v[1], v[2], v[3], v[4], v[5]));
}

} // namespace kvarn
