#include "textfil.h"

#include <algorithm>
#include <new>
#include <utility>

#include "../text/text.h"

namespace kvarn {
namespace {

constexpr std::size_t bufferSize = 16384;
constexpr char endOfFile = 0x1A;

} // namespace

TextReader::TextReader(char const* path)
    : m_file(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                         nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)),
      m_open(m_file != INVALID_HANDLE_VALUE), m_ended(!m_open) {
    DWORD const error = m_open ? 0 : GetLastError();
    m_missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

TextReader::TextReader(std::string_view text)
    : m_open(true), m_window(text.substr(0, text.find(endOfFile))) {}

TextReader::~TextReader() {
    if (m_file != INVALID_HANDLE_VALUE) {
        CloseHandle(m_file);
    }
}

bool TextReader::Refill() {
    if (m_ended || m_file == INVALID_HANDLE_VALUE) {
        return false;
    }
    if (m_buffer == nullptr) {
        m_buffer.reset(new char[bufferSize]); // not cleared first
    }
    DWORD count = 0;
    if (ReadFile(m_file, m_buffer.get(), bufferSize, &count, nullptr) == FALSE) {
        m_failed = m_ended = true;
        return false;
    }
    std::string_view const read(m_buffer.get(), count);
    std::size_t const end = read.find(endOfFile);
    m_ended = count == 0 || end != std::string_view::npos;
    m_window = read.substr(0, end);
    return !m_window.empty();
}

// A text that is too long for the memory is one that cannot be read.
bool TextReader::Keep(std::string& text, std::string_view part) {
    try {
        text.append(part);
    } catch (std::bad_alloc const&) {
        m_failed = m_ended = true;
        m_window = {};
    }
    return !m_failed;
}

// The next line up to its LF, or the last one without; the CR before the LF is taken off.
bool TextReader::RawLine(std::string_view& line) {
    m_long.clear();
    m_lineEnd = false;
    bool any = false;
    while (!m_window.empty() || Refill()) {
        std::size_t const feed = m_window.find('\n');
        std::string_view const part = m_window.substr(0, feed);
        any = true;
        if ((feed == std::string_view::npos || !m_long.empty()) && !Keep(m_long, part)) {
            break;
        }
        if (feed == std::string_view::npos) {
            m_window = {};
            continue;
        }
        m_window.remove_prefix(feed + 1);
        m_lineEnd = true;
        line = m_long.empty() ? part : m_long;
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);
        return true;
    }
    line = m_long;
    return any && !m_failed;
}

bool TextReader::ReadLine(std::string_view& line) {
    if (m_more) { // the rest of a line that the other form began
        line = m_rest;
        m_more = false;
        return true;
    }
    if (!RawLine(line)) {
        return false;
    }
    line = line.substr(0, line.find('\0'));
    return true;
}

bool TextReader::ReadLine(char* line, std::size_t size) {
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

bool TextReader::ReadRest(std::string& text) {
    while ((!m_window.empty() || Refill()) && Keep(text, m_window)) {
        m_window = {};
    }
    return !m_failed;
}

bool SkipStarLines(TextReader& file, int count) {
    std::string_view line;
    while (count > 0 && file.ReadLine(line)) {
        count -= IsStarLine(line) ? 1 : 0;
    }
    return count == 0;
}

TextWriter::TextWriter(char const* path)
    : m_file(CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                         FILE_ATTRIBUTE_NORMAL, nullptr)) {}

bool TextWriter::Write(std::string_view text) {
    std::string const lines = InTextMode(text);
    DWORD written = 0;
    m_failed = m_failed ||
               WriteFile(m_file, lines.data(), static_cast<DWORD>(lines.size()), &written,
                         nullptr) == FALSE ||
               written != lines.size();
    return !m_failed;
}

bool TextWriter::Close() {
    HANDLE const file = std::exchange(m_file, INVALID_HANDLE_VALUE);
    return file == INVALID_HANDLE_VALUE || CloseHandle(file) != FALSE;
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
