#include "progress.h"

#include <algorithm>
#include <iostream>

#include "platform.h"

namespace kvarnio {

Progress::Progress(std::string what, std::uintmax_t total, std::uintmax_t between)
    : m_what(std::move(what)), m_isWanted(ErrorsAloneAreOnTerminal()), m_total(total),
      m_between(between), m_next(Clock::now() + std::chrono::milliseconds(500)) {}

Progress::~Progress() {
    if (m_width > 0) {
        std::cerr << '\r' << std::string(m_width, ' ') << '\r' << std::flush;
    }
}

void Progress::Advance(std::size_t work) {
    m_done += work;
    ++m_count;
    if (m_isWanted && m_count % m_between == 0 && Clock::now() >= m_next) {
        Show();
        m_next = Clock::now() + std::chrono::milliseconds(100);
    }
}

void Progress::Show() {
    std::string line;
    if (m_total > 0) {
        constexpr std::uintmax_t length = 40;
        std::uintmax_t const done = std::min(m_done, m_total);
        auto const filled = static_cast<std::size_t>(length * done / m_total);
        std::string const percent = std::to_string(100 * done / m_total);
        line = '[' + std::string(filled, '#') + std::string(length - filled, '.') + "] " +
               std::string(3 - percent.size(), ' ') + percent + " %  ";
    }
    line += std::to_string(m_count) + ' ' + m_what;
    std::cerr << '\r' << line << std::flush;
    m_width = line.size();
}

} // namespace kvarnio
