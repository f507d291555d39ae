#include "search.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "../../text/codepage.h"
#include "files.h"
#include "hostfile.h"
#include "hostfolder.h"
#include "paths.h"

namespace {

constexpr std::int64_t ticksPerSecond = 10'000'000;
constexpr std::int64_t from1601To1970 = 11'644'473'600; // seconds

FILETIME ToFileTime(std::int64_t ticks) {
    auto const bits = static_cast<std::uint64_t>(ticks);
    return {static_cast<DWORD>(bits), static_cast<DWORD>(bits >> 32U)};
}

std::int64_t Ticks(FILETIME const& time) {
    return static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32U |
                                     time.dwLowDateTime);
}

FILETIME Changed(struct stat const& status) {
    return ToFileTime((status.st_mtim.tv_sec + from1601To1970) * ticksPerSecond +
                      status.st_mtim.tv_nsec / 100);
}

// Fills what a search and a question for one file both return: all but the name.
template <class Data> void Tell(Data& data, struct stat const& status) {
    // Windows gives folders no size.
    auto const size = S_ISDIR(status.st_mode) ? 0 : static_cast<std::uint64_t>(status.st_size);
    data = {};
    data.dwFileAttributes = kvarn::Attributes(status);
    data.ftLastWriteTime = Changed(status);
    data.nFileSizeHigh = static_cast<DWORD>(size >> 32U);
    data.nFileSizeLow = static_cast<DWORD>(size);
}

// The characters for the wildcards' MS-DOS rules in a pattern of FsRtlIsNameInExpression: DOS_STAR,
// DOS_QM and DOS_DOT in the Windows documentation.
constexpr char dosStar = '<';
constexpr char dosMark = '>';
constexpr char dosDot = '"';

// A pattern of FindFirstFile as FsRtlIsNameInExpression takes it.
std::string Translated(std::string_view pattern) {
    bool const endsInDot = pattern.ends_with('.');
    pattern = pattern.substr(0, pattern.find_last_not_of(" .") + 1); // no name ends in them
    if (pattern == "*.*") {
        return "*";
    }
    std::string text(pattern);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const before = i > 0 ? text[i - 1] : '\0';
        if (text[i] == '.' && before == '*') {
            text[i - 1] = dosStar;
        } else if (text[i] == '?' || text[i] == '*') {
            text[i] = text[i] == '?' ? dosMark : '*';
            if (before == '.') {
                text[i - 1] = dosDot;
            }
        }
    }
    if (endsInDot && text.ends_with('*')) {
        text.back() = dosStar;
    }
    return text;
}

// One row of a table: whether the pattern from its character c on matches the name from j on. rest
// is the row of the pattern's next character; passed is the same row for a c that matches nothing
// of the name.
std::vector<char> Matches(char c, std::string_view name, std::vector<char> const& rest,
                          std::vector<char> const& passed) {
    std::size_t const end = name.size();
    std::size_t const lastDot = name.rfind('.');
    std::vector<char> matches(end + 1);
    for (std::size_t j = end + 1; j-- > 0;) {
        bool const atDot = j < end && name[j] == '.';
        bool const one = j < end && rest[j + 1] != 0;
        bool const none = passed[j] != 0;
        switch (c) {
        case '*':
            matches[j] = none || (j < end && matches[j + 1] != 0);
            break;
        case dosStar:
            matches[j] = none || (j < end && j != lastDot && matches[j + 1] != 0);
            break;
        case dosMark:
            matches[j] = atDot || j == end ? none : one;
            break;
        case dosDot:
            matches[j] = j == end ? none : atDot && one;
            break;
        default:
            matches[j] = one && kvarn::Upper1252(name[j]) == kvarn::Upper1252(c);
        }
    }
    return matches;
}

// False when a character before the first wildcard tells them apart, as it does for most names.
bool BeginAlike(std::string_view pattern, std::string_view name) {
    constexpr char wildcards[] = {'*', dosStar, dosMark, dosDot, '\0'};
    std::size_t const literal = std::min(pattern.find_first_of(wildcards), pattern.size());
    return kvarn::CompareNoCase1252(pattern.substr(0, literal), name.substr(0, literal)) == 0;
}

// A name matches a translated pattern.
bool Match(std::string const& translated, std::string_view name) {
    if (translated == "*") {
        return true;
    }
    if (!BeginAlike(translated, name)) {
        return false;
    }
    std::vector<char> rest(name.size() + 1);
    rest.back() = 1;
    // When the last wildcards of a pattern match nothing before a dot that ends the name, they
    // match that dot too. So "?" finds ".", and "*." finds "." and "..".
    std::vector<char> passed = rest;
    if (name.ends_with('.')) {
        passed[name.size() - 1] = 1;
    }
    for (std::size_t i = translated.size(); i-- > 0;) {
        rest = Matches(translated[i], name, rest, passed);
        passed = rest;
    }
    return rest.front() != 0;
}

// The place of each character among all, by the code points of the capitals.
constexpr std::array<char, 256> Places() {
    std::array<char32_t, 256> capitals{};
    for (std::size_t i = 0; i < capitals.size(); ++i) {
        capitals[i] = kvarn::CodePoint1252(kvarn::Upper1252(static_cast<char>(i)));
    }
    std::array<char, capitals.size()> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        int place = 0;
        for (char32_t const other : capitals) {
            place += other < capitals[i] ? 1 : 0;
        }
        table[i] = static_cast<char>(place);
    }
    return table;
}
constexpr auto places = Places();

struct Found {
    std::string_view name;     // in code page 1252
    std::string_view hostName; // with a zero behind it
    std::string_view order;    // as texts of it compare, the system lists the entries
    bool isFolder;
};

struct FolderSearch {
    // A copy, with a zero behind it.
    std::string_view Kept(std::string_view text) {
        auto* const copy = static_cast<char*>(memory.allocate(text.size() + 1, 1));
        copy[text.copy(copy, text.size())] = '\0';
        return {copy, text.size()};
    }
    void Add(std::string_view name, std::string_view hostName, bool isFolder);

    kvarn::OpenFolder folder;
    std::pmr::monotonic_buffer_resource memory; // of the names
    std::vector<Found> found;
    std::size_t next = 0;
};

void FolderSearch::Add(std::string_view name, std::string_view hostName, bool isFolder) {
    std::string_view const kept = Kept(hostName);
    auto* const order = static_cast<char*>(memory.allocate(name.size(), 1));
    bool const dots = name == "." || name == "..";
    // "." and ".." come first: no character of a name has the place 0.
    std::transform(name.begin(), name.end(), order,
                   [&](char c) { return dots ? '\0' : places[static_cast<unsigned char>(c)]; });
    found.push_back({name == hostName ? kept : Kept(name), kept, {order, name.size()}, isFolder});
}

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; });
}

// Finds the folder's entries. False when it cannot be read; errno tells why.
bool FindAll(FolderSearch& search, std::string_view pattern) {
    std::string const translated = Translated(pattern);
    auto const find = [&](dirent const& entry) {
        std::string_view const hostName = entry.d_name;
        std::optional<std::string> converted;
        if (!IsAscii(hostName) && !(converted = kvarn::FromUtf8(hostName))) {
            return;
        }
        std::string_view const name = converted ? *converted : hostName;
        if (name.size() < MAX_PATH && Match(translated, name)) {
            search.Add(name, hostName, entry.d_type == DT_DIR);
        }
    };
    if (!kvarn::ForEachEntry(search.folder.get(), find)) {
        return false;
    }
    std::sort(search.found.begin(), search.found.end(),
              [](Found const& a, Found const& b) { return a.order < b.order; });
    return true;
}

bool Fill(WIN32_FIND_DATAA& entry, DIR* folder, Found const& found) {
    struct stat status {};
    auto const ask = [&](int how) {
        return fstatat(dirfd(folder), found.hostName.data(), &status, how) == 0;
    };
    // A link without a target is an entry too, and so is what cannot be looked at.
    if (!ask(0) && !ask(AT_SYMLINK_NOFOLLOW)) {
        if (kvarn::NotThere(errno)) {
            return false;
        }
        status.st_mode = (found.isFolder ? S_IFDIR : S_IFREG) | S_IWUSR;
    }
    Tell(entry, status);
    found.name.copy(entry.cFileName, sizeof entry.cFileName - 1);
    return true;
}

} // namespace

namespace kvarn {

bool MatchesWildcards(char const* pattern, char const* name) {
    return Match(Translated(pattern), name);
}

} // namespace kvarn

HANDLE FindFirstFileA(LPCSTR pattern, WIN32_FIND_DATAA* entry) {
    std::string_view const path = pattern;
    std::size_t const separator = path.find_last_of("\\/");
    std::size_t const drive = path.substr(0, 2).ends_with(':') ? 2 : 0;
    std::size_t const nameAt = separator == std::string_view::npos ? drive : separator + 1;
    auto search = std::make_unique<FolderSearch>();
    std::string const folder = nameAt > 0 ? kvarn::HostPath(path.substr(0, nameAt)) : ".";
    search->folder.reset(opendir(folder.c_str()));
    if (search->folder == nullptr || !FindAll(*search, path.substr(nameAt))) {
        SetLastError(kvarn::WindowsError(errno));
        return INVALID_HANDLE_VALUE;
    }
    if (FindNextFileA(search.get(), entry) == FALSE) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    return search.release();
}

BOOL FindNextFileA(HANDLE handle, WIN32_FIND_DATAA* entry) {
    auto* const search = static_cast<FolderSearch*>(handle);
    while (search->next < search->found.size()) {
        if (Fill(*entry, search->folder.get(), search->found[search->next++])) {
            return TRUE;
        }
    }
    SetLastError(ERROR_NO_MORE_FILES);
    return FALSE;
}

BOOL FindClose(HANDLE handle) {
    delete static_cast<FolderSearch*>(handle);
    return TRUE;
}

BOOL GetFileAttributesExA(LPCSTR path, GET_FILEEX_INFO_LEVELS, void* data) {
    struct stat status {};
    if (!kvarn::FileStatus(path, status)) {
        return FALSE;
    }
    Tell(*static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data), status);
    return TRUE;
}

BOOL GetFileInformationByHandle(HANDLE file, BY_HANDLE_FILE_INFORMATION* information) {
    struct stat status {};
    if (!kvarn::FileStatus(file, status)) {
        return FALSE;
    }
    Tell(*information, status);
    return TRUE;
}

void GetSystemTimeAsFileTime(FILETIME* time) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    *time = ToFileTime((now.tv_sec + from1601To1970) * ticksPerSecond + now.tv_nsec / 100);
}

LONG CompareFileTime(FILETIME const* a, FILETIME const* b) {
    std::int64_t const first = Ticks(*a);
    std::int64_t const second = Ticks(*b);
    return first == second ? 0 : first < second ? -1 : 1;
}

BOOL SetFileTime(HANDLE file, FILETIME const*, FILETIME const*, FILETIME const* written) {
    std::int64_t const ticks = Ticks(*written);
    timespec const times[] = {
        {0, UTIME_OMIT}, {ticks / ticksPerSecond - from1601To1970, ticks % ticksPerSecond * 100}};
    return futimens(kvarn::Descriptor(file), times) == 0 ? TRUE : FALSE;
}

BOOL FileTimeToLocalFileTime(FILETIME const* time, FILETIME* local) {
    std::time_t const now = std::time(nullptr);
    std::tm calendar{};
    if (localtime_r(&now, &calendar) == nullptr) {
        return FALSE;
    }
    *local = ToFileTime(Ticks(*time) + calendar.tm_gmtoff * ticksPerSecond);
    return TRUE;
}

BOOL FileTimeToSystemTime(FILETIME const* time, SYSTEMTIME* calendar) {
    std::int64_t const ticks = Ticks(*time);
    std::time_t const seconds = ticks / ticksPerSecond - from1601To1970;
    std::tm t{};
    if (ticks < 0 || gmtime_r(&seconds, &t) == nullptr) {
        return FALSE;
    }
    auto const word = [](std::int64_t value) { return static_cast<WORD>(value); };
    *calendar = {word(t.tm_year + 1900), word(t.tm_mon + 1),
                 word(t.tm_wday),        word(t.tm_mday),
                 word(t.tm_hour),        word(t.tm_min),
                 word(t.tm_sec),         word(ticks % ticksPerSecond / 10'000)};
    return TRUE;
}
