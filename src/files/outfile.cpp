#include "outfile.h"

#include <cstddef>
#include <utility>

#include "turns.h"

namespace kvarn {

OutFile::OutFile(char const* path, DWORD disposition, DWORD share)
    : m_file(CreateFileA(path, GENERIC_WRITE, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                         nullptr)) {}

OutFile::OutFile(OutFile&& other) noexcept
    : m_file(std::exchange(other.m_file, INVALID_HANDLE_VALUE)) {}

OutFile& OutFile::operator=(OutFile&& other) noexcept {
    std::swap(m_file, other.m_file);
    return *this;
}

std::string OutFile::RealPath() const {
    constexpr DWORD usualForm = 0; // with a drive letter
    std::string path(MAX_PATH, '\0');
    auto const length = [&] {
        return GetFinalPathNameByHandleA(m_file, path.data(), static_cast<DWORD>(path.size()),
                                         usualForm);
    };
    DWORD size = length();
    if (size >= path.size()) {
        path.resize(std::size_t{size} + 1);
        size = length();
    }
    path.resize(size < path.size() ? size : 0);
    return path;
}

bool OutFile::LockOut(int attempts) {
    auto const lock = [&] {
        OVERLAPPED whole{};
        return LockFileEx(m_file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD,
                          MAXDWORD, &whole) != FALSE;
    };
    auto const isRead = [](DWORD error) { return error == ERROR_LOCK_VIOLATION; };
    return InTurn(attempts, lock, isRead) || !isRead(GetLastError());
}

bool OutFile::Reserve(std::uint64_t size) {
    LARGE_INTEGER before{};
    if (!IsOrdinary() || GetFileSizeEx(m_file, &before) == FALSE ||
        static_cast<std::uint64_t>(before.QuadPart) >= size) {
        return true;
    }
    FILE_ALLOCATION_INFO room{};
    room.AllocationSize.QuadPart = static_cast<std::int64_t>(size);
    if (SetFileInformationByHandle(m_file, FileAllocationInfo, &room, sizeof room) != FALSE) {
        return true;
    }
    if (GetLastError() == ERROR_DISK_FULL) {
        return false;
    }
    // A host that reserves for the file's own size alone: readers are locked out there.
    bool const reserved = EndAt(room.AllocationSize.QuadPart);
    if (!reserved) {
        EndAt(before.QuadPart); // the old content stays as it was
    }
    return MoveTo(0) && reserved;
}

bool OutFile::Write(std::string_view content) {
    while (!content.empty()) {
        constexpr std::size_t most = 1U << 30U; // WriteFile's count has 32 bits
        std::string_view const part = content.substr(0, most);
        DWORD written = 0;
        if (WriteFile(m_file, part.data(), static_cast<DWORD>(part.size()), &written, nullptr) ==
                FALSE ||
            written != part.size()) {
            return false;
        }
        content.remove_prefix(part.size());
    }
    return true;
}

bool OutFile::Finish() {
    bool const flushed = Flush();
    return Close() && flushed;
}

bool OutFile::MoveTo(std::int64_t position) {
    LARGE_INTEGER distance{};
    distance.QuadPart = position;
    return SetFilePointerEx(m_file, distance, nullptr, FILE_BEGIN) != FALSE;
}

bool OutFile::Close() {
    HANDLE const file = std::exchange(m_file, INVALID_HANDLE_VALUE);
    return file == INVALID_HANDLE_VALUE || CloseHandle(file) != FALSE;
}

} // namespace kvarn
