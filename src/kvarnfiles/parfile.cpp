#include "parfile.h"

#include <new>

#include "../core/messageout.h"
#include "../files/pathparts.h"
#include "../host/clienttext.h"
#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "cannotopen.h"

namespace kvarn {

Rewritten RewriteKeyFile(char const* path, bool incomplete, std::string_view text) {
    if (*path == '\0') {
        return Rewritten::done;
    }
    if (incomplete) {
        return OpensForWriting(path) ? Rewritten::failed : Rewritten::cannotOpen;
    }
    return RewriteFile(path, text);
}

int RewriteParFile(char const* path, bool incomplete, std::string_view text) {
    Rewritten const result = RewriteKeyFile(path, incomplete, text);
    if (result == Rewritten::cannotOpen) {
        DesktopMessage(Format("Could not open file for write\n%s", path).c_str(),
                       "Update Markvida Settings");
    }
    return result == Rewritten::done ? 0 : -1;
}

CString ParKind::OwnFile(CProjPath const* projekt) const {
    return projekt != nullptr ? projekt->*own : CString();
}

CString ParKind::InForce(CAutoIni const* ini, CProjPath const* projekt) const {
    return FirstFound(OwnFile(projekt), ini, *name);
}

CString ParKind::Open(TextReader& file, CAutoIni const* ini, CProjPath const* projekt) const {
    CString path = OpenFirst(file, OwnFile(projekt), ini, *name);
    if (file.Refused()) {
        CannotRead(path, Format("Läsning av %s - inställningar"_1252, program).c_str());
    }
    return path;
}

CString ParKind::ReadKey(CAutoIni const* ini, CProjPath const* projekt,
                         std::string_view key) const {
    TextReader file;
    Open(file, ini, projekt);
    std::string const value = ValueOf(file, key);
    return ToCString(value);
}

int ParKind::WriteKeys(CAutoIni const* ini, CProjPath const* projekt,
                       std::span<KeyChange const> changes) const try {
    std::string text;
    CString path;
    bool incomplete = false;
    { // closed again before it is replaced
        TextReader file;
        path = Open(file, ini, projekt);
        text = WithKeys(file, changes);
        incomplete = file.Incomplete();
    }
    return AllFit(changes) ? RewriteParFile(path, incomplete, text) : -1;
} catch (std::bad_alloc const&) {
    return -1;
}

CString KvarnCfgPath(CAutoIni const& ini) {
    return ToCString(PathOf(FolderOf(ini.m_iniFil.GetString()), CProjPath::KvarnCfgNamn));
}

} // namespace kvarn
