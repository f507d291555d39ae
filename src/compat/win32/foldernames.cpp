#include "foldernames.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <list>
#include <mutex>
#include <sys/stat.h>
#include <unordered_map>
#include <utility>

#include "../../text/codepage.h"
#include "filestamp.h"
#include "hostfolder.h"

namespace kvarn {
namespace {

std::string Small(std::string_view name) {
    std::string small(name);
    std::transform(small.begin(), small.end(), small.begin(), Lower1252);
    return small;
}

// A folder's names in code page 1252; any other cannot be asked for.
class Listing {
  public:
    // Nothing when the folder cannot be read; errno tells why. The stamp is of before the reading.
    static std::optional<Listing> Of(char const* folder, FileStamp const& stamp) {
        Listing listing(stamp);
        bool const whole =
            ForEachEntry(folder, [&](dirent const& entry) { listing.Add(entry.d_name); });
        return whole ? std::optional(std::move(listing)) : std::nullopt;
    }

    bool IsOf(FileStamp const& stamp) const { return m_stamp.IsOfSameFile(stamp); }
    // Whether it holds what the folder has, whose stamp this is now.
    bool Holds(FileStamp const& stamp, Purpose purpose) const {
        constexpr std::int64_t longest = 100'000'000; // nanoseconds
        std::int64_t const age = NanosecondsNow() - m_read;
        bool const isFilled = purpose == Purpose::makeFolder && age >= 0 && age < longest;
        return stamp == m_stamp && (stamp.IsSettled(m_read) || isFilled);
    }

    std::string Find(std::string_view name) const {
        auto const found = m_names.find(Small(name));
        return found != m_names.end() ? found->second : std::string();
    }
    void Add(char const* hostName) {
        if (std::optional<std::string> const name = FromUtf8(hostName)) {
            std::string& first = m_names[Small(*name)];
            first = first.empty() ? hostName : std::min<std::string>(first, hostName);
        }
    }
    void Follow(FileStamp const& stamp) { m_stamp = stamp; }

  private:
    explicit Listing(FileStamp const& stamp) : m_stamp(stamp) {}

    FileStamp m_stamp;
    std::int64_t m_read = NanosecondsNow();
    std::unordered_map<std::string, std::string> m_names; // by their small letters
};

// The folders that were read last, the very last first.
struct Memory {
    std::mutex inUse;
    std::list<Listing> listings;
};

Memory& LastRead() {
    static Memory memory;
    return memory;
}

std::list<Listing>::iterator ListingOf(FileStamp const& stamp, std::list<Listing>& listings) {
    return std::find_if(listings.begin(), listings.end(),
                        [&](Listing const& listing) { return listing.IsOf(stamp); });
}

// Nothing when the folder cannot be looked at; errno tells why.
std::optional<FileStamp> StampOf(char const* folder) {
    struct stat status {};
    return stat(folder, &status) == 0 ? std::optional(FileStamp(status)) : std::nullopt;
}

// The folder's names as they are now, at the front of the listings. Null when it cannot be read;
// errno tells why.
Listing const* Present(char const* folder, Purpose purpose, std::list<Listing>& listings) {
    constexpr std::size_t most = 8; // folders
    std::optional<FileStamp> const stamp = StampOf(folder);
    if (!stamp) {
        return nullptr;
    }
    auto const known = ListingOf(*stamp, listings);
    if (known != listings.end() && known->Holds(*stamp, purpose)) {
        listings.splice(listings.begin(), listings, known);
        return &listings.front();
    }
    std::optional<Listing> read = Listing::Of(folder, *stamp);
    if (!read) {
        return nullptr;
    }
    if (known != listings.end()) {
        listings.erase(known);
    }
    listings.push_front(*std::move(read));
    if (listings.size() > most) {
        listings.pop_back();
    }
    return &listings.front();
}

} // namespace

std::optional<std::string> FindWithoutCase(std::string const& folder, std::string_view name,
                                           Purpose purpose) {
    Memory& memory = LastRead();
    std::lock_guard const inUse(memory.inUse);
    if (Listing const* const listing =
            Present(folder.empty() ? "." : folder.c_str(), purpose, memory.listings)) {
        return listing->Find(name);
    }
    return std::nullopt;
}

void FolderMade(std::string const& hostPath) {
    std::size_t const separator = hostPath.rfind('/') + 1; // 0 without one
    std::string const folder = hostPath.substr(0, separator);
    std::optional<FileStamp> const stamp = StampOf(folder.empty() ? "." : folder.c_str());
    if (!stamp) {
        return;
    }
    Memory& memory = LastRead();
    std::lock_guard const inUse(memory.inUse);
    auto const listing = ListingOf(*stamp, memory.listings);
    if (listing != memory.listings.end()) {
        listing->Add(hostPath.c_str() + separator);
        listing->Follow(*stamp);
    }
}

} // namespace kvarn
