#include "removed.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <system_error>

#include <files/filecopy.h>
#include <files/pathparts.h>

#include "failure.h"
#include "output.h"
#include "platform.h"

namespace kvarnio {
namespace {

constexpr std::string_view prefix = "kvarnio-removed-";
constexpr std::string_view unfinished = "kvarnio-removing"; // a run that was killed leaves it

std::string Now() {
    std::time_t const now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm const* const local = std::localtime(&now);
    char text[32] = "";
    if (local != nullptr) {
        std::strftime(text, sizeof text, "%Y-%m-%d-%H%M%S", local);
    }
    return text;
}

std::string NameOf(std::string const& path) {
    return path.substr(path.rfind('\\') + 1);
}

void Require(std::error_code const& error, std::string const& folder) {
    if (error) {
        throw IoFailure("nothing was removed: " + Shown(folder) +
                        ", which would keep the files, cannot be made");
    }
}

// A name that is free: several may be removed within a second.
std::string FreeName(std::string const& folder) {
    std::string const first = kvarn::PathOf(folder, std::string(prefix) + Now());
    std::string name = first;
    for (int i = 2; std::filesystem::exists(HostPath(name)); ++i) {
        name = first + '-' + std::to_string(i);
    }
    return name;
}

} // namespace

std::string KeepRemoved(std::vector<std::string> const& paths) {
    std::string const folder(kvarn::FolderOf(paths.front()));
    std::string const making = kvarn::PathOf(folder, unfinished);
    std::error_code error;
    std::filesystem::remove_all(HostPath(making), error);
    std::filesystem::create_directory(HostPath(making), error);
    Require(error, making);
    for (std::string const& path : paths) {
        if (!kvarn::KeepCopy(path.c_str(), kvarn::PathOf(making, NameOf(path)).c_str())) {
            std::filesystem::remove_all(HostPath(making), error);
            throw IoFailure("nothing was removed: " + Shown(path) + " cannot be kept");
        }
    }
    std::string kept = FreeName(folder);
    std::filesystem::rename(HostPath(making), HostPath(kept), error);
    Require(error, kept);
    return kept;
}

std::string LastRemoved(std::string const& folder) {
    std::string last;
    std::error_code error;
    for (auto const& entry : std::filesystem::directory_iterator(HostPath(folder + '\\'), error)) {
        std::string const name = entry.path().filename().string();
        if (name.starts_with(prefix)) {
            last = std::max(last, name);
        }
    }
    return last.empty() ? "" : kvarn::PathOf(folder, last);
}

} // namespace kvarnio
