#include "parfile.h"

#include "../files/pathparts.h"
#include "../files/textfil.h"
#include "../formats/keyfile.h"
#include "../host/clienttext.h"
#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "cannotopen.h"

namespace kvarn {

void ParFile::TellCannotRead() const {
    CannotRead(path, Format("Läsning av %s - inställningar"_1252, program).c_str());
}

CString ParFile::ReadKey(std::string_view key) const {
    if (path.IsEmpty()) {
        return {};
    }
    TextReader file(path);
    if (!file.IsOpen()) {
        TellCannotRead();
    }
    std::string const value = ValueOf(file, key);
    return ToCString(value);
}

CString ParKind::OwnFile(CProjPath const* projekt) const {
    return projekt != nullptr ? projekt->*own : CString();
}

ParFile ParKind::InForce(CAutoIni const* ini, CProjPath const* projekt) const {
    return {FirstFound(OwnFile(projekt), ini, *name), program};
}

CString KvarnCfgPath(CAutoIni const& ini) {
    return ToCString(PathOf(FolderOf(ini.m_iniFil.GetString()), CProjPath::KvarnCfgNamn));
}

} // namespace kvarn
