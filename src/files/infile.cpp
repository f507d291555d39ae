#include "infile.h"

#include <array>

#include "outfile.h"

namespace kvarn {

InFile::InFile(char const* path)
    : m_file(CreateFileA(path, GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                         FILE_ATTRIBUTE_NORMAL, nullptr)) {
    DWORD const error = IsOpen() ? 0 : GetLastError();
    m_missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

InFile::~InFile() {
    if (IsOpen()) {
        CloseHandle(m_file);
    }
}

std::optional<std::string_view> InFile::Read(char* buffer, std::size_t size) {
    DWORD count = 0;
    bool const read = ReadFile(m_file, buffer, static_cast<DWORD>(size), &count, nullptr) != FALSE;
    return read ? std::optional(std::string_view(buffer, count)) : std::nullopt;
}

bool InFile::ToBeginning() {
    LARGE_INTEGER const beginning{};
    return SetFilePointerEx(m_file, beginning, nullptr, FILE_BEGIN) != FALSE;
}

std::optional<BY_HANDLE_FILE_INFORMATION> InFile::Status() const {
    BY_HANDLE_FILE_INFORMATION status{};
    bool const known = IsOpen() && GetFileInformationByHandle(m_file, &status) != FALSE;
    return known ? std::optional(status) : std::nullopt;
}

std::optional<std::string> WholeFile(char const* path) {
    InFile file(path);
    if (!file.IsOpen()) {
        return std::nullopt;
    }
    std::string text;
    std::array<char, 4096> buffer{};
    auto part = file.Read(buffer.data(), buffer.size());
    for (; part && !part->empty(); part = file.Read(buffer.data(), buffer.size())) {
        text.append(*part);
    }
    return part ? std::optional(std::move(text)) : std::nullopt;
}

} // namespace kvarn
