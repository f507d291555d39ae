// Text files, read and written line by line as the runtime library's text mode does.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "../compat/calls.h"

namespace kvarn {

// Lines of a file or of a text. CR LF ends a line, and so does LF; a lone CR stays. 0x1A ends the
// file wherever it stands. A last line without a line end is a line. A zero cuts its line; reading
// goes on with the next. A byte-order mark is data.
class TextReader {
  public:
    // Opens the file for reading.
    explicit TextReader(char const* path);
    // Reads a text in memory, which the caller keeps.
    explicit TextReader(std::string_view text);
    ~TextReader();
    TextReader(TextReader const&) = delete;
    TextReader& operator=(TextReader const&) = delete;

    bool IsOpen() const { return m_open; }
    // True when there is no such file, or no such folder: it is not open then.
    bool Missing() const { return m_missing; }
    // True when a read failed, or memory is out: what was delivered is then not all of the file.
    bool Failed() const { return m_failed; }

    // The next line without its end, valid until the next call; false at the end of the file and
    // when a read failed.
    bool ReadLine(std::string_view& line);
    // The same, at most size - 1 characters and a zero (size: 2 or more); the rest of a longer line
    // comes with the next call. The line end takes a character's room: after a piece that is full a
    // line that ends there is followed by an empty piece, as the runtime library's reading has it.
    bool ReadLine(char* line, std::size_t size);

    // Appends all that has not been read yet, line ends as they are, for those who read a text
    // twice. False when a read failed.
    bool ReadRest(std::string& text);

  private:
    bool Refill();
    bool Keep(std::string& text, std::string_view part);
    bool RawLine(std::string_view& line);

    HANDLE m_file = INVALID_HANDLE_VALUE;
    bool m_open = false;
    bool m_missing = false;
    bool m_failed = false;
    bool m_ended = false;
    std::unique_ptr<char[]> m_buffer;
    std::string_view m_window; // read and not yet delivered
    std::string m_long;        // a line that spans buffers
    std::string_view m_rest;   // of a line that was longer than the caller's buffer
    bool m_more = false;
    bool m_lineEnd = false; // the last line had one
};

// A line that ends a section or a file, in the many that are divided so.
inline bool IsStarLine(std::string_view line) {
    return line.starts_with('*');
}

// Reads on past so many star lines, or to the end of a file that has fewer. False when a read
// failed, or there were fewer.
bool SkipStarLines(TextReader& file, int count);

// A text file that is made anew, or emptied, and written text by text. Each text is in the file
// when the call returns: a program that dies in the middle has lost nothing of what it wrote.
class TextWriter {
  public:
    explicit TextWriter(char const* path);
    ~TextWriter() { Close(); }
    TextWriter(TextWriter const&) = delete;
    TextWriter& operator=(TextWriter const&) = delete;

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    // LF becomes CR LF. False when it could not be written whole; nothing more is then written.
    bool Write(std::string_view text);
    bool Close();

  private:
    HANDLE m_file;
    bool m_failed = false;
};

// Appends a text as text mode writes it: each LF becomes CR LF.
void AppendTextMode(std::string& out, std::string_view text);
std::string InTextMode(std::string_view text);

} // namespace kvarn
