// A road file of 100,000 vertices, and of ten times as many: read into a line, and written. Beside
// fast_float, and fgets and sscanf, into a vector; and beside std::to_chars, and fprintf. All do
// the whole work: header, type and name, and for writing a new file, flushed, renamed, and the
// folder flushed. In memory (/dev/shm), where a flush costs nothing.
//
// The limits: the file read and its lines found; and the bytes that are to be written, ready.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <fast_float/fast_float.h>
#include <kvarnprog.h>
#include <sys/stat.h>
#include <unistd.h>

#include "contenders/files.h"
#include "folder.h"

namespace {

constexpr char const* fileName = "/road.vl";

// What a program has of a road.
struct Road {
    std::vector<kovltype> vertices;
    int type = 1;
    char name[256] = "Gamla vagen";
};

Road LongRoad(int count) {
    Road road;
    for (int i = 0; i < count; ++i) {
        double const s = 19.8765 * i;
        road.vertices.push_back({6'500'000 + 300 * std::sin(s / 500), 150'000 + 0.9 * s,
                                 i % 3 == 0 ? 0.0413 * std::sin(s) : 0, s});
    }
    return road;
}

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

// --- By the C library ----------------------------------------------------------------------------

void ReadName(char const* header, char (&name)[256]) {
    char const* const dollar = std::strchr(header, '$');
    name[0] = '\0';
    if (dollar != nullptr) {
        std::snprintf(name, sizeof name, "%.*s",
                      static_cast<int>(std::strcspn(dollar + 1, "$\r\n")), dollar + 1);
    }
}

bool ScanRoad(std::string const& path, Road& road) {
    File const file(std::fopen(path.c_str(), "r"));
    char line[1024];
    for (bool header = true; file != nullptr && std::fgets(line, sizeof line, file.get());
         header = false) {
        kovltype v{};
        if (header) {
            std::sscanf(line, "%*f %*f %*f %*f %d", &road.type);
            ReadName(line, road.name);
        }
        if (std::sscanf(line, "%lf %lf %lf %lf", &v.x, &v.y, &v.bulge, &v.sektion) == 4) {
            road.vertices.push_back(v);
        }
    }
    return file != nullptr;
}

bool PrintRoad(std::string const& path, Road const& road) {
    std::string const beside = path + ".tmp";
    File file(std::fopen(beside.c_str(), "wx"));
    for (kovltype const& v : road.vertices) {
        std::fprintf(file.get(), "%.4f %.4f %.4f %.4f", v.x, v.y, v.bulge, v.sektion);
        if (&v == road.vertices.data()) {
            std::fprintf(file.get(), " %d $%s", road.type, road.name);
        }
        std::fputs("\r\n", file.get());
    }
    bool const written = std::fflush(file.get()) == 0 && fsync(fileno(file.get())) == 0 &&
                         std::fclose(file.release()) == 0;
    return written && Replace(beside, path);
}

// --- The bytes alone -----------------------------------------------------------------------------

// A file's content; memory is not cleared for it first.
class Bytes {
  public:
    explicit Bytes(std::string const& path) {
        int const file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat status {};
        if (fstat(file, &status) == 0) {
            auto const size = static_cast<std::size_t>(status.st_size);
            m_buffer.reset(new char[size]);
            m_text = {m_buffer.get(),
                      read(file, m_buffer.get(), size) == status.st_size ? size : 0};
        }
        close(file);
    }
    std::string_view Text() const { return m_text; }

  private:
    std::unique_ptr<char[]> m_buffer;
    std::string_view m_text;
};

// Takes the next line off a text.
std::string_view TakeLine(std::string_view& text) {
    std::string_view const line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

// Only how many lines there are.
bool SplitLines(std::string const& path, Road& road) {
    Bytes const bytes(path);
    std::size_t lines = 0;
    for (std::string_view text = bytes.Text(); !text.empty(); ++lines) {
        benchmark::DoNotOptimize(TakeLine(text));
    }
    road.vertices.clear();
    return lines > 0;
}

// --- By fast_float and std::to_chars -------------------------------------------------------------

bool FastFloatLine(std::string_view line, kovltype& v) {
    char const* next = line.data();
    char const* const end = next + line.size();
    for (double* const value : {&v.x, &v.y, &v.bulge, &v.sektion}) {
        while (next != end && *next == ' ') {
            ++next;
        }
        auto const result = fast_float::from_chars(next, end, *value);
        if (result.ec != std::errc()) {
            return false;
        }
        next = result.ptr;
    }
    return true;
}

bool FastFloatRoad(std::string const& path, Road& road) {
    constexpr std::size_t shortLine = 32;
    Bytes const bytes(path);
    std::string_view text = bytes.Text();
    std::string const header(text.substr(0, text.find('\n')));
    std::sscanf(header.c_str(), "%*f %*f %*f %*f %d", &road.type);
    ReadName(header.c_str(), road.name);
    road.vertices.reserve(text.size() / shortLine);
    while (!text.empty()) {
        kovltype v{};
        if (FastFloatLine(TakeLine(text), v)) {
            road.vertices.push_back(v);
        }
    }
    return !road.vertices.empty();
}

bool ToCharsRoad(std::string const& path, Road const& road) {
    constexpr std::size_t lineLength = 64;
    std::string text;
    text.reserve(lineLength * road.vertices.size());
    for (kovltype const& v : road.vertices) {
        std::array<char, 4 * 320> line;
        char* out = line.data();
        for (double const value : {v.x, v.y, v.bulge, v.sektion}) {
            out = std::to_chars(out, line.data() + line.size(), value, std::chars_format::fixed, 4)
                      .ptr;
            *out++ = ' ';
        }
        text.append(line.data(), out - 1);
        if (&v == road.vertices.data()) {
            text += ' ' + std::to_string(road.type) + " $" + road.name;
        }
        text += "\r\n";
    }
    return Save(path, text, Saving::replaced);
}

// --- Ours ----------------------------------------------------------------------------------------

bool InitLine(std::string const& path, CVaglinje& line) {
    return line.Init(path.c_str()) == 0;
}

void Fill(CVaglinje& line, Road road) {
    line.typ = road.type;
    std::strcpy(line.namn, road.name);
    for (kovltype& v : road.vertices) {
        line.Ny(1, &v);
    }
}

bool Same(CVaglinje& line, Road const& road) {
    int count = 0;
    line.Where(&count);
    if (line.typ != road.type || std::strcmp(line.namn, road.name) != 0 ||
        static_cast<std::size_t>(count) != road.vertices.size()) {
        return false;
    }
    auto v = road.vertices.begin();
    for (bool there = line.Home() == 0; there; there = line++ != nullptr) {
        if (std::memcmp(&*v++, line.Get_aktel(), sizeof *v) != 0) {
            return false;
        }
    }
    return true;
}

// --- The benchmarks ------------------------------------------------------------------------------

constexpr char const* memory = "/dev/shm";

// All read the same, and it is all of the road.
bool ReadingAgrees(std::string const& path, std::size_t count) {
    CVaglinje line;
    Road scanned;
    Road fast;
    return InitLine(path, line) && ScanRoad(path, scanned) && Same(line, scanned) &&
           FastFloatRoad(path, fast) && Same(line, fast) && scanned.vertices.size() == count;
}

template <class T>
void ReadRoad(benchmark::State& state, int count, bool (*read)(std::string const&, T&)) {
    Folder const folder(memory);
    std::string const path = folder.Path() + fileName;
    if (!PrintRoad(path, LongRoad(count)) ||
        !ReadingAgrees(path, static_cast<std::size_t>(count))) {
        state.SkipWithError("what is read differs");
        return;
    }
    for (auto _ : state) {
        T road;
        benchmark::DoNotOptimize(read(path, road));
    }
}

using Write = std::function<bool(std::string const& path)>;

// The writer is made when its turn comes, from the road and its bytes.
void WriteRoad(benchmark::State& state, int count,
               std::function<Write(Road const&, std::string const& bytes)> const& writer) {
    Folder const folder(memory);
    std::string const path = folder.Path() + fileName;
    Road const road = LongRoad(count);
    std::string expected;
    std::string content;
    bool const printed = PrintRoad(path, road) && ReadWhole(path, expected);
    Write const write = writer(road, expected);
    if (!printed || !write(path) || !ReadWhole(path, content) || content != expected) {
        state.SkipWithError("what is written differs");
        return;
    }
    for (auto _ : state) {
        if (!write(path)) {
            state.SkipWithError("the road was not written");
            return;
        }
    }
}

Write OurWriter(Road const& road, std::string const&) {
    auto const line = std::make_shared<CVaglinje>();
    Fill(*line, road);
    return [line](std::string const& path) { return line->Uppdat(path.c_str()) == 0; };
}

Write PeerWriter(Road const& road, bool (*print)(std::string const&, Road const&)) {
    return [&road, print](std::string const& path) { return print(path, road); };
}

Write ReadyBytes(Road const&, std::string const& bytes) {
    return [&bytes](std::string const& path) { return Save(path, bytes, Saving::replaced); };
}

void Register(std::string const& name, std::function<void(benchmark::State&)> const& run) {
    benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
}

bool const registered = [] {
    for (int const count : {100'000, 1'000'000}) {
        auto const addRead = [&](char const* name, auto read) {
            Register("ReadRoad/" + std::to_string(count) + "/" + name,
                     [=](auto& state) { ReadRoad(state, count, read); });
        };
        addRead("ours", InitLine);
        addRead("fast_float", FastFloatRoad);
        addRead("sscanf", ScanRoad);
        addRead("limit", SplitLines);
        auto const addWrite = [&](char const* name, auto writer) {
            Register("WriteRoad/" + std::to_string(count) + "/" + name,
                     [=](auto& state) { WriteRoad(state, count, writer); });
        };
        addWrite("ours", OurWriter);
        addWrite("std::to_chars", [](Road const& road, std::string const&) {
            return PeerWriter(road, ToCharsRoad);
        });
        addWrite("fprintf",
                 [](Road const& road, std::string const&) { return PeerWriter(road, PrintRoad); });
        addWrite("limit", ReadyBytes);
    }
    return true;
}();

} // namespace
