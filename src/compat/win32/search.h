// The search of a folder, and the times of files, by the Windows calls that the library uses, for
// hosts that are not Windows.
#pragma once

#include "files.h"
#include "types.h"

struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};

struct WIN32_FIND_DATAA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime; // not filled
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    char cFileName[MAX_PATH];
    char cAlternateFileName[14]; // empty: there are no short names
};

constexpr DWORD ERROR_NO_MORE_FILES = 18;

// Returns "." and "..", then the entries in the order of NTFS, by their names in capitals. Leaves
// out entries whose names have letters outside code page 1252.
//
// The wildcards of the pattern's last part are those that Windows documents for
// FsRtlIsNameInExpression, after the translation that FindFirstFile makes: blanks and dots at its
// end are dropped; "*.*" matches every name, "?" also the end of a part, "*." names without an
// extension, and "." and "..".
HANDLE FindFirstFileA(LPCSTR pattern, WIN32_FIND_DATAA* entry);
BOOL FindNextFileA(HANDLE search, WIN32_FIND_DATAA* entry);
BOOL FindClose(HANDLE search);

enum GET_FILEEX_INFO_LEVELS { GetFileExInfoStandard };
struct WIN32_FILE_ATTRIBUTE_DATA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime; // not filled, nor the next
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
};
BOOL GetFileAttributesExA(LPCSTR path, GET_FILEEX_INFO_LEVELS level, void* data);

struct BY_HANDLE_FILE_INFORMATION {
    DWORD dwFileAttributes;
    FILETIME ftLastWriteTime; // the other members of the host's structure are not filled
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
};
BOOL GetFileInformationByHandle(HANDLE file, BY_HANDLE_FILE_INFORMATION* information);
void GetSystemTimeAsFileTime(FILETIME* time);
// -1, 0 or 1 as the first time is before, equals or is after the second.
LONG CompareFileTime(FILETIME const* a, FILETIME const* b);

// Sets the time of the last change of a file that is open for writing; ignores the other times.
BOOL SetFileTime(HANDLE file, FILETIME const* created, FILETIME const* accessed,
                 FILETIME const* written);
// Uses the zone's present distance from UTC, also for times in the other half of the year, as
// Windows does.
BOOL FileTimeToLocalFileTime(FILETIME const* time, FILETIME* local);
BOOL FileTimeToSystemTime(FILETIME const* time, SYSTEMTIME* calendar);

namespace kvarn {

// Whether FindFirstFile finds a name by the last part of a pattern.
bool MatchesWildcards(char const* pattern, char const* name);

} // namespace kvarn
