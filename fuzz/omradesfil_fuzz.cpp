// The area file: any bytes are read as a model of its lines says, the user's own lines are kept
// whole, and what is written reads back.
#include <algorithm>
#include <cmath>
#include <optional>

#include "check.h"
#include "formats/omradesfil.h"
#include "text/scan.h"
#include "textlines.h"

namespace {

using kvarn::Omrade;

bool Same(double a, double b, double step) {
    return a == b || (std::isnan(a) && std::isnan(b)) ||
           std::fabs(a - b) <= step + 1e-12 * std::fabs(b);
}
bool Same(Omrade const& a, Omrade const& b, double step) {
    return a.filnamn == b.filnamn && Same(a.sekFran, b.sekFran, step) &&
           Same(a.sekTill, b.sekTill, step) && Same(a.avstMin, b.avstMin, step) &&
           Same(a.avstMax, b.avstMax, step);
}

bool Fits(std::string const& line) {
    return line.size() < kvarn::longestOmradesrad;
}

// The three lines after the second star line; nothing when the file has fewer.
std::optional<Lines> AreaLines(Lines lines) {
    int stars = 0;
    auto const second = std::find_if(lines.begin(), lines.end(), [&](std::string const& line) {
        stars += kvarn::IsStarLine(line) ? 1 : 0;
        return stars == 2;
    });
    if (lines.end() - second < 4) {
        return std::nullopt;
    }
    return Lines(second + 1, second + 4);
}

// What a star line stands for stays as it was.
bool ReadModel(Lines const& lines, Omrade& area) {
    area.filnamn = kvarn::IsStarLine(lines[0]) ? area.filnamn : lines[0];
    double* const numbers[] = {&area.sekFran, &area.sekTill, &area.avstMin, &area.avstMax};
    for (std::size_t i = 0; i < 2; ++i) {
        double a = 0;
        double b = 0;
        if (kvarn::IsStarLine(lines[1 + i])) {
            continue;
        }
        if (kvarn::Scan(lines[1 + i], a, b) != 2) {
            return false;
        }
        *numbers[2 * i] = a;
        *numbers[2 * i + 1] = b;
    }
    return true;
}

std::string Own(std::string const& text) {
    kvarn::LineReader lines{std::string_view(text)};
    return kvarn::OwnLines(lines);
}
bool Read(std::string const& text, Omrade& area) {
    kvarn::LineReader lines{std::string_view(text)};
    return area.Read(lines);
}

// The area that the file leaves over the one before.
Omrade CheckReading(std::string const& text, Lines const& lines, Omrade const& before) {
    Omrade read = before;
    bool const isComplete = Read(text, read);
    Check(read.filnamn.size() <= kvarn::longestOmradesrad, "a name has its limit");
    if (std::all_of(lines.begin(), lines.end(), Fits)) { // pieces: the reader's own fuzzing
        Omrade model = before;
        auto const area = AreaLines(lines);
        bool const sound = area && ReadModel(*area, model);
        Check(isComplete == sound, "complete as the model says");
        Check(!isComplete || Same(read, model, 0), "the values of the model");
    }
    return read;
}

void CheckWriting(std::string const& text, Lines const& lines, Omrade const& area) {
    std::string const own = Own(text);
    Lines const kept = LinesOf(own);
    Check(kept.size() <= lines.size() && std::equal(kept.begin(), kept.end(), lines.begin()),
          "the user's own lines are kept whole");
    auto const stars = std::count_if(kept.begin(), kept.end(), kvarn::IsStarLine);
    Check(stars == 2 ? kvarn::IsStarLine(kept.back()) : kept.size() == lines.size(),
          "up to the second star line, or all");
    if (stars < 2) {
        return; // no area file, before and after
    }
    std::string const written = own + area.Text();
    Check(Own(written) == own, "and once more");
    Lines const now = LinesOf(written);
    bool const isRead = std::all_of(now.begin(), now.end(), Fits) &&
                        now.size() == kept.size() + 3 && !kvarn::IsStarLine(area.filnamn);
    Omrade again;
    Check(!isRead || (Read(written, again) && Same(again, area, 0.00051)),
          "what was written reads back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    Lines const lines = LinesOf(text);
    CheckWriting(text, lines, CheckReading(text, lines, {"namn.vl", 1, 2.5, -3, 4e6}));
    return 0;
}
