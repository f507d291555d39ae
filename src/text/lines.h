// Text by lines, as the runtime library's text mode reads and writes it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kvarn {

// Ends a text wherever it comes, as the old systems wrote it.
inline constexpr char endOfText = 0x1A;

struct TextLine {
    std::size_t number = 0; // counted from 1
    std::string_view text{};
    std::optional<std::string_view> afterZero{}; // what a zero cut off
};

// The lines of a text. CR LF ends a line, and so does LF; a lone CR stays. The character 0x1A ends
// the text. A last line without a line end is a line. A zero cuts its line; reading goes on with
// the next. A byte-order mark is data.
class LineReader {
  public:
    // Of a text in memory, which the caller keeps.
    explicit LineReader(std::string_view text)
        : m_window(text.substr(0, text.find(endOfText))), m_whole(true),
          m_hasZeros(HasZero(m_window)) {}
    virtual ~LineReader() = default;
    LineReader(LineReader const&) = delete;
    LineReader& operator=(LineReader const&) = delete;

    // True when a read failed, or memory is out: what was delivered is then not all of the text.
    bool Failed() const { return m_failed; }

    // The next line without its end, valid until the next call (of a text in memory, as long as the
    // text); false at the end of the text and when a read failed.
    bool ReadLine(std::string_view& line);
    // The same, with its number and what a zero cut off.
    bool ReadLine(TextLine& line);
    // The line alone, at most size - 1 characters and a zero (size: 2 or more); the rest of a
    // longer line comes with the next call. The line end takes a character's room: after a piece
    // that is full a line that ends there is followed by an empty piece, as the runtime library's
    // reading has it.
    bool ReadLine(char* line, std::size_t size);
    // The next line by its form, without a search for its end. `take` takes it off the front of a
    // text, line end and all, or returns false and leaves the text: the line is then not read.
    template <class Take> bool TakeLine(Take take) {
        bool const taken = !m_more && take(m_window);
        m_number += taken ? 1 : 0;
        return taken;
    }

  protected:
    LineReader() = default;

    // More of the text, with its line ends; empty at its end, and after Fail.
    virtual std::string_view Refill() { return {}; }
    void Fail() { m_failed = true; }

    // Appends all that has not been read yet, line ends as they are, for those who read a text
    // twice. False when a read failed.
    bool ReadRest(std::string& text);

  private:
    static bool HasZero(std::string_view text) { return text.find('\0') != text.npos; }
    bool More();
    bool Keep(std::string& text, std::string_view part);
    std::string_view TakePart();
    bool RawLine(std::string_view& line);

    std::string_view m_window; // read and not yet delivered
    bool m_whole = false;      // it is the rest of the text
    bool m_hasZeros = false;   // in what has been read; most texts have none
    std::string m_long;        // a line that spans windows
    std::string_view m_rest;   // of a line that was longer than the caller's buffer
    std::size_t m_number = 0;
    std::optional<std::string_view> m_afterZero;
    bool m_failed = false;
    bool m_more = false;
    bool m_lineEnd = false; // the last line had one
};

// A line that ends a section or a file, in the many that are divided so.
inline bool IsStarLine(std::string_view line) {
    return line.starts_with('*');
}

// Reads on past so many star lines, or to the end of a text that has fewer. False when a read
// failed, or there were fewer.
bool SkipStarLines(LineReader& reader, int count);

// Appends a text as text mode writes it: each LF becomes CR LF.
void AppendTextMode(std::string& out, std::string_view text);
std::string InTextMode(std::string_view text);

} // namespace kvarn
