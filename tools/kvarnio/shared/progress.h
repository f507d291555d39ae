// How far a long run has come, on the user's terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace kvarnio {

// A line on standard error that is written over as the run goes on and is gone at its end. Only
// where standard error is a terminal and standard output is not: there the answers themselves tell.
// Nothing is shown of a run that ends at once.
class Progress {
  public:
    // what: the things that are counted; total: how much work there is, 0 where that is not known;
    // between: how many things are done between two looks at the clock, which take time too.
    Progress(std::string what, std::uintmax_t total, std::uintmax_t between);
    ~Progress();
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

    // One more is done, and so much of the work.
    void Advance(std::size_t work);

  private:
    using Clock = std::chrono::steady_clock;

    void Show();

    std::string m_what;
    bool m_isWanted;
    std::uintmax_t m_total;
    std::uintmax_t m_between;
    std::uintmax_t m_done = 0;
    std::uintmax_t m_count = 0;
    std::size_t m_width = 0; // of what is shown
    Clock::time_point m_next;
};

} // namespace kvarnio
