// A road file of 100,000 vertices: read into a line, and written, beside the C library's fgets and
// sscanf into a vector, and fprintf. All do the whole work: header, type and name, and for writing
// a new file, flushed, renamed, and the folder flushed. In memory (/dev/shm), where a flush costs
// nothing.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <kvarnprog.h>
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

Road LongRoad() {
    constexpr int count = 100'000;
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

// Both read the same.
bool ReadingAgrees(std::string const& path) {
    CVaglinje line;
    Road road;
    return InitLine(path, line) && ScanRoad(path, road) && Same(line, road) &&
           road.vertices.size() == LongRoad().vertices.size();
}

template <class T> void ReadRoad(benchmark::State& state, bool (*read)(std::string const&, T&)) {
    Folder const folder(memory);
    std::string const path = folder.Path() + fileName;
    if (!PrintRoad(path, LongRoad()) || !ReadingAgrees(path)) {
        state.SkipWithError("what is read differs");
        return;
    }
    for (auto _ : state) {
        T road;
        benchmark::DoNotOptimize(read(path, road));
    }
}

void WriteRoad(benchmark::State& state, std::function<bool(std::string const&)> const& write) {
    Folder const folder(memory);
    std::string const path = folder.Path() + fileName;
    std::string expected;
    std::string content;
    bool const same = PrintRoad(path, LongRoad()) && ReadWhole(path, expected) && write(path) &&
                      ReadWhole(path, content) && content == expected;
    if (!same) {
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

void Register(char const* name, std::function<void(benchmark::State&)> const& run) {
    benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
}

bool const registered = [] {
    Register("ReadRoad/ours", [](auto& state) { ReadRoad(state, InitLine); });
    Register("ReadRoad/sscanf", [](auto& state) { ReadRoad(state, ScanRoad); });
    Register("WriteRoad/ours", [](auto& state) {
        CVaglinje line;
        Fill(line, LongRoad());
        WriteRoad(state, [&](std::string const& path) { return line.Uppdat(path.c_str()) == 0; });
    });
    Register("WriteRoad/fprintf", [](auto& state) {
        Road const road = LongRoad();
        WriteRoad(state, [&](std::string const& path) { return PrintRoad(path, road); });
    });
    return true;
}();

} // namespace
