#include "copies.h"

#include <filesystem>

#include <files/existence.h>
#include <files/pathparts.h>

#include "output.h"
#include "platform.h"

namespace kvarnio {

std::vector<Copy> PlacesOf(Context const& context, std::string const& name) {
    auto const copy = [&](char const* place, CString const& folder) {
        return Copy{place, kvarn::PathOf(folder.GetString(), name)};
    };
    std::vector<Copy> places = {copy("CFG", context.ini.m_cfgKat),
                                copy("main", context.ini.m_huvudKat)};
    if (!context.project.m_projKat.IsEmpty()) {
        places.insert(places.begin(), copy("project", context.project.m_projKat));
    }
    return places;
}

std::optional<Copy> InForce(Context const& context, std::string const& name) {
    for (Copy& copy : PlacesOf(context, name)) {
        if (Exists(copy.path)) {
            return std::move(copy);
        }
    }
    return std::nullopt;
}

std::string Folders(Context const& context) {
    std::string text;
    auto const folder = [&text](char const* what, CString const& path) {
        text += std::string("  ") + what + Shown(path.GetString()) +
                (IsFolder(path.GetString()) ? "\n" : " (does not exist)\n");
    };
    if (context.project.m_projKat.IsEmpty()) {
        text += "  project folder: none, --project DIR names it\n";
    } else {
        folder("project folder: ", context.project.m_projKat);
    }
    folder("CFG folder:     ", context.ini.m_cfgKat);
    folder("main folder:    ", context.ini.m_huvudKat);
    return text;
}

bool Exists(std::string const& path) {
    return kvarn::FileExists(path.c_str());
}

bool IsFolder(std::string const& path) {
    std::error_code unreachable;
    return std::filesystem::is_directory(HostPath(path), unreachable);
}

} // namespace kvarnio
