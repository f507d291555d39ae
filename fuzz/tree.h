// What lies below a folder, for the targets that judge what an operation leaves on the disk. By the
// host's own calls: the standard library's take more time than what is fuzzed.
#pragma once

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// A file or folder that is open, closed with its scope.
class Opened {
  public:
    Opened(int folder, char const* name, int how)
        : m_number(openat(folder, name, how | O_CLOEXEC, 0644)) {}
    explicit Opened(std::string const& path, int how = O_RDONLY | O_DIRECTORY)
        : Opened(AT_FDCWD, path.c_str(), how) {}
    ~Opened() {
        if (m_number >= 0) {
            close(m_number);
        }
    }
    Opened(Opened const&) = delete;
    Opened& operator=(Opened const&) = delete;

    int Number() const { return m_number; }

  private:
    int m_number;
};

// The action takes a name and whether it is a folder's. It may remove the entry.
template <class Action> void ForEachEntry(Opened const& folder, Action action) {
    alignas(dirent64) char buffer[4096];
    lseek(folder.Number(), 0, SEEK_SET);
    for (ssize_t size = 1; size > 0;) {
        size = getdents64(folder.Number(), buffer, sizeof buffer);
        for (ssize_t at = 0; at < size;) {
            auto const* const entry = reinterpret_cast<dirent64 const*>(buffer + at);
            at += entry->d_reclen;
            if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0) {
                action(static_cast<char const*>(entry->d_name), entry->d_type == DT_DIR);
            }
        }
    }
}

inline std::string BytesOf(Opened const& file) {
    std::string bytes;
    char buffer[4096];
    for (ssize_t size = 1; size > 0;) {
        size = read(file.Number(), buffer, sizeof buffer);
        bytes.append(buffer, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }
    return bytes;
}

inline void Empty(Opened const& folder) {
    ForEachEntry(folder, [&](char const* name, bool isFolder) {
        if (isFolder) {
            Empty(Opened(folder.Number(), name, O_RDONLY | O_DIRECTORY));
        }
        unlinkat(folder.Number(), name, isFolder ? AT_REMOVEDIR : 0);
    });
}

struct Entry {
    bool isFolder = false;
    std::string bytes{};    // of a file
    std::int64_t seconds{}; // when a file was changed

    bool operator==(Entry const&) const = default;
};
using Tree = std::map<std::string, Entry>; // by the path below the root

inline void AddTree(Tree& tree, Opened const& folder, std::string const& path) {
    ForEachEntry(folder, [&](char const* name, bool isFolder) {
        Entry& entry = tree[path + name];
        entry.isFolder = isFolder;
        Opened const opened(folder.Number(), name, isFolder ? O_RDONLY | O_DIRECTORY : O_RDONLY);
        if (isFolder) {
            AddTree(tree, opened, path + name + '/');
        } else {
            struct stat status {};
            fstat(opened.Number(), &status);
            entry.seconds = status.st_mtim.tv_sec;
            entry.bytes = BytesOf(opened);
        }
    });
}

inline Tree TreeOf(std::string const& root) {
    Tree tree;
    AddTree(tree, Opened(root), "");
    return tree;
}

// A path with all its levels; nothing where something else stands in the way.
inline void MakeFolders(std::string const& path) {
    if (mkdir(path.c_str(), 0755) != 0 && errno == ENOENT) {
        MakeFolders(path.substr(0, path.rfind('/')));
        mkdir(path.c_str(), 0755);
    }
}
// A file with the folders above it; nothing where something else stands in the way.
inline void WriteFile(std::string const& path, std::string_view bytes, std::int64_t seconds = 0) {
    constexpr int how = O_WRONLY | O_CREAT | O_TRUNC;
    for (int attempt = 0; attempt < 2; ++attempt) {
        Opened const file(path, how);
        if (file.Number() < 0) {
            MakeFolders(path.substr(0, path.rfind('/')));
            continue;
        }
        timespec const times[] = {{0, UTIME_OMIT}, {seconds, 0}};
        bool const whole =
            write(file.Number(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
        if (!whole || (seconds != 0 && futimens(file.Number(), times) != 0)) {
            std::perror(path.c_str());
        }
        return;
    }
}

// Text for a path that stays where it is put: no step upwards.
inline std::string Harmless(std::string text) {
    for (std::size_t at = text.find(".."); at != std::string::npos; at = text.find("..", at)) {
        text[at] = '_';
    }
    return text;
}
