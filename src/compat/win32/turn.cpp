#include "turn.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace kvarn {
namespace {

// The folder that really holds the file: others may use another path to it.
std::filesystem::path FolderOf(std::filesystem::path const& file) {
    std::error_code unknown;
    std::filesystem::path const real = std::filesystem::weakly_canonical(file, unknown);
    return (unknown ? file : real).parent_path();
}

} // namespace

Turn::Turn(std::filesystem::path const& file)
    : m_folder(open(FolderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    constexpr int attempts = 500; // many programs may be waiting
    constexpr int pause = 10'000; // microseconds
    for (int i = 0; m_folder >= 0; ++i) {
        m_taken = flock(m_folder, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
        if (m_taken || i == attempts) {
            return;
        }
        usleep(pause);
    }
}

Turn::~Turn() {
    if (m_folder >= 0) {
        close(m_folder);
    }
}

} // namespace kvarn
