#include "paths.h"

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

#include "../../text/codepage.h"

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

// The first name in a folder, in the order of bytes, that differs from `name` in case alone; empty
// when the folder has no such name.
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

std::string SpeltHostPath(std::string_view path) {
    constexpr std::size_t longestLetter = 3; // bytes of UTF-8, for any letter of code page 1252
    std::string host = TakeRoot(path);
    std::size_t end = host.size();
    host.resize(end + longestLetter * path.size());
    for (char const c : path) {
        if (IsSeparator(c)) {
            if (end == 0 || host[end - 1] != '/') {
                host[end++] = '/';
            }
        } else if (static_cast<unsigned char>(c) < 0x80) {
            host[end++] = c;
        } else {
            end += ToUtf8({&c, 1}).copy(&host[end], longestLetter);
        }
    }
    host.resize(end);
    return host;
}

std::string HostPath(std::string_view path) {
    std::string spelt = SpeltHostPath(path);
    if (Exists(spelt)) { // nearly always
        return spelt;
    }
    // Only components of the path are looked up, in UTF-8. The folder of the drives is a host path
    // and is used as it is.
    std::string host = TakeRoot(path);
    std::string_view rest = std::string_view(spelt).substr(host.size());
    std::size_t const last = rest.rfind('/');
    if (last != std::string_view::npos && Exists(host + std::string(rest.substr(0, last)))) {
        host.append(rest.substr(0, last + 1)); // only the name itself is to be looked up
        rest.remove_prefix(last + 1);
    }
    for (bool found = true; !rest.empty();) {
        std::size_t const end = std::min(rest.find('/'), rest.size());
        std::string name(rest.substr(0, end));
        if (found && !Exists(host + name)) {
            std::string const actual = FindWithoutCase(host, *FromUtf8(name));
            found = !actual.empty();
            name = found ? actual : name;
        }
        host += name;
        rest.remove_prefix(end);
        if (!rest.empty()) {
            host += '/';
            rest.remove_prefix(1);
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

std::string UserConfigFolder() {
    std::string const config = Environment("XDG_CONFIG_HOME");
    return config.empty() ? Environment("HOME") + "/.config" : config;
}

std::string RegistryFile() {
    std::string const file = Environment("KVARNPROG_REGISTRY");
    return file.empty() ? UserConfigFolder() + "/kvarnprog/registry.reg" : file;
}

} // namespace kvarn
