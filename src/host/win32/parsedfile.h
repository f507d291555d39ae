// A file that is asked many times: it is read again when it has changed, and parsed again when its
// content has changed.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

#include "../../compat/win32/files.h"
#include "../../compat/win32/filestamp.h"
#include "../../compat/win32/hostfile.h"
#include "../../files/infile.h"

namespace kvarn {

// Parsed is made from the bytes of a file. One thread at a time may ask.
template <class Parsed> class ParsedFile {
  public:
    // What the file holds now; a missing one is empty. Null for a file that exists and cannot be
    // read.
    Parsed const* Load(std::string const& path) {
        std::optional<FileStamp> const stamp = StampOf(path); // before the reading: it may change
        if (stamp && stamp == m_stamp) {
            return &m_parsed;
        }
        std::optional<std::string> bytes = WholeFileIfThere(path.c_str());
        if (!bytes) {
            return nullptr;
        }
        if (*bytes != m_bytes) {
            Parsed parsed(*bytes);
            Remember(std::move(parsed), *std::move(bytes));
        }
        m_stamp = stamp;
        return &m_parsed;
    }
    // What was just written to the file.
    void Remember(Parsed parsed, std::string bytes) {
        m_stamp.reset();
        m_parsed = std::move(parsed);
        m_bytes = std::move(bytes);
    }

  private:
    // Nothing for a file that may change now and keep its stamp.
    static std::optional<FileStamp> StampOf(std::string const& path) {
        std::int64_t const now = NanosecondsNow();
        struct stat status {};
        bool const known = FileStatus(path.c_str(), status);
        FileStamp const stamp(status);
        return known && stamp.IsSettled(now) ? std::optional(stamp) : std::nullopt;
    }

    std::optional<FileStamp> m_stamp; // nothing: its bytes must be read to tell
    std::string m_bytes;
    Parsed m_parsed{std::string_view()};
};

} // namespace kvarn
