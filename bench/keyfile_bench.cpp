// ReadKey and WriteKey of the settings facade on a file of 82 keys, beside SimpleIni, inih and bare
// system calls.
//
// ReadKey            the keys in turn, each from the file
// WriteKey/disk      the same flush and replacement for all: a new file, flushed, renamed, and the
//                    folder flushed; in the folder where the program was started
// WriteKey/memory    the same calls where a flush costs nothing (/dev/shm): what is left is the
//                    work of each
// WriteKey/in place  all write over their file without any flush, in memory too: ours with the
//                    library's own steps but for the last, for which it has no such mode
#include <benchmark/benchmark.h>

#include <filesystem>
#include <functional>
#include <string>

#include "contenders/contender.h"
#include "contenders/keyfile.h"
#include "folder.h"

namespace {

using Make = std::function<std::unique_ptr<Contender>(std::string const& folder)>;

void ReadKeys(benchmark::State& state, std::filesystem::path const& parent, Make const& make) {
    Folder const folder(parent);
    auto const contender = make(folder.Path());
    std::size_t next = 0;
    for (auto _ : state) {
        if (contender->Read(Keys()[next++ % Keys().size()]).empty()) {
            state.SkipWithError("a key was not found");
            break;
        }
    }
}

void WriteKeys(benchmark::State& state, std::filesystem::path const& parent, Make const& make) {
    Folder const folder(parent);
    auto const contender = make(folder.Path());
    std::string const values[] = {"12.5", "250"};
    std::size_t next = 0;
    std::string const* key = nullptr;
    std::string const* value = nullptr;
    for (auto _ : state) {
        key = &Keys()[next % Keys().size()];
        value = &values[next / Keys().size() % std::size(values)]; // each time another
        ++next;
        if (!contender->Write(*key, *value)) {
            state.SkipWithError("a key was not written");
            return;
        }
    }
    if (contender->Read(*key) != *value) {
        state.SkipWithError("what was written does not read back");
    }
}

using Run = void(benchmark::State&, std::filesystem::path const&, Make const&);
enum class Time { ofProcessor, real };

void Register(std::string const& group, Run* run, std::filesystem::path const& parent,
              Saving saving, Time time) {
    auto const add = [&](char const* name, Make const& make) {
        auto* const added = benchmark::RegisterBenchmark(
            (group + "/" + name).c_str(),
            [=](benchmark::State& state) { run(state, parent, make); });
        added->Unit(benchmark::kMicrosecond);
        if (time == Time::real) {
            added->UseRealTime();
        }
    };
    using namespace std::placeholders;
    add("ours", std::bind(Ours, _1, saving));
    add("SimpleIni", std::bind(SimpleIni, _1, saving));
    add("inih", std::bind(Inih, _1, saving));
    add("system calls", std::bind(SystemCalls, _1, saving));
}

bool const registered = [] {
    auto const disk = std::filesystem::current_path();
    std::filesystem::path const memory = "/dev/shm";
    Register("ReadKey", ReadKeys, disk, Saving::replaced, Time::ofProcessor);
    // Waiting for the disk counts.
    Register("WriteKey/disk", WriteKeys, disk, Saving::replaced, Time::real);
    Register("WriteKey/memory", WriteKeys, memory, Saving::replaced, Time::ofProcessor);
    Register("WriteKey/in place", WriteKeys, memory, Saving::inPlace, Time::ofProcessor);
    return true;
}();

} // namespace
