#include "searchorder.h"

#include "../files/existence.h"
#include "../files/pathparts.h"

namespace kvarn {

CString FirstFound(CString const& projektfil, CAutoIni const* ini, char const* namn) {
    return FileExists(projektfil) ? projektfil : SharedCopy(ini, namn);
}

CString FirstFound(CProjPath const* projekt, CAutoIni const* ini, char const* namn) {
    return FirstFound(ProjectCopy(projekt, namn), ini, namn);
}

CString ProjectCopy(CProjPath const* projekt, char const* namn) {
    return projekt != nullptr && !projekt->m_projKat.IsEmpty()
               ? CString(PathOf(projekt->m_projKat.GetString(), namn).c_str())
               : CString();
}

CString SharedCopy(CAutoIni const* ini, char const* namn) {
    if (ini != nullptr) {
        for (CString const& katalog : {ini->m_cfgKat, ini->m_huvudKat}) {
            CString path = PathOf(katalog.GetString(), namn).c_str();
            if (!katalog.IsEmpty() && FileExists(path)) {
                return path;
            }
        }
    }
    return {};
}

} // namespace kvarn
