#include "temporary.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cstdint>
#include <mutex>
#include <optional>
#include <set>
#include <vector>

#include "../compat/calls.h"
#include "../text/text.h"
#include "filesearch.h"
#include "filetime.h"
#include "outfile.h"
#include "pathparts.h"

namespace kvarn {
namespace {

constexpr std::string_view extension = ".tmp";

// Takes a number off the end of a text.
std::optional<DWORD> TakeNumber(std::string_view& text) {
    std::size_t const end = text.find_last_not_of("0123456789");
    std::string_view const digits = text.substr(end == std::string_view::npos ? 0 : end + 1);
    text.remove_suffix(digits.size());
    DWORD number = 0;
    auto const read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

struct Maker {
    std::string_view target;
    DWORD process;
};

// Of a temporary file, by its name.
std::optional<Maker> MakerOf(std::string_view name) {
    if (!name.ends_with(extension)) {
        return std::nullopt;
    }
    name.remove_suffix(extension.size());
    bool const serial = TakeNumber(name).has_value() && name.ends_with('-');
    name.remove_suffix(serial ? 1 : 0);
    auto const process = serial ? TakeNumber(name) : std::nullopt;
    if (!process || !name.ends_with('.')) {
        return std::nullopt;
    }
    name.remove_suffix(1);
    return Maker{name, *process};
}

bool Lives(DWORD process) {
    HANDLE const handle = OpenProcess(SYNCHRONIZE, FALSE, process);
    if (handle == nullptr) {
        return GetLastError() != ERROR_INVALID_PARAMETER;
    }
    bool const lives = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
    CloseHandle(handle);
    return lives;
}

// Another process may have got the number of one that was killed.
bool IsOlderThanADay(WIN32_FIND_DATAA const& file) {
    constexpr std::uint64_t seconds = std::uint64_t{24} * 60 * 60;
    constexpr std::uint64_t day = seconds * ticksPerSecond;
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return Ticks(file.ftLastWriteTime) + day < Ticks(now);
}

void Delete(std::string const& path) {
    constexpr DWORD alone = 0; // refused while its writer, on whatever machine, has it open
    if (OutFile(path.c_str(), OPEN_EXISTING, alone).IsOpen()) {
        DeleteFileA(path.c_str());
    }
}

// True for the first call about a target.
bool IsFirst(std::string const& target) {
    constexpr std::size_t most = 1000; // then they are forgotten, and swept again
    static std::mutex inUse;
    static std::set<std::string> swept;
    std::lock_guard const alone(inUse);
    if (swept.size() >= most) {
        swept.clear();
    }
    return swept.insert(target).second;
}

} // namespace

std::string TemporaryBeside(std::string_view target) {
    static std::atomic<int> serial = 0;
    return std::string(target) + "." + std::to_string(GetCurrentProcessId()) + "-" +
           std::to_string(++serial) + std::string(extension);
}

bool IsTemporary(std::string_view name) {
    return MakerOf(name).has_value();
}

void SweepBeside(std::string const& target) {
    if (!IsFirst(target)) {
        return;
    }
    std::string const name = target.substr(target.find_last_of("\\/:") + 1);
    std::string const folder = target.substr(0, target.size() - name.size());
    for (FileSearch search((target + ".*-*.tmp").c_str()); search.Found(); search.Next()) {
        WIN32_FIND_DATAA const& file = search.Entry();
        auto const maker = MakerOf(file.cFileName);
        if (maker && SameText(maker->target, name) &&
            (!Lives(maker->process) || IsOlderThanADay(file))) {
            Delete(folder + file.cFileName);
        }
    }
}

} // namespace kvarn
