// A disk without room, on hosts that can pretend one.
#pragma once

#if !defined(_WIN32)

#include <csignal>
#include <sys/resource.h>

// No file can grow beyond a size, as on a full disk.
class FullDisk {
  public:
    explicit FullDisk(rlim_t size) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit const now = {size, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &now);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(FullDisk const&) = delete;
    FullDisk& operator=(FullDisk const&) = delete;

  private:
    rlimit m_before{};
};

#endif
