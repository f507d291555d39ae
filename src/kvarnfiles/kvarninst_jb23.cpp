#include <new>

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

kvarn::Jb23Written kvarn::WriteJb23(CProjPath const* projekt, CAutoIni const* ini,
                                    std::span<KeyChange const> changes) try {
    CString const found = FirstFound(projekt, ini, CProjPath::Jb23ParNamn);
    CString const path = found.IsEmpty() ? NewPath(ini) : found;
    if (path.IsEmpty()) {
        return Jb23Written::done;
    }
    std::string text;
    { // closed again before it is replaced
        TextReader file(path);
        bool const isNew = found.IsEmpty() && file.Missing();
        if (!isNew && (!file.IsOpen() || !file.ReadRest(text))) {
            return Jb23Written::unread;
        }
        if (isNew) {
            ScalePlace const place(changes.front().key);
            text = NewScales(place, changes.front().value);
            changes = changes.subspan(1);
        }
    }
    for (KeyChange const& change : changes) {
        LineReader lines{std::string_view(text)};
        text = WithScale(lines, ScalePlace(change.key), change.value);
    }
    bool const written =
        RewriteFile(path, text, TemporaryOf(path.GetString()).c_str()) == Rewritten::done;
    return written ? Jb23Written::done : Jb23Written::failed;
} catch (std::bad_alloc const&) {
    return Jb23Written::failed;
}

CString CKvarnInst::Jb23ReadKey(CString key) {
    char const* const name = CProjPath::Jb23ParNamn;
    kvarn::TextReader file;
    CString const path = kvarn::OpenFirst(file, kvarn::ProjectCopy(m_proj, name), m_ini, name);
    if (file.Refused()) {
        kvarn::CannotRead(path, "Läsning av Kvarnbok - jb2/3 inställningar"_1252);
    }
    return kvarn::ToCString(kvarn::ScaleAt(file, kvarn::ScalePlace(key.GetString())));
}

CString CKvarnInst::Jb23WriteKey(CString key, CString value) {
    kvarn::KeyChange const change = {key.GetString(), value.GetString()};
    kvarn::WriteJb23(m_proj, m_ini, {&change, 1});
    return value;
}
