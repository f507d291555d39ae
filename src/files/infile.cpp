#include "infile.h"

#include <algorithm>
#include <new>
#include <utility>

#include "existence.h"
#include "outfile.h"
#include "turns.h"

namespace kvarn {

InFile::InFile(char const* path)
    : m_file(CreateFileA(path, GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                         FILE_ATTRIBUTE_NORMAL, nullptr)) {
    m_missing = !IsOpen() && MeansMissing(GetLastError());
}

InFile::InFile(InFile&& other) noexcept
    : m_file(std::exchange(other.m_file, INVALID_HANDLE_VALUE)), m_missing(other.m_missing) {}

InFile& InFile::operator=(InFile&& other) noexcept {
    std::swap(m_file, other.m_file);
    m_missing = other.m_missing;
    return *this;
}

InFile::~InFile() {
    if (IsOpen()) {
        CloseHandle(m_file);
    }
}

std::optional<std::string_view> InFile::Read(char* buffer, std::size_t size) {
    DWORD count = 0;
    auto const read = [&] {
        return ReadFile(m_file, buffer, static_cast<DWORD>(size), &count, nullptr) != FALSE;
    };
    auto const isWritten = [](DWORD error) { return error == ERROR_LOCK_VIOLATION; };
    return InTurn(turnAttempts, read, isWritten) ? std::optional(std::string_view(buffer, count))
                                                 : std::nullopt;
}

std::uint64_t InFile::Size() const {
    LARGE_INTEGER size{};
    return GetFileSizeEx(m_file, &size) != FALSE ? static_cast<std::uint64_t>(size.QuadPart) : 0;
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

namespace {

std::optional<std::string> ReadAll(InFile& file) {
    constexpr std::size_t leastRoom = 4096; // for what tells no size
    constexpr std::size_t most = 1U << 30U; // ReadFile's count has 32 bits
    std::string text;
    std::size_t length = 0;
    std::uint64_t const size = file.Size();
    for (std::uint64_t room = size + 1;; room = text.size()) {
        std::size_t const asked = std::clamp<std::uint64_t>(room, leastRoom, most);
        text.resize(length + asked);
        auto const part = file.Read(text.data() + length, asked);
        length += part ? part->size() : 0;
        bool const last = !part || part->empty() || (size > 0 && part->size() < asked);
        if (last) {
            text.resize(length);
            return part ? std::optional(std::move(text)) : std::nullopt;
        }
    }
}

std::optional<std::string> WholeFile(char const* path, bool mayBeMissing) {
    InFile file(path);
    if (!file.IsOpen()) {
        return mayBeMissing && file.Missing() ? std::optional(std::string()) : std::nullopt;
    }
    try {
        return ReadAll(file);
    } catch (std::bad_alloc const&) {
        return std::nullopt;
    }
}

} // namespace

std::optional<std::string> WholeFile(char const* path) {
    return WholeFile(path, false);
}

std::optional<std::string> WholeFileIfThere(char const* path) {
    return WholeFile(path, true);
}

} // namespace kvarn
