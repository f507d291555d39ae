#include "installation.h"

#include <algorithm>
#include <utility>

#include "../core/registry.h"
#include "../files/existence.h"
#include "../files/filesearch.h"
#include "../files/pathparts.h"
#include "../files/temporary.h"
#include "../host/calls.h"
#include "../text/text.h"

struct kvarn::RegistryResult {
    // A text that is too long counts as none.
    static bool IsKnown(CRegistry const& registry) {
        auto const error = static_cast<DWORD>(registry.m_lastError);
        return error == ERROR_SUCCESS || error == ERROR_MORE_DATA || MeansMissing(error);
    }
};

namespace kvarn {
namespace {

// Windows keeps the folders of the user and of all users here as well, as plain texts.
constexpr char const* shellFolders =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

// A text of the registry, or the default; nothing when the registry does not tell.
std::optional<std::string> LookUp(HKEY root, char const* key, char const* name,
                                  char const* standard) {
    CRegistry registry;
    registry.SetRootKey(root);
    bool const found = registry.SetKey(key, 0, KEY_READ) != 0;
    std::string text = found ? registry.ReadString(name, standard).GetString() : standard;
    return RegistryResult::IsKnown(registry) ? std::optional(std::move(text)) : std::nullopt;
}

} // namespace

bool IsMissing(std::string_view value) {
    return SameText(value, missingText);
}

std::string ReadRegistry(HKEY root, char const* key, char const* name, char const* standard) {
    return LookUp(root, key, name, standard).value_or(standard);
}

std::optional<std::string> UserData() {
    return LookUp(HKEY_CURRENT_USER, shellFolders, "Appdata", missingText);
}

std::string SharedData() {
    return ReadRegistry(HKEY_LOCAL_MACHINE, shellFolders, "Common Appdata");
}

Files FilesIn(std::string const& folder, char const* last) {
    Files files;
    FileSearch search(PathOf(folder, "*.*").c_str());
    for (; search.Found(); search.Next()) {
        WIN32_FIND_DATAA const& file = search.Entry();
        bool const isFolder = (file.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (!isFolder && !IsTemporary(file.cFileName)) {
            files.names.emplace_back(file.cFileName);
        }
    }
    files.all = !search.Failed();
    std::stable_partition(files.names.begin(), files.names.end(),
                          [&](std::string const& one) { return !SameText(one, last); });
    return files;
}

} // namespace kvarn
