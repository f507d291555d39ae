#include "filesearch.h"

#include "existence.h"

namespace kvarn {

FileSearch::FileSearch(char const* pattern) : m_search(FindFirstFileA(pattern, &m_entry)) {
    Take(m_search != INVALID_HANDLE_VALUE);
}

FileSearch::~FileSearch() {
    if (m_search != INVALID_HANDLE_VALUE) {
        FindClose(m_search);
    }
}

void FileSearch::Next() {
    Take(FindNextFileA(m_search, &m_entry) != FALSE);
}

void FileSearch::Take(bool found) {
    m_found = found;
    DWORD const error = found ? ERROR_SUCCESS : GetLastError();
    m_failed = !found && error != ERROR_NO_MORE_FILES && !MeansMissing(error);
}

} // namespace kvarn
