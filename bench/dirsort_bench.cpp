// Listing and sorting a folder of 20,000 files, and of 2,000 to show how the cost grows, by each of
// the keys. Beside scandir (with versionsort for the names), a std::filesystem walk, and the limit:
// readdir, and one sort of what it gives. The others ask each file's status relative to the open
// folder, into a vector that has room, and work dates out as we do. All fill the same records:
// name, short name, local date and time, size.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "core/dirsort.h"
#include "folder.h"

namespace {

enum Key { byNumber = 1, bySize = 2, byDate = 3 };

using Records = std::vector<dirsorttype>;

// Names as projects have them, half of them beginning with a number; sizes and days of ten years.
std::unique_ptr<Folder> Filled(int files) {
    auto folder = std::make_unique<Folder>("/dev/shm");
    for (int i = 0; i < files; ++i) {
        int const any = i * 7919 % 20011;
        std::string const number = std::to_string(100'000 + any).substr(1);
        std::string const name =
            i % 2 == 0 ? std::to_string(any) + ".DBF" : "Sondering " + number + ".std";
        std::string const path = folder->Path() + '/' + name;
        int const file = open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
        timespec const times[] = {{0, UTIME_OMIT}, {1'700'000'000 - 16'000L * any, 0}};
        if (ftruncate(file, 7L * any) != 0 || futimens(file, times) != 0) {
            throw std::runtime_error("a file cannot be made");
        }
        close(file);
    }
    return folder;
}

std::string const& FolderOf(int files) {
    static std::map<int, std::unique_ptr<Folder>> folders;
    auto& folder = folders[files];
    if (folder == nullptr) {
        folder = Filled(files);
    }
    return folder->Path();
}

// --- What the others share -----------------------------------------------------------------------

class Recorder {
  public:
    explicit Recorder(int folder, std::size_t count = 0) : m_folder(folder) {
        std::time_t const now = std::time(nullptr);
        std::tm local{};
        localtime_r(&now, &local);
        m_zone = local.tm_gmtoff;
        records.reserve(count);
    }

    void Add(char const* name) {
        struct stat status {};
        if (fstatat(m_folder, name, &status, 0) == 0 && !S_ISDIR(status.st_mode)) {
            dirsorttype& record = records.emplace_back();
            std::string_view const text = name;
            text.copy(record.namn, sizeof record.namn - 1);
            text.copy(record.kortNamn, sizeof record.kortNamn - 1);
            SetTime(record, status.st_mtime + m_zone);
            record.storlek = status.st_size > 0 && status.st_size < 1000
                                 ? 1000
                                 : static_cast<std::int32_t>(status.st_size);
        }
    }

    Records records;

  private:
    static void SetTime(dirsorttype& record, std::time_t local) {
        using namespace std::chrono;
        constexpr std::time_t day = 86400;
        year_month_day const date(sys_days(days(local / day)));
        auto const two = [](char* at, unsigned number) {
            at[0] = static_cast<char>('0' + number / 10);
            at[1] = static_cast<char>('0' + number % 10);
        };
        auto const year = static_cast<unsigned>(int{date.year()});
        std::memcpy(record.datum, "    -  -", 8);
        two(record.datum, year / 100);
        two(record.datum + 2, year % 100);
        two(record.datum + 5, unsigned{date.month()});
        two(record.datum + 8, unsigned{date.day()});
        record.tid[2] = '.';
        two(record.tid, static_cast<unsigned>(local % day / 3600));
        two(record.tid + 3, static_cast<unsigned>(local % 3600 / 60));
    }

    int m_folder;
    std::time_t m_zone;
};

// By the size or the date, and as they came.
void SortBy(Key key, Records& records) {
    if (key == bySize) {
        std::stable_sort(
            records.begin(), records.end(),
            [](dirsorttype const& a, dirsorttype const& b) { return a.storlek < b.storlek; });
    } else if (key == byDate) {
        std::stable_sort(records.begin(), records.end(),
                         [](dirsorttype const& a, dirsorttype const& b) {
                             return std::memcmp(a.datum, b.datum, sizeof a.datum) < 0;
                         });
    }
}

// What a record is sorted by: a number, then a text. No two names are equal.
struct Taken {
    long number;
    std::string_view text;
    std::size_t record;

    bool operator<(Taken const& other) const {
        return number != other.number ? number < other.number : text < other.text;
    }
};

Taken TakenOf(dirsorttype const& record, Key key, std::size_t index) {
    constexpr long none = 99'999'999;
    if (key == byNumber) {
        char* end = nullptr;
        long const number = std::strtol(record.namn, &end, 10);
        return {end == record.namn ? none : number, record.namn, index};
    }
    return {key == bySize ? record.storlek : 0, key == byDate ? record.datum : "", index};
}

// --- The contenders ------------------------------------------------------------------------------

std::size_t Ours(std::string const& folder, Key key) {
    CDirSort list;
    list.Init((folder + "\\*").c_str(), key, 1, 0, 0);
    int count = 0;
    list.Where(&count);
    return static_cast<std::size_t>(count);
}

Records ScanDir(std::string const& folder, Key key) {
    int const at = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    dirent** entries = nullptr;
    int const count =
        scandirat(at, ".", &entries, nullptr, key == byNumber ? versionsort : nullptr);
    Recorder recorder(at, static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        recorder.Add(entries[i]->d_name);
        std::free(entries[i]);
    }
    std::free(entries);
    close(at);
    SortBy(key, recorder.records);
    return std::move(recorder.records);
}

Records FileSystem(std::string const& folder, Key key) {
    int const at = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    Recorder recorder(at);
    for (auto const& entry : std::filesystem::directory_iterator(folder)) {
        recorder.Add(entry.path().filename().c_str());
    }
    close(at);
    if (key == byNumber) {
        std::sort(recorder.records.begin(), recorder.records.end(),
                  [](dirsorttype const& a, dirsorttype const& b) {
                      return TakenOf(a, byNumber, 0) < TakenOf(b, byNumber, 0);
                  });
    }
    SortBy(key, recorder.records);
    return std::move(recorder.records);
}

// The records stay where they are, as they do in a list; only what orders them is sorted.
Records ReadDir(std::string const& folder, Key key) {
    DIR* const dir = opendir(folder.c_str());
    constexpr std::size_t room = 20'000;
    Recorder recorder(dirfd(dir), room);
    while (dirent const* const entry = readdir(dir)) {
        recorder.Add(entry->d_name);
    }
    closedir(dir);
    std::vector<Taken> order;
    order.reserve(recorder.records.size());
    for (dirsorttype const& record : recorder.records) {
        order.push_back(TakenOf(record, key, order.size()));
    }
    std::sort(order.begin(), order.end());
    benchmark::DoNotOptimize(order.data());
    return std::move(recorder.records);
}

// --- The benchmarks ------------------------------------------------------------------------------

// All list the same records, in any order.
bool Same(CDirSort& list, Records records) {
    auto const before = [](dirsorttype const& a, dirsorttype const& b) {
        return std::strcmp(a.namn, b.namn) < 0;
    };
    Records ours;
    for (bool there = list.Home() == 0; there; there = list++ != nullptr) {
        ours.push_back(*list.Get_aktel());
    }
    std::sort(ours.begin(), ours.end(), before);
    std::sort(records.begin(), records.end(), before);
    return ours.size() == records.size() &&
           std::memcmp(ours.data(), records.data(), ours.size() * sizeof ours[0]) == 0;
}

using List = Records (*)(std::string const& folder, Key key);

void Run(benchmark::State& state, int files, Key key, List list) {
    std::string const& folder = FolderOf(files);
    CDirSort ours;
    ours.Init((folder + "\\*").c_str(), key, 1, 0, 0);
    if (!Same(ours, list(folder, key))) {
        state.SkipWithError("what is listed differs");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(list(folder, key));
    }
}

void RunOurs(benchmark::State& state, int files, Key key) {
    std::string const& folder = FolderOf(files);
    for (auto _ : state) {
        if (Ours(folder, key) != static_cast<std::size_t>(files)) {
            state.SkipWithError("not every file is listed");
            return;
        }
    }
}

bool const registered = [] {
    for (int const files : {2'000, 20'000}) {
        for (Key const key : {byNumber, bySize, byDate}) {
            char const* const name = key == byNumber ? "number" : key == bySize ? "size" : "date";
            std::string const group = "DirSort/" + std::to_string(files) + '/' + name + '/';
            auto const add = [&](char const* contender, auto run) {
                benchmark::RegisterBenchmark((group + contender).c_str(), run)
                    ->Unit(benchmark::kMillisecond);
            };
            add("ours", [=](auto& state) { RunOurs(state, files, key); });
            add("scandir", [=](auto& state) { Run(state, files, key, ScanDir); });
            add("std::filesystem", [=](auto& state) { Run(state, files, key, FileSystem); });
            add("limit", [=](auto& state) { Run(state, files, key, ReadDir); });
        }
    }
    return true;
}();

} // namespace
