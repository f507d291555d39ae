// Text files, read and written as the runtime library's text mode does.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "../text/lines.h"
#include "infile.h"

namespace kvarn {

// The lines of a file. One that is not open has none, and has not failed.
class TextReader : public LineReader {
  public:
    // Not open yet.
    TextReader() = default;
    explicit TextReader(char const* path) { Open(path); }

    // Opens a file, in place of one that could not be opened.
    bool Open(char const* path);
    bool IsOpen() const { return m_file.IsOpen(); }
    bool Missing() const { return m_file.Missing(); }
    // It is there, and cannot be opened.
    bool Refused() const { return !IsOpen() && !Missing(); }
    // What was delivered is not all of the file; one that is missing has nothing in it.
    bool Incomplete() const { return Refused() || Failed(); }

    // As LineReader's, with room for all of the file made at once.
    bool ReadRest(std::string& text);

  private:
    std::string_view Refill() override;
    void MakeBuffer();

    InFile m_file;
    bool m_ended = true;
    bool m_sizeIsKnown = false;
    std::size_t m_bufferSize = 0;
    std::unique_ptr<char[]> m_buffer;
};

enum class Writes {
    anew, // a file that is made, or emptied
    over, // a file that exists, and is emptied
    atEnd // of a file that exists
};

// A text file that is written text by text. Each text is in the file when the call returns: a
// program that dies in the middle has lost nothing of what it wrote.
class TextWriter {
  public:
    explicit TextWriter(char const* path, Writes writes = Writes::anew);
    ~TextWriter() { Close(); }
    TextWriter(TextWriter const&) = delete;
    TextWriter& operator=(TextWriter const&) = delete;

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    // LF becomes CR LF. False when it could not be written whole; nothing more is then written.
    bool Write(std::string_view text);
    // False when the closing failed, or a write before it.
    bool Close();

  private:
    HANDLE m_file;
    bool m_failed = false;
};

} // namespace kvarn
