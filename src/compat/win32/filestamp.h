// What tells an unchanged file or folder from a changed or another one.
#pragma once

#include <cstdint>
#include <ctime>
#include <sys/stat.h>

namespace kvarn {

inline std::int64_t Nanoseconds(timespec const& time) {
    return time.tv_sec * std::int64_t{1'000'000'000} + time.tv_nsec;
}

// 0 where the host has no clock.
inline std::int64_t NanosecondsNow() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return Nanoseconds(now);
}

// The time is that of the last change of any kind (st_ctim), which no program can set back.
class FileStamp {
  public:
    explicit FileStamp(struct stat const& status)
        : m_device(status.st_dev), m_number(status.st_ino), m_size(status.st_size),
          m_changed(Nanoseconds(status.st_ctim)) {}

    bool operator==(FileStamp const&) const = default;
    bool IsOfSameFile(FileStamp const& other) const {
        return m_device == other.m_device && m_number == other.m_number;
    }
    // Whether a change after this moment gets another time. The coarsest file systems count in
    // steps of two seconds; one that counts below the millisecond takes the time of the kernel's
    // clock, whose steps are 10 ms at most.
    bool IsSettled(std::int64_t moment) const {
        bool const fine = m_changed % 1'000'000 != 0;
        std::int64_t const step = fine ? 10'000'000 : 2'000'000'000;
        return moment - m_changed > 2 * step;
    }

  private:
    dev_t m_device;
    ino_t m_number;
    off_t m_size;
    std::int64_t m_changed;
};

} // namespace kvarn
