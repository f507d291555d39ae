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
    explicit TextReader(char const* path);

    bool IsOpen() const { return m_file.IsOpen(); }
    bool Missing() const { return m_file.Missing(); }

    using LineReader::ReadRest;

  private:
    std::string_view Refill() override;

    InFile m_file;
    bool m_ended;
    std::unique_ptr<char[]> m_buffer;
};

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

} // namespace kvarn
