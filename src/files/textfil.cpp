#include "textfil.h"

#include <algorithm>
#include <new>
#include <utility>

namespace kvarn {

bool TextReader::Open(char const* path) {
    m_file = InFile(path);
    m_ended = !m_file.IsOpen();
    return !m_ended;
}

std::string_view TextReader::Refill() {
    if (m_ended) {
        return {};
    }
    if (m_buffer == nullptr) {
        MakeBuffer();
    }
    auto const read =
        m_buffer != nullptr ? m_file.Read(m_buffer.get(), m_bufferSize) : std::nullopt;
    if (!read) {
        Fail();
        return {};
    }
    std::string_view const text = read->substr(0, read->find(endOfText));
    bool const last = m_sizeIsKnown && read->size() < m_bufferSize;
    m_ended = last || text.empty() || text.size() < read->size();
    return text;
}

// A settings file is read by one call, which gives the content of one moment.
void TextReader::MakeBuffer() {
    constexpr std::uint64_t unknown = 16384;
    constexpr std::uint64_t most = 1U << 20U;
    std::uint64_t const size = m_file.Size();
    m_sizeIsKnown = size > 0;
    m_bufferSize = static_cast<std::size_t>(m_sizeIsKnown ? std::min(size + 1, most) : unknown);
    m_buffer.reset(new (std::nothrow) char[m_bufferSize]); // not cleared first
}

bool TextReader::ReadRest(std::string& text) {
    constexpr std::uint64_t most = 1U << 30U;
    try {
        text.reserve(text.size() + static_cast<std::size_t>(std::min(m_file.Size(), most)));
    } catch (std::bad_alloc const&) {
        // The text may still fit: it may end before the file does.
    }
    return LineReader::ReadRest(text);
}

TextWriter::TextWriter(char const* path, Writes writes)
    : m_file(CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                         writes == Writes::anew   ? CREATE_ALWAYS
                         : writes == Writes::over ? TRUNCATE_EXISTING
                                                  : OPEN_EXISTING,
                         FILE_ATTRIBUTE_NORMAL, nullptr)) {
    LARGE_INTEGER const none{};
    m_failed = writes == Writes::atEnd && IsOpen() &&
               SetFilePointerEx(m_file, none, nullptr, FILE_END) == FALSE;
}

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
    bool const closed = file == INVALID_HANDLE_VALUE || CloseHandle(file) != FALSE;
    return closed && !m_failed;
}

} // namespace kvarn
