// Feeds the files of a folder to a fuzz target, for compilers without libFuzzer: what was found
// once stays mended.
//
//   fuzz_replay TARGET FOLDER
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#define FUZZ_TARGET(name) extern "C" int name(std::uint8_t const* data, std::size_t size);
#include "fuzz_targets.inc"
#undef FUZZ_TARGET

namespace {

struct Target {
    char const* name;
    int (*run)(std::uint8_t const*, std::size_t);
};
#define FUZZ_TARGET(name) {#name, name},
constexpr Target targets[] = {
#include "fuzz_targets.inc"
};
#undef FUZZ_TARGET

void Run(Target const& target, std::string const& input) {
    target.run(reinterpret_cast<std::uint8_t const*>(input.data()), input.size());
}

} // namespace

int main(int argc, char** argv) {
    auto const* const target =
        std::find_if(std::begin(targets), std::end(targets), [&](Target const& one) {
            return argc == 3 && std::strcmp(one.name, argv[1]) == 0;
        });
    if (target == std::end(targets)) {
        std::fputs("usage: fuzz_replay TARGET FOLDER\n", stderr);
        return 2;
    }
    int files = 0;
    Run(*target, "");
    for (auto const& entry : std::filesystem::directory_iterator(argv[2])) {
        std::ifstream file(entry.path(), std::ios::binary);
        std::fprintf(stderr, "%s\n", entry.path().filename().c_str()); // the last is to blame
        Run(*target, {std::istreambuf_iterator<char>(file), {}});
        ++files;
    }
    std::printf("%s: %d files\n", target->name, files);
    return files > 0 ? 0 : 1;
}
