// The calls that this program makes of the host, to watch them and to let them fail, where the host
// is not Windows.
#pragma once

#if !defined(_WIN32)

#include <functional>
#include <string>
#include <vector>

struct HostCall {
    std::string name;
    std::string file; // its name without folders, as far as the call tells it
    unsigned mode;    // that a new file is made with
};

// While one of these lives, calls are written down; one for which the function gives an error
// (errno's number, not 0) fails with it instead of being made.
class HostCalls {
  public:
    using Faults = std::function<int(HostCall const&)>;

    explicit HostCalls(Faults faults = {});
    ~HostCalls();
    HostCalls(HostCalls const&) = delete;
    HostCalls& operator=(HostCalls const&) = delete;

    // "fsync a.par", one a line, of those with these names.
    std::string Made(std::vector<std::string> const& names) const;
    std::vector<HostCall> const& All() const { return m_calls; }
    int Take(HostCall call); // the error

  private:
    Faults m_faults;
    std::vector<HostCall> m_calls;
};

#endif
