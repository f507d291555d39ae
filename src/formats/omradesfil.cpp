#include "omradesfil.h"

#include "../text/format.h"
#include "../text/scan.h"

namespace kvarn {
namespace {

constexpr int starLines = 2; // the second ends the user's own

// Two numbers of a line, both or none.
bool ReadBoth(std::string_view line, double& first, double& second) {
    double a = 0;
    double b = 0;
    bool const both = Scan(line, a, b) == 2;
    first = both ? a : first;
    second = both ? b : second;
    return both;
}

} // namespace

bool Omrade::Read(LineReader& lines) {
    // What the next line is; before these star lines are counted. A star line is never skipped: it
    // is taken for the line that belongs there.
    enum { roadFile = starLines, stations, offsets, complete };
    int next = 0;
    bool sound = true;
    char line[longestOmradesrad + 1];
    while (sound && lines.ReadLine(line, sizeof line)) {
        if (IsStarLine(line)) {
            ++next;
        } else if (next == roadFile) {
            filnamn = line;
            ++next;
        } else if (next == stations || next == offsets) {
            sound = next == stations ? ReadBoth(line, sekFran, sekTill)
                                     : ReadBoth(line, avstMin, avstMax);
            ++next;
        }
    }
    return sound && next >= complete;
}

std::string Omrade::Text() const {
    return InTextMode(
        Format("%s\n%.3lf %.3lf\n%.3lf %.3lf\n", filnamn, sekFran, sekTill, avstMin, avstMax));
}

std::string OwnLines(LineReader& lines) {
    std::string text;
    std::string_view line;
    for (int stars = 0; stars < starLines && lines.ReadLine(line);) {
        stars += IsStarLine(line) ? 1 : 0;
        AppendTextMode(text.append(line), "\n");
    }
    return text;
}

} // namespace kvarn
