// A search of a folder by a pattern, closed with its scope.
#pragma once

#include "../compat/calls.h"

namespace kvarn {

class FileSearch {
  public:
    // Finds the first entry that matches the last part of the path, as FindFirstFile takes it.
    explicit FileSearch(char const* pattern);
    ~FileSearch();
    FileSearch(FileSearch const&) = delete;
    FileSearch& operator=(FileSearch const&) = delete;

    bool Found() const { return m_found; }
    WIN32_FIND_DATAA const& Entry() const { return m_entry; }
    void Next();
    // True when the search ended because the folder cannot be read: there may be more in it.
    bool Failed() const { return m_failed; }

  private:
    void Take(bool found);

    WIN32_FIND_DATAA m_entry{};
    HANDLE m_search;
    bool m_found = false;
    bool m_failed = false;
};

} // namespace kvarn
