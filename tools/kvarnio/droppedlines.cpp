#include "droppedlines.h"

#include <algorithm>
#include <utility>

#include <compat/codepage.h>

namespace kvarnio {
namespace {

constexpr char endOfFile = 0x1A;

// Takes the next line off the front of the content, without its end.
std::string_view TakeLine(std::string_view& content) {
    std::size_t const feed = content.find('\n');
    std::string_view line = content.substr(0, feed);
    if (feed == std::string_view::npos) {
        content = {};
        return line;
    }
    content.remove_prefix(feed + 1);
    line.remove_suffix(line.ends_with('\r') ? 1 : 0);
    return line;
}

class Collector {
  public:
    explicit Collector(std::string_view key) : m_key(key) {}

    void Look(std::string_view line) {
        ++m_number;
        std::size_t const zero = line.find('\0');
        LookAtText(line.substr(0, zero));
        if (zero != std::string_view::npos) {
            Drop("text after a zero byte", line.substr(zero + 1));
        }
    }

    // What stands after the end of the text is one loss, however many lines it has.
    void LookBeyondEnd(std::size_t number, std::string_view content) {
        std::size_t const first = content.find_first_not_of("\r\n \t\x1A");
        if (first != std::string_view::npos) {
            content.remove_prefix(first);
            m_number = number;
            Drop("everything after the end-of-file character 0x1A", TakeLine(content));
        }
    }

    DroppedLines Take() { return std::move(m_dropped); }

  private:
    void LookAtText(std::string_view text) {
        std::size_t const equals = text.find('=');
        if (text.find_first_not_of(" \t") == std::string_view::npos) {
            ++m_dropped.blank;
        } else if (equals == std::string_view::npos) {
            Drop("no \"=\"", text);
        } else if (equals == 0) {
            Drop("no key before \"=\"", text);
        } else if (equals > longestKey) {
            Drop("key over 39 characters", text);
        } else if (text.size() - equals - 1 > longestValue) {
            Drop("value over 258 characters", text);
        } else if (!IsTheKeysLine(text.substr(0, equals)) && equals + 1 == text.size()) {
            Drop("no value", text);
        }
    }

    // The first line of the key is the one that is written.
    bool IsTheKeysLine(std::string_view key) {
        bool const first = !m_keySeen && kvarn::CompareNoCase1252(key, m_key) == 0;
        m_keySeen = m_keySeen || first;
        return first;
    }

    void Drop(char const* why, std::string_view text) {
        m_dropped.lines.push_back({m_number, why, std::string(text)});
    }

    std::string_view m_key;
    bool m_keySeen = false;
    std::size_t m_number = 0;
    DroppedLines m_dropped;
};

} // namespace

DroppedLines LinesDroppedBy(std::string_view key, std::string_view content) {
    Collector collector(key);
    std::size_t const end = content.find(endOfFile);
    for (std::string_view rest = content.substr(0, end); !rest.empty();) {
        collector.Look(TakeLine(rest));
    }
    if (end != std::string_view::npos) {
        auto const linesBefore =
            std::count(content.begin(), content.begin() + static_cast<std::ptrdiff_t>(end), '\n');
        collector.LookBeyondEnd(static_cast<std::size_t>(linesBefore) + 1, content.substr(end + 1));
    }
    return collector.Take();
}

} // namespace kvarnio
