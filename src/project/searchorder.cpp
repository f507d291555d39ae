#include "searchorder.h"

#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../host/clienttext.h"

namespace kvarn {

CString FirstFound(CString const& projectFile, CAutoIni const* ini, char const* name) {
    return FileExists(projectFile) ? projectFile : SharedCopy(ini, name);
}

CString FirstFound(CProjPath const* projekt, CAutoIni const* ini, char const* name) {
    return FirstFound(ProjectCopy(projekt, name), ini, name);
}

CString ProjectCopy(CProjPath const* projekt, char const* name) {
    return projekt != nullptr && !projekt->m_projKat.IsEmpty()
               ? ToCString(PathOf(projekt->m_projKat.GetString(), name))
               : CString();
}

CString SharedCopy(CAutoIni const* ini, char const* name) {
    if (ini != nullptr) {
        for (CString const& folder : {ini->m_cfgKat, ini->m_huvudKat}) {
            CString path = ToCString(PathOf(folder.GetString(), name));
            if (!folder.IsEmpty() && FileExists(path)) {
                return path;
            }
        }
    }
    return {};
}

} // namespace kvarn
