#include "textfil.h"

#include <utility>

namespace kvarn {

TextReader::TextReader(char const* path) : m_file(path), m_ended(!m_file.IsOpen()) {}

std::string_view TextReader::Refill() {
    constexpr std::size_t bufferSize = 16384;
    if (m_ended) {
        return {};
    }
    if (m_buffer == nullptr) {
        m_buffer.reset(new char[bufferSize]); // not cleared first
    }
    auto const read = m_file.Read(m_buffer.get(), bufferSize);
    if (!read) {
        Fail();
        return {};
    }
    std::string_view const text = read->substr(0, read->find(endOfText));
    m_ended = text.empty() || text.size() < read->size();
    return text;
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

} // namespace kvarn
