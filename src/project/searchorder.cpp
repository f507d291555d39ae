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

namespace {

// The first path, in the order of the search, of which something holds; empty without one.
template <class Holds> CString FirstShared(CAutoIni const* ini, char const* name, Holds holds) {
    for (SearchPlace const& place : SearchPlaces(nullptr, ini, name)) {
        if (holds(place.path)) {
            return place.path;
        }
    }
    return {};
}
template <class Holds>
CString First(CString const& projectFile, CAutoIni const* ini, char const* name, Holds holds) {
    return holds(projectFile) ? projectFile : FirstShared(ini, name, holds);
}

} // namespace

CString FirstFound(CString const& projectFile, CAutoIni const* ini, char const* name) {
    return First(projectFile, ini, name, FileExists);
}

// Opening tells at once whether the file is there.
CString OpenFirst(TextReader& file, CString const& projectFile, CAutoIni const* ini,
                  char const* name) {
    return First(projectFile, ini, name,
                 [&](char const* path) { return file.Open(path) || !file.Missing(); });
}

CString FirstFound(CProjPath const* projekt, CAutoIni const* ini, char const* name) {
    return FirstFound(ProjectCopy(projekt, name), ini, name);
}

CString ProjectCopy(CProjPath const* projekt, char const* name) {
    auto const places = SearchPlaces(projekt, nullptr, name);
    return places.empty() ? CString() : places.front().path;
}

CString SharedCopy(CAutoIni const* ini, char const* name) {
    return FirstShared(ini, name, FileExists);
}

} // namespace kvarn
