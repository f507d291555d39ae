#include "dirsort.h"

#include <cstring>
#include <string>
#include <string_view>

#include "../files/filesearch.h"
#include "../host/calls.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "../text/scan.h"
#include "../text/text.h"

template class KVARNPROG_LIST_DEFINE list0<dirsorttype>;

namespace {

// The extension that names must end in; empty when any will do. FindFirstFile compares short names
// too, so that "*.DBF" finds X.DBFX by X~1.DBF.
std::string_view Extension(std::string_view pattern) {
    std::size_t const dot = pattern.rfind('.');
    bool const open = pattern.ends_with('*') || pattern.ends_with('?');
    return dot == std::string_view::npos || open ? std::string_view() : pattern.substr(dot);
}

bool EndsIn(std::string_view name, std::string_view extension) {
    return name.size() >= extension.size() &&
           kvarn::SameText(name.substr(name.size() - extension.size()), extension);
}

void FillTime(dirsorttype& post, FILETIME const& changed) {
    FILETIME local{};
    SYSTEMTIME t{};
    if (FileTimeToLocalFileTime(&changed, &local) == FALSE ||
        FileTimeToSystemTime(&local, &t) == FALSE) {
        return;
    }
    // The years that 32 bits of seconds since 1970 hold whole.
    bool const shown = t.wYear >= 1970 && t.wYear <= 2037;
    kvarn::CopyText(
        post.datum, sizeof post.datum,
        shown ? kvarn::Format("%4d-%02.2d-%02.2d", int{t.wYear}, int{t.wMonth}, int{t.wDay})
              : "1970-01-01");
    kvarn::CopyText(post.tid, sizeof post.tid,
                    kvarn::Format("%2.2d.%02.2d", int{t.wHour}, int{t.wMinute}));
}

void Fill(dirsorttype& post, WIN32_FIND_DATAA const& entry) {
    FillTime(post, entry.ftLastWriteTime);
    kvarn::CopyText(post.namn, sizeof post.namn, entry.cFileName);
    bool const hasShort = *entry.cAlternateFileName != '\0';
    kvarn::CopyText(post.kortNamn, sizeof post.kortNamn,
                    hasShort ? entry.cAlternateFileName : entry.cFileName);
    auto const size = static_cast<std::int32_t>(entry.nFileSizeLow);
    // Known quirk, kept on purpose.
    post.storlek = size >= 1 && size <= 999 ? 1000 : size;
}

// The whole number that a text begins with; a text without a number comes after all others.
std::int32_t LeadingNumber(char const* text) {
    std::int32_t number = 99999999;
    kvarn::Scan(text, number);
    return number;
}

// Whether the candidate comes after the mark: by the leading numbers, then by the texts.
int After(char const* candidate, char const* mark) {
    std::int32_t const c = LeadingNumber(candidate);
    std::int32_t const m = LeadingNumber(mark);
    return m != c ? m < c : kvarn::CompareUpperNordic(mark, candidate) < 0;
}

// Known quirk, kept on purpose: only the leading numbers count, and equal ones come out reversed.
int AfterDescending(char const* candidate, char const* mark) {
    return LeadingNumber(candidate) <= LeadingNumber(mark);
}

} // namespace

CDirSort::CDirSort() : m_lage(1) {}

CDirSort::~CDirSort() = default;

int CDirSort::Init(char const* pattern, int key, int clear, int mode, int folders) {
    std::int32_t const before = m_lage;
    m_lage = mode;
    while (Home() == 0 && clear == 1) {
        Delete();
    }
    std::string_view const extension = Extension(pattern);
    for (kvarn::FileSearch search(pattern); search.Found(); search.Next()) {
        WIN32_FIND_DATAA const& entry = search.Entry();
        bool const folder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (!EndsIn(entry.cFileName, extension) || (folder && folders != 1)) {
            continue;
        }
        Ny(1, nullptr);
        Fill(*Get_aktel(), entry);
    }
    Sortera(key);
    m_lage = before;
    return 0;
}

int CDirSort::Sortval(int nyckel) {
    dirsorttype const& c = *m_aktpost;
    dirsorttype const& m = *m_markpost;
    switch (nyckel) {
    case 1:
        return After(c.namn, m.namn);
    case -1:
        return AfterDescending(c.namn, m.namn);
    case 2:
    case -2:
        return (m.storlek < c.storlek) - (m.storlek > c.storlek);
    case 3:
        return After(c.datum, m.datum);
    case -3:
        return AfterDescending(c.datum, m.datum);
    default:
        return 0;
    }
}
