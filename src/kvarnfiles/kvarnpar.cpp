#include "kvarnpar.h"

#include "keyrecords.h"
#include "parfile.h"

template class KVARNPROG_LIST_DEFINE list0<partype>;

CKvarnPAR::CKvarnPAR(CAutoIni* ini, CProjPath* projekt) {
    Las(kvarn::kvarnPar, ini, projekt);
}

CKvarnPAR::CKvarnPAR(CAutoIni* ini, CProjPath* projekt, int program) {
    constexpr int ritprogram = 0;
    constexpr int stenprogram = 1;
    if (program == stenprogram) {
        Las(kvarn::stenPar, ini, projekt);
    } else if (program == ritprogram) {
        CKvarnPAR const readAndForgotten(ini, projekt);
    }
}

CKvarnPAR::~CKvarnPAR() = default;

void CKvarnPAR::Las(kvarn::ParKind const& kind, CAutoIni const* ini, CProjPath const* projekt) {
    kvarn::TextReader file;
    m_filnamn = kind.Open(file, ini, projekt);
    kvarn::ReadKeys(*this, file);
    m_incomplete = file.Incomplete();
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
    return Skriv();
}

int CKvarnPAR::WriteKey(char const* key, char const* value) {
    return WriteKey(CString(key), CString(value));
}

int CKvarnPAR::WriteKeys(nyckelvarde* nycklar, int antal) {
    return kvarn::WriteKeyRecords(*this, kvarn::ClientKeysOf(nycklar, antal),
                                  [this] { return Skriv(); });
}

int CKvarnPAR::Skriv() {
    return kvarn::RewriteParFile(m_filnamn, m_incomplete, kvarn::KeyFileText(*this));
}
