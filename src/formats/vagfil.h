// Road files: a vertex a line, with x, y, bulge and station. The first line, the header, goes on
// with a type and, after a dollar sign, a name. After a plan's vertices the road's profile may
// follow, with height, station and bulge a line, behind the three lines "*", "Profil" and "*".
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "../text/lines.h"
#include "vertex.h"

namespace kvarn {

inline constexpr std::size_t longestVagnamn = 255;
inline constexpr int vertexValues = 4;
inline constexpr int vertexDecimals = 4; // as they are written; more are read
inline constexpr int profileVertexValues = 3;

// The first line of a road file, which is also its first vertex.
struct VagfilHeader {
    explicit VagfilHeader(std::string_view line);

    bool HasType() const { return count > vertexValues; }
    // As programs see it: letters of the DOS code page converted, and cut to its length.
    std::string Name() const;

    int count; // numbers that were read: the vertex and the type
    kovltype vertex{};
    std::int32_t type = 0;
    std::string_view name;      // between the dollar signs, or after the only one
    std::string_view afterName; // from the second dollar sign on
};

// False for a line without its four numbers.
bool ReadVertex(std::string_view line, kovltype& vertex);
// Takes the next line off the text when it has the form of AppendVertex, as nearly all lines of
// nearly all files have; false when it has another, and may still be a vertex.
bool TakeVertex(std::string_view& text, kovltype& vertex);

// A line of a file that may hold both a plan and a profile.
struct VagfilLine {
    enum class Kind { vertex, profileVertex, bad, badProfileVertex, star, heading };

    Kind kind;
    TextLine line;
    // Of a bad line of the profile the numbers that were read; the others are those of the line
    // before. Otherwise all 0 where there is no vertex.
    kovltype vertex{};
    bool hasRest = false; // there is text after the numbers
};

// Goes through a file that may hold both.
class VagfilReader {
  public:
    // Of a text that the caller keeps.
    explicit VagfilReader(std::string_view text);

    // Nothing of a text without a line.
    std::optional<VagfilHeader> const& Header() const { return m_header; }
    // What the lines of four numbers are, by the header's type and, where that does not tell, by
    // the first two lines.
    bool IsPlan() const { return m_isPlan; }

    bool Next(VagfilLine& line);

  private:
    enum class Part { vertices, title, secondStar, profile };

    void ReadLine(VagfilLine& line);
    void ReadProfileLine(VagfilLine& line);

    LineReader m_lines;
    std::optional<VagfilHeader> m_header;
    bool m_isPlan;
    Part m_part = Part::vertices;
    kovltype m_last{}; // of the profile
};

// The lines of a road file, as they are in the file. The first vertex of a line has the header's
// form.
void AppendVertex(std::string& out, kovltype const& vertex);
void AppendVertex(std::string& out, kovltype const& vertex, std::int32_t type,
                  std::string_view name);
inline constexpr std::string_view profileHeading = "*\r\nProfil\r\n*\r\n";
void AppendProfileVertex(std::string& out, kovltype const& vertex);

} // namespace kvarn
