#include "../files/filerewrite.h"
#include "../files/pathparts.h"
#include "../files/textfil.h"
#include "../formats/jb23.h"
#include "../host/clienttext.h"
#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "cannotopen.h"
#include "jb23write.h"
#include "kvarninst.h"

namespace {

// A new file is made for all projects.
CString NewPath(CAutoIni const* ini) {
    bool const known = ini != nullptr && !ini->m_cfgKat.IsEmpty();
    return known
               ? kvarn::ToCString(kvarn::PathOf(ini->m_cfgKat.GetString(), CProjPath::Jb23ParNamn))
               : CString();
}

} // namespace

int kvarn::WriteJb23(CProjPath const* projekt, CAutoIni const* ini, char const* nyckel,
                     char const* varde) {
    ScalePlace const place(nyckel);
    CString const found = FirstFound(projekt, ini, CProjPath::Jb23ParNamn);
    CString const path = found.IsEmpty() ? NewPath(ini) : found;
    if (path.IsEmpty()) {
        return 0;
    }
    std::string text;
    { // closed again before it is replaced
        TextReader file(path);
        text = file.IsOpen() ? WithScale(file, place, varde) : NewScales(place, varde);
        bool const isNew = found.IsEmpty() && file.Missing();
        if (file.Failed() || (!file.IsOpen() && !isNew)) {
            return -1;
        }
    }
    RewriteFile(path, text, TemporaryOf(path.GetString()).c_str());
    return 0;
}

CString CKvarnInst::Jb23ReadKey(CString key) {
    CString const path = kvarn::FirstFound(m_proj, m_ini, CProjPath::Jb23ParNamn);
    if (path.IsEmpty()) {
        return {};
    }
    kvarn::TextReader file(path);
    if (!file.IsOpen()) {
        kvarn::CannotRead(path, "Läsning av Kvarnbok - jb2/3 inställningar"_1252);
        return {};
    }
    return kvarn::ToCString(kvarn::ScaleAt(file, kvarn::ScalePlace(key.GetString())));
}

CString CKvarnInst::Jb23WriteKey(CString key, CString value) {
    kvarn::WriteJb23(m_proj, m_ini, key.GetString(), value.GetString());
    return value;
}
