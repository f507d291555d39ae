#include "dirsort.h"

#include <algorithm>
#include <chrono>
#include <memory_resource>
#include <new>
#include <optional>
#include <string_view>
#include <typeinfo>
#include <vector>

#include "../files/filesearch.h"
#include "../host/calls.h"
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

// A FILETIME's.
constexpr std::int64_t ticksPerMinute = 600'000'000;
constexpr std::int64_t ticksPerDay = std::int64_t{24} * 60 * ticksPerMinute;

std::uint64_t Ticks(FILETIME const& time) {
    return std::uint64_t{time.dwHighDateTime} << 32U | time.dwLowDateTime;
}

// The present distance of local time from UTC, which FileTimeToLocalFileTime adds to all times.
// Nothing when the system does not tell it.
std::optional<std::uint64_t> ZoneTicks() {
    FILETIME const any = {0, 1U << 24U};
    FILETIME local{};
    return FileTimeToLocalFileTime(&any, &local) != FALSE ? std::optional(Ticks(local) - Ticks(any))
                                                          : std::nullopt;
}

void PutTwoDigits(char* at, std::int64_t number) {
    at[0] = static_cast<char>('0' + number / 10);
    at[1] = static_cast<char>('0' + number % 10);
}

void FillTime(dirsorttype& post, FILETIME const& changed, std::uint64_t zoneTicks) {
    auto const local = static_cast<std::int64_t>(Ticks(changed) + zoneTicks);
    if (local < 0) {
        return; // no time of FileTimeToSystemTime
    }
    using namespace std::chrono;
    constexpr sys_days firstDay{year(1601) / January / 1};
    year_month_day const date(firstDay + days(local / ticksPerDay));
    int const yearNumber = int{date.year()};
    kvarn::CopyText(post.datum, sizeof post.datum, "1970-01-01");
    if (yearNumber >= 1970 && yearNumber <= 2037) { // that 32 bits of seconds since 1970 hold whole
        PutTwoDigits(post.datum, yearNumber / 100);
        PutTwoDigits(post.datum + 2, yearNumber % 100);
        PutTwoDigits(post.datum + 5, unsigned{date.month()});
        PutTwoDigits(post.datum + 8, unsigned{date.day()});
    }
    std::int64_t const minutes = local % ticksPerDay / ticksPerMinute;
    kvarn::CopyText(post.tid, sizeof post.tid, "00.00");
    PutTwoDigits(post.tid, minutes / 60);
    PutTwoDigits(post.tid + 3, minutes % 60);
}

void Fill(dirsorttype& post, WIN32_FIND_DATAA const& entry,
          std::optional<std::uint64_t> zoneTicks) {
    if (zoneTicks) {
        FillTime(post, entry.ftLastWriteTime, *zoneTicks);
    }
    kvarn::CopyText(post.namn, sizeof post.namn, entry.cFileName);
    bool const hasShort = *entry.cAlternateFileName != '\0';
    kvarn::CopyText(post.kortNamn, sizeof post.kortNamn,
                    hasShort ? entry.cAlternateFileName : entry.cFileName);
    auto const size = static_cast<std::int32_t>(entry.nFileSizeLow);
    // Known quirk, kept on purpose.
    post.storlek = size >= 1 && size <= 999 ? 1000 : size;
}

// The whole number that a text begins with; a text without a number comes after all others.
std::int32_t LeadingNumber(std::string_view text) {
    std::int32_t number = 99999999;
    kvarn::Scan(text, number);
    return number;
}

// Whether the candidate comes after the mark: by the leading numbers, then by the texts.
int After(std::string_view candidate, std::string_view mark) {
    std::int32_t const c = LeadingNumber(candidate);
    std::int32_t const m = LeadingNumber(mark);
    return m != c ? m < c : kvarn::CompareUpperNordic(mark, candidate) < 0;
}

// Known quirk, kept on purpose: only the leading numbers count, and equal ones come out reversed.
int AfterDescending(std::string_view candidate, std::string_view mark) {
    return LeadingNumber(candidate) <= LeadingNumber(mark);
}

// What Sortval compares of a record, taken out of it once: records are in order when these are.
struct Sortnyckel {
    std::int64_t number = 0;
    std::string_view capitals{}; // empty where the number alone counts
    std::int32_t place = 0;      // among equal ones
};

bool operator<(Sortnyckel const& a, Sortnyckel const& b) {
    if (a.number != b.number) {
        return a.number < b.number;
    }
    int const order = a.capitals.compare(b.capitals);
    return order != 0 ? order < 0 : a.place < b.place;
}

using Memory = std::pmr::monotonic_buffer_resource;

std::string_view Capitals(std::string_view text, Memory& memory) {
    auto* const capitals = static_cast<char*>(memory.allocate(text.size() + 1, 1));
    capitals[text.copy(capitals, text.size())] = '\0';
    ToUpperNordic(capitals);
    return {capitals, text.size()};
}

// Of the record at a place of the list.
Sortnyckel Taken(dirsorttype const& post, std::int32_t place, int key, Memory& memory) {
    bool const byName = key == 1 || key == -1;
    std::string_view const text =
        byName ? kvarn::FieldText(post.namn) : kvarn::FieldText(post.datum);
    switch (key) {
    case 1:
    case 3:
        return {LeadingNumber(text), Capitals(text, memory), place};
    case -1:
    case -3:
        return {-std::int64_t{LeadingNumber(text)}, {}, -place};
    case 2:
    case -2:
        return {post.storlek, {}, place};
    default:
        return {0, {}, place};
    }
}

// The elements from the first on in the order of Sortera. None when there are more or fewer than
// so many, or memory is short.
template <class Node> std::vector<Node*> Sorted(Node* first, std::int32_t count, int key) try {
    struct Element {
        Sortnyckel key;
        Node* node;
    };
    Memory memory;
    std::vector<Element> elements;
    std::vector<Node*> nodes;
    std::int32_t place = 0;
    elements.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (; first != nullptr && place < count; first = first->nasta) {
        elements.push_back({Taken(first->post, place++, key, memory), first});
    }
    if (first == nullptr && place == count) {
        std::sort(elements.begin(), elements.end(),
                  [](Element const& a, Element const& b) { return a.key < b.key; });
        nodes.reserve(elements.size());
        for (Element const& element : elements) {
            nodes.push_back(element.node);
        }
    }
    return nodes;
} catch (std::bad_alloc const&) {
    return {};
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
    auto const zoneTicks = ZoneTicks();
    for (kvarn::FileSearch search(pattern); search.Found(); search.Next()) {
        WIN32_FIND_DATAA const& entry = search.Entry();
        bool const folder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (!EndsIn(entry.cFileName, extension) || (folder && folders != 1)) {
            continue;
        }
        Ny(1, nullptr);
        Fill(*Get_aktel(), entry, zoneTicks);
    }
    // A deriving class may compare in its own way.
    bool const own = typeid(*this) == typeid(CDirSort);
    auto nodes = own ? Sorted(m_forsta, m_antal, key) : decltype(Sorted(m_forsta, 0, 0))();
    if (nodes.empty()) {
        Sortera(key);
    } else {
        Lanka(nodes.data());
    }
    m_lage = before;
    return 0;
}

int CDirSort::Sortval(int nyckel) {
    using kvarn::FieldText;
    dirsorttype const& c = *m_aktpost;
    dirsorttype const& m = *m_markpost;
    switch (nyckel) {
    case 1:
        return After(FieldText(c.namn), FieldText(m.namn));
    case -1:
        return AfterDescending(FieldText(c.namn), FieldText(m.namn));
    case 2:
    case -2:
        return (m.storlek < c.storlek) - (m.storlek > c.storlek);
    case 3:
        return After(FieldText(c.datum), FieldText(m.datum));
    case -3:
        return AfterDescending(FieldText(c.datum), FieldText(m.datum));
    default:
        return 0;
    }
}
