// A file that is open for reading, closed with its scope.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "../compat/calls.h"

namespace kvarn {

class InFile {
  public:
    // Nobody is kept from writing, replacing or deleting the file. GetLastError tells why it is not
    // open.
    explicit InFile(char const* path);
    // None: it is missing.
    InFile() = default;
    InFile(InFile&& other) noexcept;
    InFile& operator=(InFile&& other) noexcept;
    ~InFile();

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    // True when there is no such file, or no such folder: it is not open then.
    bool Missing() const { return m_missing; }

    // The next bytes, in the buffer; empty at the end, and nothing when they cannot be read. Waits
    // for a program that is writing the file in place: what one call reads is of one writing.
    std::optional<std::string_view> Read(char* buffer, std::size_t size);
    // In bytes; 0 also for what is no ordinary file, whose size is not known.
    std::uint64_t Size() const;
    bool ToBeginning();
    // Nothing when the file cannot be looked at.
    std::optional<BY_HANDLE_FILE_INFORMATION> Status() const;

  private:
    HANDLE m_file = INVALID_HANDLE_VALUE;
    bool m_missing = true;
};

// A file's whole content. Nothing when it cannot be opened or read to its end, or memory is short.
std::optional<std::string> WholeFile(char const* path);
// The same; empty for a file that is missing.
std::optional<std::string> WholeFileIfThere(char const* path);

} // namespace kvarn
