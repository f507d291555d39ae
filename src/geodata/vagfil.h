// The text of road files: what the road line's file and the road set's have in common.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "../host/host.h"
#include "../text/text.h"
#include "vertex.h"

namespace kvarn {

// The first line of a road file, which is also its first vertex.
struct Vaghuvud {
    int antal; // numbers that were read: x, y, bulge, station and the type
    double x;
    double y;
    double bulge;
    double sektion;
    std::int32_t typ;
    std::string namn; // after the dollar sign; empty without one

    bool HarVertex() const { return antal >= 4; }
    bool HarTyp() const { return antal == 5; }
};

// Letters of the DOS code page are converted.
Vaghuvud LasVaghuvud(std::string_view rad);

// A vertex; false for a line without its four numbers.
bool LasVertex(std::string_view rad, kovltype& vertex);

// What the first line ends with: the type, and the name after a dollar sign.
std::string Header(std::int32_t typ, std::string_view namn);

// Appends a vertex, and what its line ends with.
void AppendVertex(std::string& out, kovltype const& vertex, std::string_view end);

// Appends the lines of a line's vertices, the first being the header; nothing for an empty line.
// Walks the line to its end.
template <class Line> void AppendLine(std::string& out, Line& line, std::string_view namn) {
    std::string const header = Header(line.typ, namn);
    std::string_view end = header;
    for (bool finns = line.Home() == 0; finns; finns = line++ != nullptr) {
        AppendVertex(out, *line.Get_aktel(), end);
        end = "\n";
    }
}

// As LasDatafil; the user is told when that failed.
bool LasVagfil(char const* path, std::string& text, CString& ejLast);

// As SkrivDatafil: 0, or -1 when it failed; the user is told when the file cannot be opened.
int SkrivVagfil(char const* path, std::string_view text, CString const& ejLast);

// The last message and the status bar tell of a line that was skipped.
void AnmalFelRad(std::string_view rad);

// Keeps the file's name without its folder, of a path with a backslash.
template <std::size_t N> void TaFilnamn(char (&filnamn)[N], char const* path) {
    if (char const* const snedstreck = std::strrchr(path, '\\')) {
        CopyText(filnamn, N, snedstreck + 1);
    }
}

} // namespace kvarn
