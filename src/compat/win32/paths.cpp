#include "paths.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

#include "../../text/codepage.h"
#include "hostfolder.h"

namespace kvarn {
namespace {

constexpr std::size_t longestLetter = 3; // bytes of UTF-8, for any letter of code page 1252

std::string Environment(char const* name) {
    char const* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

// Nothing when the host does not tell; errno tells why.
std::optional<bool> Exists(std::string const& hostPath) {
    // A dangling link exists as a name: faccessat must not follow it.
    if (faccessat(AT_FDCWD, hostPath.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
        return true;
    }
    return NotThere(errno) ? std::optional(false) : std::nullopt;
}

std::string DrivesFolder() {
    std::string const drives = Environment("KVARNPROG_DRIVES");
    return drives.empty() ? UserDataFolder() + "/kvarnprog/drives" : drives;
}

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

// The path without links; as it is where the host does not tell.
std::string WithoutLinks(std::string const& hostPath) {
    struct Free {
        void operator()(char* text) const { std::free(text); }
    };
    std::unique_ptr<char, Free> const real(realpath(hostPath.c_str(), nullptr));
    return real != nullptr ? real.get() : hostPath;
}

std::string DriveFolder(char drive) {
    if (drive == registryDrive) {
        std::string const file = RegistryFile();
        return file.substr(0, file.rfind('/') + 1);
    }
    if (drive == configDrive) {
        return UserConfigFolder() + "/";
    }
    char const folder[] = {Lower1252(drive), '/', '\0'};
    return DrivesFolder() + "/" + ToUtf8(folder);
}

// The host folder that a path starts from, with its separator; takes that part off the path.
std::string TakeRoot(std::string_view& path) {
    if (path.size() >= 2 && path[1] == ':') {
        char const drive = path.front();
        path.remove_prefix(2);
        return DriveFolder(drive);
    }
    return !path.empty() && IsSeparator(path.front()) ? "/" : "";
}

// A host path with its folder in place of the folder's own path; nothing when it is not below it.
std::optional<std::string> Below(std::string const& folder, char const* named,
                                 std::string const& hostPath) {
    std::string const real = WithoutLinks(folder);
    std::string const path = hostPath + '/'; // the folder itself, too
    auto const rest =
        path.starts_with(real + '/') ? FromUtf8(path.substr(real.size() + 1)) : std::nullopt;
    return rest ? std::optional(named + rest->substr(0, rest->size() - !rest->empty()))
                : std::nullopt;
}

// The name of a folder that is meant: as it is spelt when that exists or no other does. Nothing
// when the folder is not there or cannot be read; errno tells why.
std::optional<std::string> FindName(std::string const& folder, std::string const& name,
                                    Purpose purpose) {
    std::optional<std::string> actual = FindWithoutCase(folder, *FromUtf8(name), purpose);
    if (!actual || actual->empty() || *actual == name) {
        return actual ? std::optional(name) : std::nullopt;
    }
    std::optional<bool> const spelt = Exists(folder + name);
    return spelt == true ? name : spelt == false ? actual : std::nullopt;
}

} // namespace

std::string SpeltHostPath(std::string_view path) {
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

std::optional<std::string> FindHostPath(std::string_view path, Purpose purpose) {
    std::string spelt = SpeltHostPath(path);
    std::optional<bool> const exists = Exists(spelt);
    if (exists != false) { // nearly always
        return exists ? std::optional(std::move(spelt)) : std::nullopt;
    }
    return FindUnspelt(path, spelt, purpose);
}

// Only components of the path are looked up, in UTF-8. The folder of the drives is a host path and
// is used as it is.
std::optional<std::string> FindUnspelt(std::string_view path, std::string const& spelt,
                                       Purpose purpose) {
    std::string host = TakeRoot(path);
    std::string_view rest = std::string_view(spelt).substr(host.size());
    std::size_t const name = rest.rfind('/') + 1; // 0 without a folder
    if (name < rest.size()) {                     // mostly only the name itself is another
        std::string const folder = host + std::string(rest.substr(0, name));
        std::optional<std::string> const actual =
            FindName(folder, std::string(rest.substr(name)), purpose);
        if (actual || !NotThere(errno)) {
            return actual ? std::optional(folder + *actual) : std::nullopt;
        }
    }
    for (bool found = true; !rest.empty();) {
        std::size_t const end = std::min(rest.find('/'), rest.size());
        std::string component(rest.substr(0, end));
        if (found && !component.empty()) {
            std::optional<bool> const exists = Exists(host + component);
            std::optional<std::string> const actual =
                exists == false ? FindWithoutCase(host, *FromUtf8(component), purpose) : component;
            if (!exists || (!actual && !NotThere(errno))) {
                return std::nullopt;
            }
            found = actual && !actual->empty(); // not below a file
            component = found ? *actual : component;
        }
        host += component;
        rest.remove_prefix(end);
        if (!rest.empty()) {
            host += '/';
            rest.remove_prefix(1);
        }
    }
    return host;
}

std::string HostPath(std::string_view path) {
    std::optional<std::string> found = FindHostPath(path);
    return found ? *std::move(found) : SpeltHostPath(path);
}

std::optional<std::string> FromHostPath(std::string_view hostPath) {
    std::optional<std::string> text = FromUtf8(hostPath);
    if (text || !hostPath.starts_with('/')) {
        return text;
    }
    std::string const path(hostPath);
    for (char const drive :
         {'$', '~', 'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h', 'i', 'j', 'k', 'l',
          'm', 'n', 'o', 'p', 'q', 'r', 's', 't', 'u', 'v', 'w', 'x', 'y', 'z'}) {
        char const root[] = {drive, ':', '/', '\0'};
        if ((text = Below(DriveFolder(drive), root, path))) {
            return text;
        }
    }
    return Below(".", "./", path);
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
