// The file that completes and overrides the lists of rock and fill: sections, each ended by a star
// line, of which the third is rock and the fourth fill. A line is number, name, text, scale,
// pattern, angle (in degrees when read) and flag, or number and name alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "../text/lines.h"

namespace kvarn {

inline constexpr char const* stenkodFile = "Stenkod.dat";
inline constexpr char const* stenkodFileNorwegian = "StenkodN.dat";

inline constexpr std::size_t longestMaterialName = 30; // in characters
inline constexpr std::size_t longestMaterialText = 16;
inline constexpr double leastScale = 0.01;
inline constexpr int mostPattern = 256; // from 1 on
// With pi taken as 3.14159265359, the digits of every old file.
inline constexpr double radiansPerDegree = 0.017453292519944444;

enum class MaterialKind { rock = 0, fill = 1, soil = 2 };

constexpr bool HasSection(MaterialKind kind) {
    return kind != MaterialKind::soil;
}
// Star lines before the list's section.
constexpr int StarsBefore(MaterialKind kind) {
    return kind == MaterialKind::rock ? 2 : 3;
}

// A list's built-in names; its entries are numbered from 1.
using MaterialNames = std::span<char const* const>;

// An entry; as here where nothing else is said of it.
struct Material {
    std::int16_t number = 0;
    std::string_view name{};
    std::string_view text{};
    double scale = 1;
    std::int16_t pattern = 4;
    double angle = 0; // radians
    std::int16_t flag = 0;
};

// A line of a section.
struct MaterialLine {
    static constexpr int least = 2; // values without which the line is ignored
    static constexpr int all = 7;

    bool IsRead() const { return count >= least; }
    // What it means: a scale and a pattern outside their limits are the usual ones, and only
    // negative numbers have a flag.
    Material Completed() const;

    TextLine line{};
    int count = 0;        // values that were read
    Material asWritten{}; // without an angle
    double degrees = 0;
    // The line from which on a Norwegian file's numbers are one higher than the list's.
    bool isShift = false;
    // The number of the entry that it changes. Where the list has none the line is a new entry, and
    // so is each with a negative number.
    std::optional<int> changes{};
};

// Goes through a section.
class MaterialReader {
  public:
    MaterialReader(LineReader& lines, MaterialKind kind, bool norwegian);

    // The next line, ignored ones too; false at the section's end.
    bool Next(MaterialLine& line);

  private:
    LineReader& m_lines;
    bool m_norwegian;
    int m_shift = 0;
};

// The number of that line; the Norwegian table does not have it.
inline constexpr int shiftNumber = 31;
inline constexpr std::string_view shiftName = "Ikke"; // how its name begins

// The line of an entry: the short form without a text.
std::string MaterialText(Material const& material);
std::string ShortMaterialText(std::int16_t number, std::string_view name);

// The file's text up to the list's section, with the star lines that it lacks. What follows is
// replaced.
std::string BeforeSection(std::string text, MaterialKind kind);

} // namespace kvarn
