#include "kvarncfg.h"

#include "../core/messageout.h"
#include "../files/textfil.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "keyrecords.h"
#include "parfile.h"

template class KVARNPROG_LIST_DEFINE list0<cfgtype>;

CKvarnCFG::CKvarnCFG(CAutoIni* ini) {
    Init("Kvarnbok", kvarn::KvarnCfgPath(*ini));
}

CKvarnCFG::CKvarnCFG(char const* program, char const* path) {
    Init(program, path);
}

CKvarnCFG::~CKvarnCFG() = default;

int CKvarnCFG::Init(char const* program, char const* path) {
    m_filnamn = path;
    kvarn::TextReader file(m_filnamn);
    kvarn::ReadKeys(*this, file);
    m_incomplete = file.Incomplete();
    if (file.Refused()) {
        kvarn::DesktopMessage(kvarn::Format("Kan inte öppna CFG-filen\n%s\nAvbryter läsning!"_1252,
                                            m_filnamn.GetString())
                                  .c_str(),
                              kvarn::Format("Läsning av %s - konfigurering"_1252, program).c_str());
    }
    return 0;
}

int CKvarnCFG::FindKey(CString key) {
    return kvarn::FindKeyRecord(*this, key.GetString());
}
int CKvarnCFG::FindKey(char const* key) {
    return FindKey(CString(key));
}

CString CKvarnCFG::ReadKey(CString key) {
    return kvarn::ReadKeyRecord(*this, key.GetString());
}
CString CKvarnCFG::ReadKey(char const* key) {
    return ReadKey(CString(key));
}

int CKvarnCFG::WriteKey(CString key, CString value) {
    if (kvarn::SetKeyRecord(*this, key.GetString(), value.GetString()) != 0) {
        return -1;
    }
    return Skriv();
}

int CKvarnCFG::WriteKey(char const* key, char const* value) {
    return WriteKey(CString(key), CString(value));
}

int CKvarnCFG::WriteKeys(nyckelvarde* nycklar, int antal) {
    return kvarn::WriteKeyRecords(*this, kvarn::ClientKeysOf(nycklar, antal),
                                  [this] { return Skriv(); });
}

int CKvarnCFG::Skriv() {
    kvarn::Rewritten const result =
        kvarn::RewriteKeyFile(m_filnamn, m_incomplete, kvarn::KeyFileText(*this));
    return result == kvarn::Rewritten::done ? 0 : -1;
}
