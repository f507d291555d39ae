#include "copies.h"

#include <filesystem>

#include <files/existence.h>
#include <project/searchorder.h>

#include "output.h"
#include "platform.h"

namespace kvarnio {

std::vector<Copy> PlacesOf(Context const& context, std::string const& name) {
    constexpr char const* names[] = {"project", "CFG", "main"};
    std::vector<Copy> places;
    for (kvarn::SearchPlace const& place :
         kvarn::SearchPlaces(&context.project, &context.ini, name.c_str())) {
        places.push_back({names[static_cast<int>(place.kind)], place.path.GetString()});
    }
    return places;
}

std::optional<Copy> InForce(Context const& context, std::string const& name) {
    for (Copy& copy : PlacesOf(context, name)) {
        if (Exists(copy.path)) {
            return {std::move(copy)};
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
