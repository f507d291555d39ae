#include "foldernames.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <dirent.h>
#include <list>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <unordered_map>

#include "../../text/codepage.h"
#include "filestamp.h"
#include "paths.h"

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
    // Nothing when the folder cannot be read.
    static std::optional<Listing> Of(std::string const& folder) {
        struct Close {
            void operator()(DIR* dir) const { closedir(dir); }
        };
        std::unique_ptr<DIR, Close> const dir(opendir(folder.c_str()));
        struct stat status {};
        if (dir == nullptr || fstat(dirfd(dir.get()), &status) != 0) {
            return std::nullopt;
        }
        Listing listing{FileStamp(status)};
        for (errno = 0; dirent const* const entry = readdir(dir.get()); errno = 0) {
            listing.Add(entry->d_name);
        }
        return errno == 0 ? std::optional(std::move(listing)) : std::nullopt;
    }

    bool IsOf(FileStamp const& stamp) const { return m_stamp.IsOfSameFile(stamp); }
    // Whether it holds what the folder has, whose stamp this is now.
    bool Holds(FileStamp const& stamp) const {
        constexpr std::int64_t longest = 100'000'000; // nanoseconds
        std::int64_t const age = NanosecondsNow() - m_read;
        return stamp == m_stamp && (stamp.IsSettled(m_read) || (age >= 0 && age < longest));
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

} // namespace

std::optional<std::string> FindWithoutCase(std::string const& folder, std::string_view name) {
    constexpr std::size_t most = 8; // folders
    char const* const path = folder.empty() ? "." : folder.c_str();
    struct stat status {};
    if (stat(path, &status) != 0) {
        return NotThere(errno) ? std::optional(std::string()) : std::nullopt;
    }
    FileStamp const stamp(status);
    Memory& memory = LastRead();
    std::lock_guard const inUse(memory.inUse);
    auto listing = ListingOf(stamp, memory.listings);
    if (listing == memory.listings.end() || !listing->Holds(stamp)) {
        if (listing != memory.listings.end()) {
            memory.listings.erase(listing);
        }
        std::optional<Listing> read = Listing::Of(path);
        if (!read) {
            return NotThere(errno) ? std::optional(std::string()) : std::nullopt;
        }
        memory.listings.push_back(*std::move(read));
        listing = std::prev(memory.listings.end());
    }
    memory.listings.splice(memory.listings.begin(), memory.listings, listing);
    if (memory.listings.size() > most) {
        memory.listings.pop_back();
    }
    return listing->Find(name);
}

void FolderMade(std::string const& hostPath) {
    std::size_t const separator = hostPath.rfind('/') + 1; // 0 without one
    std::string const folder = hostPath.substr(0, separator);
    struct stat status {};
    if (stat(folder.empty() ? "." : folder.c_str(), &status) != 0) {
        return;
    }
    FileStamp const stamp(status);
    Memory& memory = LastRead();
    std::lock_guard const inUse(memory.inUse);
    auto const listing = ListingOf(stamp, memory.listings);
    if (listing != memory.listings.end()) {
        listing->Add(hostPath.c_str() + separator);
        listing->Follow(stamp);
    }
}

} // namespace kvarn
