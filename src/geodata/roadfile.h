// What a road line and a road have in common in reading and writing their files.
#pragma once

#include <cstring>
#include <string>
#include <string_view>

#include "../formats/vagfil.h"
#include "../host/host.h"
#include "../text/text.h"

namespace kvarn {

// As ReadDataFile; the user is told of a file that cannot be read.
bool ReadRoadFile(char const* path, std::string& text, CString& notRead);

// As WriteDataFile, with the result 0 or -1; the user is told of a file that cannot be opened. Null
// counts as the empty path.
int WriteRoadFile(char const* path, std::string_view text, CString const& notRead);

// Makes a line that was skipped the last message, and shows it in the status bar.
void ReportBadLine(std::string_view line);

// Keeps the file's name without its folder, of a path with a backslash.
template <std::size_t N> void KeepFileName(char (&name)[N], char const* path) {
    if (char const* const backslash = std::strrchr(path, '\\')) {
        CopyText(name, N, backslash + 1);
    }
}

// Appends the lines of the vertices, the first with the line's type and this name. Walks the line
// to its end.
template <class Line> void AppendLine(std::string& out, Line& line, std::string_view name) {
    constexpr std::size_t usualLength = 64; // of a vertex, and more than most
    int count = 0;
    line.Where(&count);
    out.reserve(out.size() + usualLength * static_cast<std::size_t>(count));
    if (line.Home() == 0) {
        AppendVertex(out, *line.Get_aktel(), line.typ, name);
        while (line++ != nullptr) {
            AppendVertex(out, *line.Get_aktel());
        }
    }
}

} // namespace kvarn
