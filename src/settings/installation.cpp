#include "installation.h"

#include <algorithm>

#include "../core/dirsort.h"
#include "../core/registry.h"
#include "../files/pathparts.h"
#include "../files/temporary.h"
#include "../text/text.h"

namespace kvarn {
namespace {

// Windows keeps the folders of the user and of all users here as well, as plain texts.
constexpr char const* shellFolders =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

} // namespace

bool IsMissing(std::string_view value) {
    return SameText(value, missingText);
}

std::string ReadRegistry(HKEY root, char const* key, char const* name, char const* standard) {
    CRegistry registry;
    registry.SetRootKey(root);
    bool const found = registry.SetKey(key, 0, KEY_READ) != 0;
    return found ? registry.ReadString(name, standard).GetString() : standard;
}

std::string UserData() {
    return ReadRegistry(HKEY_CURRENT_USER, shellFolders, "Appdata");
}

std::string SharedData() {
    return ReadRegistry(HKEY_LOCAL_MACHINE, shellFolders, "Common Appdata");
}

std::vector<std::string> FilesIn(std::string const& folder, char const* last) {
    constexpr int unsorted = 0;
    constexpr int emptyFirst = 1;
    constexpr int mode = 0;
    constexpr int withoutFolders = 0;
    CDirSort list;
    list.Init(PathOf(folder, "*.*").c_str(), unsorted, emptyFirst, mode, withoutFolders);
    std::vector<std::string> names;
    for (bool found = list.Home() == 0; found; found = list++ != nullptr) {
        if (char const* const name = list.Get_aktel()->namn; !IsTemporary(name)) {
            names.emplace_back(name);
        }
    }
    std::stable_partition(names.begin(), names.end(),
                          [&](std::string const& one) { return !SameText(one, last); });
    return names;
}

} // namespace kvarn
