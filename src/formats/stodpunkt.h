// The file of support points: six lines with a number each, lines that are not read, and the
// header's end; then blocks of three lines, a level "gvy" or a point, up to a star line.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "../text/lines.h"
#include "../text/scan.h"

namespace kvarn {

inline constexpr std::size_t longestStodpunkt = 11; // characters of a name
inline constexpr std::size_t stodpunktNumbers = 6;  // of the header, and of a point

// A line that may be missing, for the file ended before.
struct StodpunktLine {
    explicit StodpunktLine(LineReader& lines) : isThere(lines.ReadLine(line)) {}
    StodpunktLine() = default;

    // False for a line that is empty or begins with a star, in the place of a header's number.
    bool HoldsNumber() const { return isThere && !line.text.empty() && !IsStarLine(line.text); }
    // The number that the line begins with; without one false, and the value stays.
    template <class T> bool Read(T& number) const {
        return isThere && Scan(line.text, number) == 1;
    }

    TextLine line{};
    bool isThere = false;
};

struct StodpunktHeader {
    explicit StodpunktHeader(LineReader& lines);

    std::array<StodpunktLine, stodpunktNumbers> numbers; // where each is looked for
    std::vector<TextLine> skipped;                       // from there to the end
    StodpunktLine end;
};

// The name, alone on its line, of the block that holds the level of the file.
bool IsGvy(std::string_view name);

// The block "gvy", which holds the level of the file, or a point.
struct StodpunktBlock {
    bool IsGvy() const { return kvarn::IsGvy(name.line.text); }
    // A point's: the first word, letters of the DOS code page converted.
    std::string Name() const;

    StodpunktLine name;
    StodpunktLine level;
    StodpunktLine rest; // a point's values; not read of "gvy"
};

// The blocks behind the header, and the line that ends them.
class StodpunktReader {
  public:
    explicit StodpunktReader(LineReader& lines) : m_lines(lines) {}

    // The next block; one that the file ends in is among them. False at the end.
    bool Next(StodpunktBlock& block);
    // The star line, when Next has returned false.
    StodpunktLine const& End() const { return m_end; }

  private:
    LineReader& m_lines;
    StodpunktLine m_end;
};

// As many of a point's values as the text begins with; the others stay.
template <class T> int ReadValues(std::string_view text, T (&v)[stodpunktNumbers]) {
    return Scan(text, v[0], v[1], v[2], v[3], v[4], v[5]);
}

// The parts of a file, which ends with a star line if there are points.
std::string StodpunktHeaderText(double const (&numbers)[stodpunktNumbers - 1], double sixth);
// Nothing for a level of 0, which is none.
std::string GvyText(double level);
std::string StodpunktText(std::string_view name, double level,
                          float const (&values)[stodpunktNumbers]);

} // namespace kvarn
