// The keys of a settings file, beside SimpleIni, inih, Boost's property tree and the limit. Every
// answer is compared before the time is taken.
//
// ReadKey/N          a key at random, each from the file of N keys
// LoadedKey/N        the same from the object that has read it
// Page/project       the 78 keys of a settings page, from the project's file of 82 keys: ours reads
//                    the file for each, the others load it once
// Page/shared        the same from a shared file, for a project folder of 2,000 other files
// WriteKey/disk/N    the same flush and replacement for all: a new file, flushed, renamed, and the
//                    folder flushed; in the folder where the program was started
// WriteKey/memory/N  the same calls where a flush costs nothing (/dev/shm): what is left is the
//                    work of each
// WriteKey/in place  all write over their file without any flush, in memory too: ours with the
//                    library's own steps but for the last, for which it has no such mode
// SavePage/...       the 78 keys, in one rewriting
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <thread>

#include "contenders/contender.h"
#include "contenders/keyfile.h"
#include "folder.h"

namespace {

using Run = void(benchmark::State&, Contender&, Settings const& content);

// The keys in an order that the processor cannot foresee.
Settings Shuffled(Settings content) {
    std::shuffle(content.begin(), content.end(), std::mt19937(1));
    return content;
}

void ReadKey(benchmark::State& state, Contender& contender, Settings const& content) {
    Settings const order = Shuffled(content);
    std::size_t next = 0;
    for (auto _ : state) {
        Setting const& setting = order[next++ % order.size()];
        if (contender.Read(setting.key) != setting.value) {
            state.SkipWithError("another value was read");
            break;
        }
    }
}

void FindKey(benchmark::State& state, Contender& contender, Settings const& content) {
    Settings const order = Shuffled(content);
    contender.Load();
    std::size_t next = 0;
    for (auto _ : state) {
        Setting const& setting = order[next++ % order.size()];
        if (contender.Find(setting.key) != setting.value) {
            state.SkipWithError("another value was found");
            break;
        }
    }
}

bool Same(Settings const& a, Settings const& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](Setting const& x, Setting const& y) { return x.value == y.value; });
}

void ReadPage(benchmark::State& state, Contender& contender, Settings const&) {
    // A folder that was changed just now is not remembered.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    Settings const expected = Page();
    Settings page = expected;
    for (auto _ : state) {
        contender.ReadAll(page);
    }
    if (!Same(page, expected)) {
        state.SkipWithError("another page was read");
    }
}

// One key, each time another.
void WriteKey(benchmark::State& state, Contender& contender, Settings const& content) {
    Settings const order = Shuffled(content);
    std::string const values[] = {"12.5", "250"};
    Settings setting(1);
    std::size_t next = 0;
    for (auto _ : state) {
        setting.front() = {order[next % order.size()].key,
                           values[next / order.size() % std::size(values)]};
        ++next;
        if (!contender.Write(setting)) {
            state.SkipWithError("a key was not written");
            return;
        }
    }
    if (contender.Read(setting.front().key) != setting.front().value) {
        state.SkipWithError("what was written does not read back");
    }
}

void SavePage(benchmark::State& state, Contender& contender, Settings const&) {
    Settings page = Page();
    std::string const values[] = {"12.5", "250"};
    std::size_t round = 0;
    for (auto _ : state) {
        ++round;
        for (Setting& setting : page) {
            setting.value = values[round % std::size(values)];
        }
        if (!contender.Write(page)) {
            state.SkipWithError("the page was not written");
            return;
        }
    }
    Settings read = page;
    contender.ReadAll(read);
    if (!Same(read, page)) {
        state.SkipWithError("what was written does not read back");
    }
}

enum class Time { ofProcessor, real };

struct Group {
    std::string name;
    Run* run;
    std::size_t keys;
    std::filesystem::path parent;
    Saving saving = Saving::replaced;
    Time time = Time::ofProcessor;

    void Add(char const* contender, MakeContender* make) const {
        auto* const added = benchmark::RegisterBenchmark(
            (name + "/" + contender).c_str(), [group = *this, make](benchmark::State& state) {
                Folder const folder(group.parent);
                Settings const content = KeyFile(group.keys);
                group.run(state, *make({folder.Path(), group.saving}, content), content);
            });
        added->Unit(benchmark::kMicrosecond);
        if (time == Time::real) {
            added->UseRealTime();
        }
    }
};

bool const registered = [] {
    constexpr std::size_t usual = 82;
    auto const disk = std::filesystem::current_path();
    std::filesystem::path const memory = "/dev/shm";
    for (std::size_t const keys : {usual, std::size_t{2'000}, std::size_t{10'000}}) {
        std::string const size = std::to_string(keys);
        Group const read = {"ReadKey/" + size, ReadKey, keys, disk};
        read.Add("ours", Ours);
        read.Add("SimpleIni", SimpleIni);
        read.Add("inih", Inih);
        read.Add("limit", Limit);
        Group const write = {"WriteKey/memory/" + size, WriteKey, keys, memory};
        write.Add("ours", Ours);
        write.Add("SimpleIni", SimpleIni);
        write.Add("inih", Inih);
        write.Add("property tree", PropertyTree);
        write.Add("limit", Limit);
    }
    Group const loaded = {"LoadedKey/2000", FindKey, 2'000, disk};
    loaded.Add("ours", Ours);
    loaded.Add("SimpleIni", SimpleIni);
    loaded.Add("limit", Limit);
    Group const own = {"Page/project", ReadPage, usual, disk};
    own.Add("ours", Ours);
    own.Add("SimpleIni", SimpleIni);
    own.Add("limit", Limit);
    Group const shared = {"Page/shared", ReadPage, usual, disk};
    shared.Add("ours", OursShared);
    shared.Add("SimpleIni", SimpleIni);
    shared.Add("limit", Limit);
    // Waiting for the disk counts.
    for (Group const& group :
         {Group{"WriteKey/disk/82", WriteKey, usual, disk, Saving::replaced, Time::real},
          Group{"WriteKey/in place/82", WriteKey, usual, memory, Saving::inPlace},
          Group{"SavePage/disk", SavePage, usual, disk, Saving::replaced, Time::real},
          Group{"SavePage/memory", SavePage, usual, memory}}) {
        group.Add("ours", Ours);
        group.Add("SimpleIni", SimpleIni);
        group.Add("limit", Limit);
    }
    return true;
}();

} // namespace
