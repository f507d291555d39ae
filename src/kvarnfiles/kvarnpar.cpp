#include "kvarnpar.h"

#include "../core/messageout.h"
#include "../project/searchorder.h"
#include "../text/format.h"
#include "keyrecords.h"
#include "parfile.h"

template class KVARNPROG_LIST_DEFINE list0<partype>;

CKvarnPAR::CKvarnPAR(CAutoIni* ini, CProjPath* projekt) {
    kvarn::ParKind const& kind = kvarn::kvarnPar;
    Las(kind.OwnFile(projekt), ini, *kind.name, kind.program);
}

CKvarnPAR::CKvarnPAR(CAutoIni* ini, CProjPath* projekt, int program) {
    constexpr int ritprogram = 0;
    constexpr int stenprogram = 1;
    if (program == stenprogram) {
        kvarn::ParKind const& kind = kvarn::stenPar;
        Las(kind.OwnFile(projekt), ini, *kind.name, kind.program);
    } else if (program == ritprogram) {
        CKvarnPAR const readAndForgotten(ini, projekt);
    }
}

CKvarnPAR::~CKvarnPAR() = default;

void CKvarnPAR::Las(CString const& projektfil, CAutoIni const* ini, char const* namn,
                    char const* program) {
    kvarn::ParFile const file = {kvarn::FirstFound(projektfil, ini, namn), program};
    m_filnamn = file.path;
    kvarn::KeyFileRead const result =
        kvarn::ReadKeyFile(*this, m_filnamn, kvarn::Presence::expected);
    m_incomplete = result != kvarn::KeyFileRead::whole;
    if (result == kvarn::KeyFileRead::notOpened) {
        file.TellCannotRead();
    }
}

CString CKvarnPAR::GetParFilNamn() {
    return m_filnamn;
}

int CKvarnPAR::FindKey(CString key) {
    return kvarn::FindKeyRecord(*this, key.GetString());
}
int CKvarnPAR::FindKey(char const* key) {
    return FindKey(CString(key));
}

CString CKvarnPAR::ReadKey(CString key) {
    return kvarn::ReadKeyRecord(*this, key.GetString());
}
CString CKvarnPAR::ReadKey(char const* key) {
    return ReadKey(CString(key));
}

int CKvarnPAR::WriteKey(CString key, CString value) {
    if (kvarn::SetKeyRecord(*this, key.GetString(), value.GetString()) != 0) {
        return -1;
    }
    kvarn::Rewritten const result = kvarn::WriteKeyFile(*this, m_filnamn, m_incomplete);
    if (result == kvarn::Rewritten::cannotOpen) {
        kvarn::DesktopMessage(
            kvarn::Format("Could not open file for write\n%s", m_filnamn.GetString()).c_str(),
            "Update Markvida Settings");
    }
    return result == kvarn::Rewritten::done ? 0 : -1;
}

int CKvarnPAR::WriteKey(char const* key, char const* value) {
    return WriteKey(CString(key), CString(value));
}
