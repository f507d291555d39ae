// A short command as a whole process: started, waited for, its answer written into a file.
//
// kvarnio get    the last of 82 keys, from a project's file; git config from a file of the same
//                keys; the limit is a program that does nothing, linked as the tool is
#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "folder.h"

namespace {

using Words = std::vector<std::string>;

constexpr int keyCount = 82;
std::string const lastKey = "KEY" + std::to_string(keyCount);
std::string const lastValue = std::to_string(keyCount) + ".5";

void Write(std::string const& path, std::string const& before) {
    std::ofstream file(path, std::ios::binary);
    file << before;
    for (int i = 1; i <= keyCount; ++i) {
        file << "KEY" << i << '=' << i << ".5\r\n";
    }
}

std::string Read(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// In the folder, with the file "out" as its output. Its exit status; -1 when it did not run.
int Run(std::string const& folder, Words const& words) {
    std::vector<char*> arguments;
    for (std::string const& word : words) {
        arguments.push_back(const_cast<char*>(word.c_str())); // which are not written to
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "out", O_WRONLY | O_CREAT | O_TRUNC,
                                     S_IRUSR | S_IWUSR);
    pid_t child = 0;
    int status = 0;
    bool const ran = posix_spawnp(&child, arguments.front(), &actions, nullptr, arguments.data(),
                                  environ) == 0 &&
                     waitpid(child, &status, 0) == child && WIFEXITED(status);
    posix_spawn_file_actions_destroy(&actions);
    return ran ? WEXITSTATUS(status) : -1;
}

void Get(benchmark::State& state, Words const& words, std::string const& answer) {
    Folder const folder("/dev/shm");
    Write(folder.Path() + "/KVARNBOK.PAR", "");
    Write(folder.Path() + "/git", "[k]\r\n");
    std::ofstream(folder.Path() + "/Markvida.ini") << "[SYSTEM]\r\nKVARNBOK.CFG=.\r\n";
    for (auto _ : state) {
        if (Run(folder.Path(), words) != 0) {
            state.SkipWithError("it failed");
            return;
        }
    }
    if (Read(folder.Path() + "/out") != answer) {
        state.SkipWithError("it gave another answer");
    }
}

void Register(char const* name, Words const& words, std::string const& answer) {
    benchmark::RegisterBenchmark((std::string("kvarnio get/") + name).c_str(),
                                 [=](benchmark::State& state) { Get(state, words, answer); })
        ->Unit(benchmark::kMicrosecond)
        ->UseRealTime(); // the work is another process's
}

bool const registered = [] {
    std::string const line = lastValue + '\n';
    Register("ours", {KVARNIO, "get", "KVARNBOK.PAR", lastKey, "--project", ".", "--home", "."},
             line);
    Register("git config", {"git", "config", "--file", "git", "--get", "k." + lastKey}, line);
    Register("limit", {NOTHING}, "");
    return true;
}();

} // namespace
