#include "searchorder.h"

#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../host/clienttext.h"

namespace kvarn {

std::vector<SearchPlace> SearchPlaces(CProjPath const* projekt, CAutoIni const* ini,
                                      char const* name) {
    using Kind = SearchPlace::Kind;
    std::vector<SearchPlace> places;
    auto const add = [&](Kind kind, CString const& folder) {
        if (!folder.IsEmpty()) {
            places.push_back({kind, ToCString(PathOf(folder.GetString(), name))});
        }
    };
    if (projekt != nullptr) {
        add(Kind::project, projekt->m_projKat);
    }
    if (ini != nullptr) {
        add(Kind::cfg, ini->m_cfgKat);
        add(Kind::main, ini->m_huvudKat);
    }
    return places;
}

CString FirstFound(CString const& projectFile, CAutoIni const* ini, char const* name) {
    return FileExists(projectFile) ? projectFile : SharedCopy(ini, name);
}

CString FirstFound(CProjPath const* projekt, CAutoIni const* ini, char const* name) {
    return FirstFound(ProjectCopy(projekt, name), ini, name);
}

CString ProjectCopy(CProjPath const* projekt, char const* name) {
    auto const places = SearchPlaces(projekt, nullptr, name);
    return places.empty() ? CString() : places.front().path;
}

CString SharedCopy(CAutoIni const* ini, char const* name) {
    for (SearchPlace const& place : SearchPlaces(nullptr, ini, name)) {
        if (FileExists(place.path)) {
            return place.path;
        }
    }
    return {};
}

} // namespace kvarn
