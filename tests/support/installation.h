// An installation in the host's registry: the folders of the user and of all users lie in a folder
// of the test's own, and what the registry held before comes back.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/registry.h"
#include "support/child.h"
#include "support/testfiles.h"

class Installation {
  public:
    Installation() {
        for (char const* name : {"Data", "Gemensam", "Prog"}) {
            std::filesystem::create_directory(m_folder / name);
        }
        Set(HKEY_CURRENT_USER, shellFolders, "Appdata", Path("Data"));
        Set(HKEY_LOCAL_MACHINE, shellFolders, "Common Appdata", Path("Gemensam"));
    }
    ~Installation() {
        std::reverse(m_before.begin(), m_before.end()); // what was set twice comes back in steps
        for (Before const& before : m_before) {
            CRegistry registry;
            registry.SetRootKey(before.root);
            registry.SetKey(before.key.c_str(), 0, KEY_ALL_ACCESS);
            before.value ? registry.WriteString(before.name.c_str(), before.value->c_str())
                         : registry.DeleteValue(before.name.c_str());
        }
    }
    Installation(Installation const&) = delete;
    Installation& operator=(Installation const&) = delete;

    void Set(HKEY root, std::string const& key, std::string const& name, std::string const& value) {
        CRegistry registry;
        registry.SetRootKey(root);
        ASSERT_EQ(registry.SetKey(key.c_str(), 1, KEY_ALL_ACCESS), 1) << key;
        m_before.push_back({root, key, name, std::nullopt});
        if (registry.ValueExists(name.c_str()) != 0) {
            m_before.back().value = registry.ReadString(name.c_str(), "").GetString();
        }
        ASSERT_EQ(registry.WriteString(name.c_str(), value.c_str()), 1) << name;
    }
    // A release's key, or DIST and RELEASE.
    void Install(std::string const& group, std::string const& path) {
        Set(HKEY_LOCAL_MACHINE, Group(group), "InstallPath", path);
    }
    void Choose(std::string const& release) {
        Set(HKEY_CURRENT_USER, "SOFTWARE\\Orsakor\\Vallentra\\Markvida\\Samlaren", "ACADVER",
            release);
    }
    static std::string Group(std::string const& group) {
        return "SOFTWARE\\Wow6432Node\\Orsakor\\Vallentra\\Markvida\\" + group + "\\AX";
    }

    std::string Path(std::string const& below) const { return m_folder.Api(below); }
    // In the user's settings folder of a release.
    static std::string User(std::string const& file, std::string const& release = "R20") {
        return "Data\\Orsakor\\Vallentra\\Markvida\\" + release + "\\AX\\" + file;
    }
    static std::string AllUsers(std::string const& file) {
        return "Gemensam\\Orsakor\\Vallentra\\Markvida\\AX\\" + file;
    }
    void Write(std::string const& below, std::string_view bytes) const {
        m_folder.Write(Host(below), bytes);
    }
    std::string Read(std::string const& below) const { return m_folder.Read(Host(below)); }
    std::filesystem::path File(std::string const& below) const { return m_folder / Host(below); }

  private:
    static constexpr char const* shellFolders =
        "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

    static std::string Host(std::string path) {
        std::replace(path.begin(), path.end(), '\\', '/');
        return path;
    }

    struct Before {
        HKEY root;
        std::string key;
        std::string name;
        std::optional<std::string> value;
    };

    TestFolder m_folder;
    Variable m_store{"KVARNPROG_REGISTRY", (m_folder / "store.reg").string()};
    std::vector<Before> m_before;
};
