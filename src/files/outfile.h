// A file that is open for writing and closed with its scope, for rewriting and copying.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "../compat/calls.h"

namespace kvarn {

// Nobody is kept out: another program that rewrites the file replaces it in one step as well.
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// One writer at a time, where a file is changed in place.
constexpr DWORD shareOneWriter = FILE_SHARE_READ | FILE_SHARE_DELETE;

class OutFile {
  public:
    OutFile() = default;
    // CreateFileA's disposition and share mode; GetLastError tells why it is not open.
    OutFile(char const* path, DWORD disposition, DWORD share = shareAll);
    OutFile(OutFile&& other) noexcept;
    OutFile& operator=(OutFile&& other) noexcept;
    ~OutFile() { Close(); }

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    bool IsOrdinary() const { return GetFileType(m_file) == FILE_TYPE_DISK; }

    // The path without links; empty when the system does not tell it.
    std::string RealPath() const;

    // Keeps readers out until the file is closed: whoever reads in the middle waits. False when
    // another program reads or writes it all the time; done too where the host has no such locks.
    bool LockOut(int attempts);
    // Makes room for a content of that size, so that a full disk shows before anything is
    // overwritten.
    bool Reserve(std::uint64_t size);
    bool ToBeginning() { return MoveTo(0); }
    bool Write(std::string_view content);
    // Ends the file at the present position.
    bool Cut() { return !IsOrdinary() || SetEndOfFile(m_file) != FALSE; }
    // Sets the time of the last change; later writing changes it again.
    bool SetTime(FILETIME const& written) {
        return SetFileTime(m_file, nullptr, nullptr, &written) != FALSE;
    }
    bool Flush() { return !IsOrdinary() || FlushFileBuffers(m_file) != FALSE; }
    bool Close();
    // Flushes the file to the disk and closes it.
    bool Finish();

  private:
    bool MoveTo(std::int64_t position);
    bool EndAt(std::int64_t size) { return MoveTo(size) && SetEndOfFile(m_file) != FALSE; }

    HANDLE m_file = INVALID_HANDLE_VALUE;
};

} // namespace kvarn
