// Road files: any bytes as a road line's file and as a road set's. What the classes read is
// compared with a reader of lines and sscanf, what they write with printf, and it reads back.
//
// The first byte of an input holds the choices, the rest is the file. The files lie in memory, in a
// folder that is removed when the fuzzer ends in peace.
#include <algorithm>
#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "check.h"
#include "core/message.h"
#include "core/messageout.h"
#include "formats/vagfil.h"
#include "geodata/vag2.h"
#include "support/folder.h"
#include "text/letters.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

constexpr std::int32_t planType = kvarn::vagtypPlan;
constexpr std::int32_t profileType = kvarn::vagtypProfil;

// --- Files ---------------------------------------------------------------------------------------

constexpr char const* fileName = "a.vl";

// Under the name by which clients would call it.
std::string const& FilePath() {
    static Folder const folder("/dev/shm");
    static std::string const path = folder.Path() + '\\' + fileName;
    return path;
}

std::string HostPath() {
    std::string path = FilePath();
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

void WriteFile(std::string const& content) {
    std::ofstream(HostPath(), std::ios::binary) << content;
}

std::string FileContent() {
    std::ifstream file(HostPath(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// --- The second opinion --------------------------------------------------------------------------

using Lines = std::vector<std::string>;
using Vertices = std::vector<kovltype>;

Lines LinesOf(std::string const& content) {
    Lines lines;
    kvarn::LineReader reader{std::string_view(content)};
    for (std::string_view line; reader.ReadLine(line);) {
        lines.emplace_back(line);
    }
    return lines;
}

// What a file gives.
struct Model {
    std::int32_t type = 0; // of the header, or as it was
    std::string name;
    Vertices plan; // or the line
    Vertices profile;
    std::string lastMessage = LastMessage();
};

int Scan4(std::string const& line, kovltype& v) {
    return std::sscanf(line.c_str(), "%lf %lf %lf %lf", &v.x, &v.y, &v.bulge, &v.sektion);
}

// How many of the header's five values there are; a type beyond 32 bits saturates.
int ScanHeader(std::string const& line, std::int32_t& type) {
    kovltype v{};
    std::int64_t wide = 0;
    int const count = std::sscanf(line.c_str(), "%lf %lf %lf %lf %" SCNd64, &v.x, &v.y, &v.bulge,
                                  &v.sektion, &wide);
    type = static_cast<std::int32_t>(std::clamp<std::int64_t>(
        wide, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
    return count;
}

std::string NameIn(std::string const& header) {
    char const* const first = std::strchr(header.c_str(), '$');
    if (first == nullptr) {
        return "";
    }
    std::string name(first + 1, std::strcspn(first + 1, "$"));
    name.resize(std::min(name.size(), kvarn::longestVagnamn));
    OemToAnsiNordic(name.data());
    return name;
}

void BadLine(Model& model, std::string const& line) {
    constexpr std::size_t longestMessage = kvarn::messageBufferSize - 1;
    model.lastMessage = ("Fel rad : " + line).substr(0, longestMessage);
}

// A road line's file.
Model ModelLine(std::string const& content, std::int32_t typeBefore,
                std::string const& nameBefore) {
    Model model;
    model.type = typeBefore;
    model.name = nameBefore;
    Lines const lines = LinesOf(content);
    if (!lines.empty()) {
        std::int32_t type = 0;
        model.type = ScanHeader(lines[0], type) == 5 ? type : typeBefore;
        model.name = NameIn(lines[0]);
    }
    for (std::string const& line : lines) {
        kovltype v{};
        if (Scan4(line, v) == 4) {
            model.plan.push_back(v);
        } else {
            BadLine(model, line);
        }
    }
    return model;
}

// Which of the two lines a road set's file begins with; 0 for an empty file.
std::int32_t ModelKind(Lines const& lines) {
    if (lines.empty()) {
        return 0;
    }
    std::int32_t type = 0;
    int const count = ScanHeader(lines[0], type);
    if (count == 5 && type == planType) {
        return planType;
    }
    if (count == 5 && type == profileType) {
        return profileType;
    }
    kovltype first{};
    kovltype second{};
    if (count >= 4 && lines.size() > 1 && Scan4(lines[0], first) == 4 &&
        std::fabs(first.y - first.sektion) <= 0.1 && Scan4(lines[1], second) == 4 &&
        std::fabs(second.y - second.sektion) < 0.1) {
        return profileType;
    }
    return planType;
}

// A road set's file.
Model ModelSet(std::string const& content, std::string const& nameBefore) {
    Model model;
    model.name = nameBefore;
    Lines const lines = LinesOf(content);
    model.type = ModelKind(lines);
    if (!lines.empty()) {
        model.name = NameIn(lines[0]);
    }
    std::size_t i = 0;
    for (bool stars = false; i < lines.size() && !stars; ++i) {
        kovltype v{};
        if (Scan4(lines[i], v) == 4) {
            (model.type == planType ? model.plan : model.profile).push_back(v);
        } else if (lines[i][0] == '*') {
            stars = true;
            i += 2;
        } else {
            BadLine(model, lines[i]);
        }
    }
    kovltype v{};
    for (; i < lines.size(); ++i) {
        bool const good = std::sscanf(lines[i].c_str(), "%lf %lf %lf", &v.x, &v.y, &v.bulge) == 3;
        if (good || MessageBuffer()[0] == '*') {
            v.sektion = v.y;
            model.profile.push_back(v);
        } else {
            BadLine(model, lines[i]);
        }
    }
    return model;
}

std::string Printed(char const* format, kovltype const& v) {
    char text[4 * 320];
    std::snprintf(text, sizeof text, format, v.x, v.y, v.bulge, v.sektion);
    return text;
}

std::string ModelText(Vertices const& line, std::int32_t type, std::string const& name) {
    std::string text;
    for (kovltype const& v : line) {
        std::string const header = " " + std::to_string(type) + " $" + name;
        text += Printed("%.4f %.4f %.4f %.4f", v) + (&v == line.data() ? header : "") + "\r\n";
    }
    return text;
}

std::string ModelProfilePart(Vertices const& profile) {
    std::string text = profile.empty() ? "" : "*\r\nProfil\r\n*\r\n";
    for (kovltype const& v : profile) {
        text += Printed("%.4f %.4f %.4f\r\n", v);
    }
    return text;
}

// --- Comparing -----------------------------------------------------------------------------------

// The C library here may round the last bit of a subnormal number the wrong way: see scan_fuzz.
bool Same(double a, double b) {
    bool const subnormal = std::fabs(a) < std::numeric_limits<double>::min();
    return a == b || (std::isnan(a) && std::isnan(b)) ||
           (subnormal && std::fabs(a - b) <= std::numeric_limits<double>::denorm_min());
}

bool Same(kovltype const& a, kovltype const& b) {
    return Same(a.x, b.x) && Same(a.y, b.y) && Same(a.bulge, b.bulge) && Same(a.sektion, b.sektion);
}

bool Same(Vertices const& a, Vertices const& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](kovltype const& v, kovltype const& w) { return Same(v, w); });
}

Vertices VerticesOf(CVaglinje& line) {
    Vertices vertices;
    for (bool there = line.Home() == 0; there; there = line++ != nullptr) {
        vertices.push_back(*line.Get_aktel());
    }
    return vertices;
}

void CheckArea(CVaglinje const& line, Vertices const& vertices) {
    bool const empty = vertices.empty();
    Check(Same(line.omrSekFran, empty ? 0 : vertices.front().sektion) &&
              Same(line.omrSekTill, empty ? 0 : vertices.back().sektion) &&
              line.omrAvstMin == (empty ? 0 : -30) && line.omrAvstMax == (empty ? 0 : 30),
          "the area of the records");
}

// A file that was written gives the numbers with four decimals that stand in it.
Vertices Rounded(Vertices vertices, bool profilePart) {
    for (kovltype& v : vertices) {
        Scan4(Printed("%.4f %.4f %.4f %.4f", v), v);
        v.sektion = profilePart ? v.y : v.sektion;
    }
    return vertices;
}

// --- The classes ---------------------------------------------------------------------------------

void CheckLine(std::string const& content, bool typeBefore) {
    CVaglinje line;
    line.typ = typeBefore ? 7 : 0;
    std::strcpy(line.namn, "before");
    Model const model = ModelLine(content, line.typ, line.namn);
    WriteFile(content);
    Check(line.Init(FilePath().c_str()) == 0, "a file that is there is read");
    Check(Same(VerticesOf(line), model.plan), "the line's vertices");
    Check(line.typ == model.type, "the line's type");
    Check(line.namn == model.name, "the line's name");
    Check(std::strcmp(line.filnamn, fileName) == 0, "the file's name");
    Check(LastMessage() == model.lastMessage, "the last bad line is kept");
    CheckArea(line, {});
    Check(line.Reset() == (model.plan.empty() ? -1 : 0), "an empty line has no area");
    CheckArea(line, model.plan);

    Check(line.Uppdat(FilePath().c_str()) == 0, "the line is written");
    std::string const written = FileContent();
    Check(written == ModelText(VerticesOf(line), line.typ, line.namn), "printf's text");

    CVaglinje again;
    std::strcpy(again.namn, "before");
    Check(again.Init(FilePath().c_str()) == 0, "what was written is read");
    Check(Same(VerticesOf(again), Rounded(VerticesOf(line), false)), "four decimals read back");
    Check(model.plan.empty() || (again.typ == line.typ && again.namn == model.name),
          "type and name read back");
    Check(again.Uppdat(FilePath().c_str()) == 0 && FileContent() == written,
          "the second writing is the first");
}

void CheckSet(std::string const& content) {
    CVag2 set;
    std::strcpy(set.namn, "before");
    Model const model = ModelSet(content, set.namn);
    WriteFile(content);
    Check(set.Init(FilePath().c_str()) == 0, "a file that is there is read");
    Check(Same(VerticesOf(set.plan), model.plan), "the plan's vertices");
    Check(Same(VerticesOf(set.profil), model.profile), "the profile's vertices");
    Check(set.plan.typ == planType && set.profil.typ == profileType, "the types stay");
    Check(set.namn == model.name, "the road's name");
    Check(std::strcmp(set.filnamn, fileName) == 0, "the file's name");
    Check(LastMessage() == model.lastMessage, "the last bad line is kept");
    CheckArea(set.plan, model.plan);
    CheckArea(set.profil, model.profile);

    Vertices const plan = VerticesOf(set.plan);
    Vertices const profile = VerticesOf(set.profil);
    bool const profileOnly = plan.empty() && !profile.empty();
    Check(set.Uppdat(FilePath().c_str()) == 0, "the road is written");
    std::string const written = FileContent();
    Check(written == (profileOnly
                          ? ModelText(profile, profileType, model.name)
                          : ModelText(plan, planType, model.name) + ModelProfilePart(profile)),
          "printf's text");

    CVag2 again;
    Check(again.Init(FilePath().c_str()) == 0, "what was written is read");
    Check(Same(VerticesOf(again.plan), Rounded(plan, false)), "the plan reads back");
    Check(Same(VerticesOf(again.profil), Rounded(profile, !profileOnly)), "the profile reads back");
    Check((plan.empty() && profile.empty()) || again.namn == model.name, "the name reads back");
    Check(again.Uppdat(FilePath().c_str()) == 0 && FileContent() == written,
          "the second writing is the first");
    Check(again.Init(FilePath().c_str()) == 0 && VerticesOf(again.plan).size() == 2 * plan.size() &&
              VerticesOf(again.profil).size() == 2 * profile.size(),
          "reading appends");
}

// --- Texts that are nearly road files ------------------------------------------------------------

std::string Fragment(std::mt19937_64& random) {
    // clang-format off
    static constexpr char const* fragments[] = {
        " ", "\t", "\n", "\r\n", "\r", "\x1A", "$", " $Väg ", "1 $\x84\x94\x86\xED", "-", ".5",
        "0 0 0 0\n", "1 2 3 4\n", "10 20.5 0 20.5\n", "5 100 0.25 100.05\r\n", "5 100 0.25 100.1\n",
        "5 100.1 -0.25 100\n", "0 0.1 0 0\n", "1 2 3 4 1 $A\n", "1 2 3 4 10 $B$C\n", "1 2 3 4 5\n",
        "1 2 3 4 99999999999", "1 2 3\n", "1 2\n", "x\n", "*\nProfil\n*\n", "*\n", "*",
        "*x\ny\nz\n",
        "1e308 ", "-1e308 ", "inf ", "nan ", "-nan ", "1e-320 ", "0.00005 ", "1234567.00005 ",
        "99999999999999.99999 ", "0x1p-3 ", "1 10", "1 1"};
    // clang-format on
    return fragments[random() % std::size(fragments)];
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
    constexpr std::size_t longest = 600; // longer files bring nothing but time
    maxSize = std::max(size, std::min(maxSize, longest));
    std::mt19937_64 random(seed);
    if (size == 0 || random() % 3 == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    std::string text(reinterpret_cast<char const*>(data), size);
    if (random() % 16 == 0) {
        text[0] = static_cast<char>(random());
    }
    constexpr std::size_t longName = kvarn::longestVagnamn - 5;
    std::string const piece =
        random() % 64 == 0 ? '$' + std::string(longName + random() % 10, 'n') : Fragment(random);
    text.replace(1 + random() % text.size(), random() % 2 * (random() % 8), piece);
    text.resize(std::min(text.size(), maxSize));
    std::memcpy(data, text.data(), text.size());
    return text.size();
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    constexpr unsigned asSet = 1;
    constexpr unsigned star = 2;
    constexpr unsigned typeBefore = 4;
    unsigned const choices = data[0];
    std::string const content(reinterpret_cast<char const*>(data) + 1, size - 1);
    MessageBuffer()[0] = (choices & star) != 0 ? '*' : '\0';
    if ((choices & asSet) != 0) {
        CheckSet(content);
    } else {
        CheckLine(content, (choices & typeBefore) != 0);
    }
    return 0;
}
