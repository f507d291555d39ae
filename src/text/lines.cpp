#include "lines.h"

#include <algorithm>
#include <new>

#include "text.h"

namespace kvarn {

bool LineReader::More() {
    if (m_window.empty() && !m_whole && !m_failed) {
        m_window = Refill();
        m_hasZeros = m_hasZeros || HasZero(m_window);
    }
    return !m_window.empty();
}

// A text that is too long for the memory is one that cannot be read.
bool LineReader::Keep(std::string& text, std::string_view part) {
    try {
        text.append(part);
    } catch (std::bad_alloc const&) {
        m_failed = true;
        m_window = {};
    }
    return !m_failed;
}

// Takes the text up to the next LF off the window; without one, all of it.
std::string_view LineReader::TakePart() {
    std::size_t const feed = m_window.find('\n');
    std::string_view const part = m_window.substr(0, feed);
    m_lineEnd = feed != std::string_view::npos;
    m_window.remove_prefix(m_lineEnd ? feed + 1 : m_window.size());
    return part;
}

// The next line up to its LF, or the last one without; the CR before the LF is taken off.
bool LineReader::RawLine(std::string_view& line) {
    if (!More()) {
        return false;
    }
    line = TakePart();
    if (!m_lineEnd && !m_whole) { // it spans windows
        m_long.clear();
        bool kept = Keep(m_long, line);
        while (kept && !m_lineEnd && More()) {
            kept = Keep(m_long, TakePart());
        }
        line = m_long;
    }
    line.remove_suffix(m_lineEnd && line.ends_with('\r') ? 1 : 0);
    return !m_failed;
}

bool LineReader::ReadLine(std::string_view& line) {
    if (m_more) { // the rest of a line that the other form began
        line = m_rest;
        m_more = false;
        return true;
    }
    if (!RawLine(line)) {
        return false;
    }
    ++m_number;
    std::size_t const zero = m_hasZeros ? line.find('\0') : std::string_view::npos;
    bool const cut = zero != std::string_view::npos;
    m_afterZero = cut ? std::optional(line.substr(zero + 1)) : std::nullopt;
    line = line.substr(0, zero);
    return true;
}

bool LineReader::ReadLine(TextLine& line) {
    bool const read = ReadLine(line.text);
    line.number = m_number;
    line.afterZero = m_afterZero;
    return read;
}

bool LineReader::ReadLine(char* line, std::size_t size) {
    if (!m_more && !ReadLine(m_rest)) {
        return false;
    }
    std::size_t const room = size - 1;
    bool const endFits = m_rest.size() < room;
    CopyText(line, size, m_rest);
    m_rest.remove_prefix(std::min(m_rest.size(), room));
    m_more = !m_rest.empty() || (m_lineEnd && !endFits);
    return true;
}

bool LineReader::ReadRest(std::string& text) {
    while (More() && Keep(text, m_window)) {
        m_window = {};
    }
    return !m_failed;
}

bool SkipStarLines(LineReader& reader, int count) {
    std::string_view line;
    while (count > 0 && reader.ReadLine(line)) {
        count -= IsStarLine(line) ? 1 : 0;
    }
    return count == 0;
}

void AppendTextMode(std::string& out, std::string_view text) {
    while (true) {
        std::size_t const feed = text.find('\n');
        out.append(text.substr(0, feed));
        if (feed == std::string_view::npos) {
            return;
        }
        out.append("\r\n");
        text.remove_prefix(feed + 1);
    }
}

std::string InTextMode(std::string_view text) {
    std::string out;
    AppendTextMode(out, text);
    return out;
}

} // namespace kvarn
