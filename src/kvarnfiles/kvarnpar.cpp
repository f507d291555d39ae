#include "kvarnpar.h"

#include "../core/messageout.h"
#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "nyckelfil.h"
#include "oppningsfel.h"

template class KVARNPROG_LIST_DEFINE list0<partype>;

CKvarnPAR::CKvarnPAR(CAutoIni* ini, CProjPath* projekt) {
    Las(projekt != nullptr ? projekt->m_kvarnPar : CString(), ini, CProjPath::KvarnParNamn,
        "Kvarnbok");
}

CKvarnPAR::CKvarnPAR(CAutoIni* ini, CProjPath* projekt, int program) {
    constexpr int ritprogram = 0;
    constexpr int stenprogram = 1;
    if (program == stenprogram) {
        Las(projekt != nullptr ? projekt->m_stenPar : CString(), ini, CProjPath::StenParNamn,
            "Klippbok");
    } else if (program == ritprogram) {
        CKvarnPAR const lastOchGlomd(ini, projekt);
    }
}

CKvarnPAR::~CKvarnPAR() = default;

void CKvarnPAR::Las(CString const& projektfil, CAutoIni const* ini, char const* namn,
                    char const* program) {
    m_filnamn = kvarn::FirstFound(projektfil, ini, namn);
    kvarn::Inlasning const resultat = kvarn::LasNyckelfil(*this, m_filnamn);
    m_ofullstandig = resultat != kvarn::Inlasning::hel;
    if (resultat == kvarn::Inlasning::gickEjAttOppna) {
        kvarn::KanInteLasa(m_filnamn,
                           kvarn::Format("Läsning av %s - inställningar"_1252, program).c_str());
    }
}

CString CKvarnPAR::GetParFilNamn() {
    return m_filnamn;
}

int CKvarnPAR::FindKey(CString key) {
    return kvarn::SokNyckel(*this, key.GetString());
}
int CKvarnPAR::FindKey(char const* key) {
    return FindKey(CString(key));
}

CString CKvarnPAR::ReadKey(CString key) {
    return kvarn::LasNyckel(*this, key.GetString());
}
CString CKvarnPAR::ReadKey(char const* key) {
    return ReadKey(CString(key));
}

int CKvarnPAR::WriteKey(CString key, CString value) {
    if (kvarn::SattNyckel(*this, key.GetString(), value.GetString()) != 0) {
        return -1;
    }
    kvarn::Rewritten const resultat = kvarn::SkrivNyckelfil(*this, m_filnamn, m_ofullstandig);
    if (resultat == kvarn::Rewritten::cannotOpen) {
        kvarn::DesktopMessage(
            kvarn::Format("Could not open file for write\n%s", m_filnamn.GetString()).c_str(),
            "Update Markvida Settings");
    }
    return resultat == kvarn::Rewritten::done ? 0 : -1;
}

int CKvarnPAR::WriteKey(char const* key, char const* value) {
    return WriteKey(CString(key), CString(value));
}
