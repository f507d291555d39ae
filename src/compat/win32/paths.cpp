#include "paths.h"

#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

#include "../codepage.h"

namespace kvarn {
namespace {

std::string Environment(char const* name) {
    char const* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool Exists(std::string const& hostPath) {
    // A dangling link exists as a name: faccessat must not follow it.
    return faccessat(AT_FDCWD, hostPath.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0;
}

std::string DrivesFolder() {
    std::string const drives = Environment("KVARNPROG_DRIVES");
    return drives.empty() ? UserDataFolder() + "/kvarnprog/drives" : drives;
}

// The name in a folder that equals `name` but for case, or an empty text.
std::string FindWithoutCase(std::string const& folder, std::string_view name) {
    struct Close {
        void operator()(DIR* dir) const { closedir(dir); }
    };
    std::unique_ptr<DIR, Close> const dir(opendir(folder.empty() ? "." : folder.c_str()));
    std::string best;
    if (dir == nullptr) {
        return best;
    }
    while (dirent const* const entry = readdir(dir.get())) {
        auto const found = FromUtf8(entry->d_name);
        if (found && CompareNoCase1252(*found, name) == 0 &&
            (best.empty() || best.compare(entry->d_name) > 0)) {
            best = entry->d_name;
        }
    }
    return best;
}

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

// The host folder that a path starts from, with its separator; takes that part off the path.
std::string TakeRoot(std::string_view& path) {
    if (path.size() >= 2 && path[1] == ':') {
        char const drive[] = {Lower1252(path[0]), '/', '\0'};
        path.remove_prefix(2);
        return DrivesFolder() + "/" + ToUtf8(drive);
    }
    return !path.empty() && IsSeparator(path.front()) ? "/" : "";
}

} // namespace

std::string HostPath(std::string_view path) {
    std::string host = TakeRoot(path);
    std::string plain = host;
    for (char const c : path) {
        if (!IsSeparator(c)) {
            plain += ToUtf8({&c, 1});
        } else if (!plain.ends_with('/')) {
            plain += '/';
        }
    }
    if (Exists(plain)) { // nearly always
        return plain;
    }

    bool found = true;
    while (!path.empty()) {
        std::size_t const end = path.find_first_of("\\/");
        std::string_view const component = path.substr(0, end);
        path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
        if (component.empty()) {
            continue;
        }
        std::string name = ToUtf8(component);
        if (found && !Exists(host + name)) {
            std::string const actual = FindWithoutCase(host, component);
            found = !actual.empty();
            name = found ? actual : name;
        }
        host += name;
        if (end != std::string_view::npos) {
            host += '/';
        }
    }
    return host;
}

std::optional<std::string> FromHostPath(std::string_view hostPath) {
    return FromUtf8(hostPath);
}

std::string UserDataFolder() {
    std::string const data = Environment("XDG_DATA_HOME");
    return data.empty() ? Environment("HOME") + "/.local/share" : data;
}

} // namespace kvarn
