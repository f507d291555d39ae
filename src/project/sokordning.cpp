#include "sokordning.h"

#include "../core/text.h"

namespace kvarn {
namespace {

bool Finns(CString const& path) {
    return !path.IsEmpty() && FileExists(path);
}

} // namespace

CString ForstFunna(CString const& projektfil, CAutoIni const* ini, char const* namn) {
    if (Finns(projektfil)) {
        return projektfil;
    }
    if (ini != nullptr) {
        for (CString const& katalog : {ini->m_cfgKat, ini->m_huvudKat}) {
            CString path = PathOf(katalog.GetString(), namn).c_str();
            if (Finns(path)) {
                return path;
            }
        }
    }
    return {};
}

} // namespace kvarn
