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
    ~InFile();
    InFile(InFile const&) = delete;
    InFile& operator=(InFile const&) = delete;

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    // True when there is no such file, or no such folder: it is not open then.
    bool Missing() const { return m_missing; }

    // The next bytes, in the buffer; empty at the end, and nothing when they cannot be read.
    std::optional<std::string_view> Read(char* buffer, std::size_t size);
    bool ToBeginning();
    // Nothing when the file cannot be looked at.
    std::optional<BY_HANDLE_FILE_INFORMATION> Status() const;

  private:
    HANDLE m_file;
    bool m_missing = false;
};

// A file's whole content. Nothing when it cannot be opened or read to its end; GetLastError tells
// why it could not be opened.
std::optional<std::string> WholeFile(char const* path);

} // namespace kvarn
