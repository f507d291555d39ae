// Listing and sorting a folder of 20,000 files, and of 5,000 to show how the cost grows, beside
// scandir with versionsort and a std::filesystem walk with std::sort. All fill the same records:
// name, short name, local date and time, size.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

#include "core/dirsort.h"
#include "folder.h"

namespace {

// Names as projects have them: half begin with a number, of any length.
std::string Name(int i) {
    char name[32];
    std::snprintf(name, sizeof name, i % 2 == 0 ? "%d.DBF" : "Sondering %05d.std",
                  i * 7919 % 20011);
    return name;
}

void Fill(std::string const& folder, int files) {
    for (int i = 0; i < files; ++i) {
        std::ofstream(folder + "/" + Name(i)) << i;
    }
}

dirsorttype Record(char const* name, struct stat const& status) {
    dirsorttype record{};
    std::snprintf(record.namn, sizeof record.namn, "%s", name);
    std::string_view(name).copy(record.kortNamn, sizeof record.kortNamn - 1);
    std::tm local{};
    localtime_r(&status.st_mtime, &local);
    std::strftime(record.datum, sizeof record.datum, "%Y-%m-%d", &local);
    std::strftime(record.tid, sizeof record.tid, "%H.%M", &local);
    record.storlek = status.st_size > 0 && status.st_size < 1000
                         ? 1000
                         : static_cast<std::int32_t>(status.st_size);
    return record;
}

std::size_t Ours(std::string const& folder) {
    constexpr int byName = 1;
    CDirSort list;
    list.Init((folder + "\\*").c_str(), byName, 1, 0, 0);
    int count = 0;
    list.Where(&count);
    return static_cast<std::size_t>(count);
}

std::size_t ScanDir(std::string const& folder) {
    dirent** entries = nullptr;
    int const count = scandir(folder.c_str(), &entries, nullptr, versionsort);
    std::vector<dirsorttype> records;
    for (int i = 0; i < count; ++i) {
        struct stat status {};
        if (stat((folder + "/" + entries[i]->d_name).c_str(), &status) == 0 &&
            !S_ISDIR(status.st_mode)) {
            records.push_back(Record(entries[i]->d_name, status));
        }
        std::free(entries[i]);
    }
    std::free(entries);
    return records.size();
}

std::size_t FileSystem(std::string const& folder) {
    std::vector<dirsorttype> records;
    for (auto const& entry : std::filesystem::directory_iterator(folder)) {
        struct stat status {};
        if (!entry.is_directory() && stat(entry.path().c_str(), &status) == 0) {
            records.push_back(Record(entry.path().filename().c_str(), status));
        }
    }
    std::sort(records.begin(), records.end(), [](dirsorttype const& a, dirsorttype const& b) {
        long const x = std::strtol(a.namn, nullptr, 10);
        long const y = std::strtol(b.namn, nullptr, 10);
        return x != y ? x < y : strcasecmp(a.namn, b.namn) < 0;
    });
    return records.size();
}

using List = std::size_t (*)(std::string const& folder);

void Run(benchmark::State& state, int files, List list) {
    Folder const folder("/dev/shm");
    Fill(folder.Path(), files);
    for (auto _ : state) {
        if (list(folder.Path()) != static_cast<std::size_t>(files)) {
            state.SkipWithError("not every file is listed");
            break;
        }
    }
}

bool const registered = [] {
    for (int const files : {5000, 20000}) {
        auto const add = [&](char const* contender, List list) {
            benchmark::RegisterBenchmark(
                ("DirSort/" + std::to_string(files) + "/" + contender).c_str(),
                [=](benchmark::State& state) { Run(state, files, list); })
                ->Unit(benchmark::kMillisecond);
        };
        add("ours", Ours);
        add("scandir", ScanDir);
        add("std::filesystem", FileSystem);
    }
    return true;
}();

} // namespace
