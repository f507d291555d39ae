// Road files and area files of any bytes: every line of a road file gives what its kind says, the
// classes hold what the format reads, and what is written reads back as it was.
//
// The first byte of an input holds the choices, the rest is the file.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>

#include "check.h"
#include "core/message.h"
#include "core/messageout.h"
#include "folder.h"
#include "formats/checks/checkvagfil.h"
#include "formats/omradesfil.h"
#include "geodata/vag2.h"
#include "text/scan.h"
#include "textlines.h"

namespace {

using Kind = kvarn::VagfilLine::Kind;
using Vertices = std::vector<kovltype>;

// Bit by bit.
bool Same(Vertices const& a, Vertices const& b) {
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0);
}

bool Same(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// --- The format ----------------------------------------------------------------------------------

std::string BadLine(std::string const& line) {
    return ("Fel rad : " + line).substr(0, kvarn::messageBufferSize - 1);
}

struct Road {
    Vertices plan;
    Vertices profile;
    std::string name;
    std::string message = LastMessage(); // of the last bad line
};

// The kind that a line must have, and its vertex. The last one is the profile's line before.
Kind KindOf(std::string const& line, std::size_t afterStar, bool isPlan, kovltype& last) {
    constexpr std::size_t headings = 2;
    if (afterStar > headings) {
        bool const good = kvarn::Scan(line, last.x, last.y, last.bulge) == 3;
        last.sektion = last.y;
        return good ? Kind::profileVertex : Kind::badProfileVertex;
    }
    last = {};
    if (afterStar > 0) {
        return Kind::heading;
    }
    if (kvarn::Scan(line, last.x, last.y, last.bulge, last.sektion) == kvarn::vertexValues) {
        return isPlan ? Kind::vertex : Kind::profileVertex;
    }
    return kvarn::IsStarLine(line) ? Kind::star : Kind::bad;
}

Road ReadRoad(std::string const& text, bool keepBad = false) {
    Lines const lines = LinesOf(text);
    kvarn::VagfilReader reader(text);
    Road road;
    if (reader.Header()) {
        road.name = reader.Header()->Name().substr(0, kvarn::longestVagnamn);
    }
    std::size_t number = 0;
    std::size_t afterStar = 0;
    kovltype last{};
    for (kvarn::VagfilLine line; reader.Next(line); ++number) {
        Check(line.line.number == number + 1 && line.line.text == lines.at(number), "every line");
        Check(line.kind == KindOf(lines[number], afterStar, reader.IsPlan(), last), "its kind");
        Check(Same({line.vertex}, {last}), "its numbers");
        afterStar += afterStar > 0 || line.kind == Kind::star ? 1 : 0;
        bool const kept = keepBad && line.kind == Kind::badProfileVertex;
        if (line.kind == Kind::vertex) {
            road.plan.push_back(line.vertex);
        } else if (line.kind == Kind::profileVertex || kept) {
            road.profile.push_back(line.vertex);
        } else if (line.kind == Kind::bad || line.kind == Kind::badProfileVertex) {
            road.message = BadLine(lines[number]);
        }
    }
    Check(number == lines.size(), "every line");
    return road;
}

std::string LineText(Vertices const& line, std::int32_t type, std::string const& name) {
    std::string text;
    for (kovltype const& vertex : line) {
        text.empty() ? kvarn::AppendVertex(text, vertex, type, name)
                     : kvarn::AppendVertex(text, vertex);
    }
    return text;
}

std::string RoadText(Road const& road) {
    if (road.plan.empty()) {
        return LineText(road.profile, kvarn::vagtypProfil, road.name);
    }
    std::string text = LineText(road.plan, kvarn::vagtypPlan, road.name);
    text += road.profile.empty() ? "" : kvarn::profileHeading;
    for (kovltype const& vertex : road.profile) {
        kvarn::AppendProfileVertex(text, vertex);
    }
    return text;
}

// A line without its type is taken for a profile where its first two vertices hold their station
// twice.
void CheckGuess(Vertices const& line) {
    std::string text;
    for (kovltype const& vertex : line) {
        kvarn::AppendVertex(text, vertex);
    }
    double gaps[] = {1, 1};
    for (std::size_t i = 0; i < std::min(line.size(), std::size(gaps)); ++i) {
        kovltype vertex{};
        Check(kvarn::ReadVertex(LinesOf(text)[i], vertex), "a vertex reads back");
        gaps[i] = std::fabs(vertex.y - vertex.sektion);
    }
    bool const twice = gaps[0] <= 0.1 && gaps[1] < 0.1;
    Check(kvarn::VagfilReader(text).IsPlan() != twice, "what the first two lines tell");
}

void CheckRoad(std::string const& text, bool) {
    Road const road = ReadRoad(text);
    CheckGuess(road.plan);
    CheckGuess(road.profile);
    std::string const written = RoadText(road);
    Road const again = ReadRoad(written);
    Check(again.plan.size() == road.plan.size() && again.profile.size() == road.profile.size() &&
              (written.empty() || again.name == road.name) && RoadText(again) == written,
          "what was written reads back");
    kvarn::ReadVagfil(text);
    kvarn::CheckVagfil(text);
    kvarn::VagfilContent const content = kvarn::ReadVagfil(written);
    Check(content.skipped == 0, "each line of it gives a vertex");
    Check(Same(content.plan.vertices, again.plan) && Same(content.profile.vertices, again.profile),
          "the vertices are its own");
}

// --- The classes ---------------------------------------------------------------------------------

constexpr char const* fileName = "a.vl";

std::string const& Home() {
    static Folder const folder("/dev/shm");
    return folder.Path();
}

std::string FileContent() {
    std::ifstream file(Home() + '/' + fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The object reads the text from a file and writes it again.
template <class T> std::string ReadAndWrite(T& object, std::string const& text) {
    std::string const path = Home() + '\\' + fileName;
    std::ofstream(Home() + '/' + fileName, std::ios::binary) << text;
    Check(object.Init(path.c_str()) == 0, "a file that is there is read");
    Check(std::strcmp(object.filnamn, fileName) == 0, "the file's name");
    Check(object.Uppdat(path.c_str()) == 0, "and written");
    return FileContent();
}

void CheckSet(std::string const& text, bool keepBad) {
    Road const road = ReadRoad(text, keepBad);
    CVag2 set;
    Check(ReadAndWrite(set, text) == RoadText(road), "the format's text");
    Check(LastMessage() == road.message, "the last bad line is told");
    CVaglinje const& line = set.plan;
    Vertices const& plan = road.plan;
    Check(plan.empty() ? line.omrAvstMax == 0
                       : Same(line.omrSekFran, plan.front().sektion) &&
                             Same(line.omrSekTill, plan.back().sektion) && line.omrAvstMax == 30,
          "the area of the plan");
}

void CheckLine(std::string const& text, bool typeBefore) {
    std::string message = LastMessage();
    Vertices vertices;
    for (std::string const& line : LinesOf(text)) {
        kovltype vertex{};
        bool const good = kvarn::ReadVertex(line, vertex);
        std::string const whole = line + "\r\n";
        std::string_view rest = whole;
        kovltype usual{};
        bool const taken = kvarn::TakeVertex(rest, usual);
        Check(!taken || (good && rest.empty() && Same({usual}, {vertex})),
              "a line of the usual form is read as any other");
        good ? vertices.push_back(vertex) : void(message = BadLine(line));
    }
    CVaglinje line;
    line.typ = typeBefore ? 7 : 0;
    auto const header = kvarn::VagfilReader(text).Header();
    std::int32_t const type = header && header->HasType() ? header->type : line.typ;
    std::string const name = header ? header->Name().substr(0, kvarn::longestVagnamn) : "";
    Check(ReadAndWrite(line, text) == LineText(vertices, type, name), "the format's text");
    Check(LastMessage() == message, "the last bad line is told");
}

// --- The area file -------------------------------------------------------------------------------

void CheckArea(std::string const& text, bool) {
    kvarn::LineReader lines{std::string_view(text)};
    std::string const own = kvarn::OwnLines(lines);
    Lines const all = LinesOf(text);
    Lines const kept = LinesOf(own);
    Check(kept.size() <= all.size() && std::equal(kept.begin(), kept.end(), all.begin()),
          "the user's own lines are kept");
    auto const stars = std::count_if(kept.begin(), kept.end(), kvarn::IsStarLine);
    bool const hasBoth = stars == 2 && kvarn::IsStarLine(kept.back());
    Check(hasBoth || (stars < 2 && kept.size() == all.size()), "up to the second star line");

    kvarn::Omrade area;
    kvarn::LineReader again{std::string_view(text)};
    area.Read(again);
    Check(area.filnamn.size() <= kvarn::longestOmradesrad, "a line has its limit");
    std::string const written = (hasBoth ? own : kvarn::noOwnLines) + area.Text();
    Lines const lines2 = LinesOf(written);
    if (std::all_of(lines2.begin(), lines2.end(), [](std::string const& line) {
            return line.size() < kvarn::longestOmradesrad;
        })) {
        kvarn::LineReader file{std::string_view(written)};
        kvarn::Omrade read;
        Check(read.Read(file) && read.Text() == area.Text(), "what was written reads back");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr void (*checks[])(std::string const&, bool) = {CheckRoad, CheckSet, CheckLine,
                                                            CheckArea};
    if (size > 0) {
        std::string const text(reinterpret_cast<char const*>(data) + 1, size - 1);
        bool const choice = (data[0] & 4) != 0;
        MessageBuffer()[0] = choice ? '*' : '\0';
        checks[data[0] % 4](text, choice);
    }
    return 0;
}
