#include "droppedlines.h"

#include <utility>

#include <compat/codepage.h>

#include "textlines.h"

namespace kvarnio {
namespace {

class Collector {
  public:
    explicit Collector(std::string_view key) : m_key(key) {}

    void Look(TextLine const& line) {
        LookAtText(line.number, line.text);
        if (line.afterZero) {
            Drop(line.number, "text after a zero byte", *line.afterZero);
        }
    }

    // What stands after the end of the text is one loss, however many lines it has.
    void LookBeyondEnd(TextLine const& line) {
        Drop(line.number, "everything after the end-of-file character 0x1A", line.text);
    }

    DroppedLines Take() { return std::move(m_dropped); }

  private:
    void LookAtText(std::size_t number, std::string_view text) {
        std::size_t const equals = text.find('=');
        if (text.find_first_not_of(" \t") == std::string_view::npos) {
            ++m_dropped.blank;
        } else if (equals == std::string_view::npos) {
            Drop(number, "no \"=\"", text);
        } else if (equals == 0) {
            Drop(number, "no key before \"=\"", text);
        } else if (equals > longestKey) {
            Drop(number, "key over 39 characters", text);
        } else if (text.size() - equals - 1 > longestValue) {
            Drop(number, "value over 258 characters", text);
        } else if (!IsTheKeysLine(text.substr(0, equals)) && equals + 1 == text.size()) {
            Drop(number, "no value", text);
        }
    }

    // The first line of the key is the one that is written.
    bool IsTheKeysLine(std::string_view key) {
        bool const first = !m_keySeen && kvarn::CompareNoCase1252(key, m_key) == 0;
        m_keySeen = m_keySeen || first;
        return first;
    }

    void Drop(std::size_t number, char const* why, std::string_view text) {
        m_dropped.lines.push_back({number, why, std::string(text)});
    }

    std::string_view m_key;
    bool m_keySeen = false;
    DroppedLines m_dropped;
};

} // namespace

DroppedLines LinesDroppedBy(std::string_view key, std::string_view content) {
    Collector collector(key);
    TextLines const text = SplitLines(content);
    for (TextLine const& line : text.lines) {
        collector.Look(line);
    }
    if (text.beyondEnd) {
        collector.LookBeyondEnd(*text.beyondEnd);
    }
    return collector.Take();
}

} // namespace kvarnio
