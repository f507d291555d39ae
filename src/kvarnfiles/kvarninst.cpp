// CKvarnInst: the object itself and the keys of the settings files.
#include <algorithm>
#include <clocale>
#include <cstring>
#include <iterator>

#include "../compat/englishlocale.h"
#include "../host/clienttext.h"
#include "../text/format.h"
#include "../text/scan.h"
#include "../text/text.h"
#include "codepass.h"
#include "defaults.h"
#include "jb23write.h"
#include "keychanges.h"
#include "kvarninst.h"
#include "parfile.h"

namespace {

bool Named(char const* file, char const* name) {
    return kvarn::SameText(file, name);
}

// Null for any other file.
kvarn::ParKind const* ParKindOf(char const* file) {
    return Named(file, CProjPath::KvarnParNamn)  ? &kvarn::kvarnPar
           : Named(file, CProjPath::StenParNamn) ? &kvarn::stenPar
                                                 : nullptr;
}

bool DecimalIsPoint() {
    return std::strcmp(std::localeconv()->decimal_point, ".") == 0;
}

} // namespace

CKvarnInst::CKvarnInst() = default;

CKvarnInst::CKvarnInst(CKvarnInst const& other)
    : m_ini(other.m_ini), m_proj(other.m_proj), m_fil(kvarn::Share(other.m_fil)) {
    std::copy(std::begin(other.m_notRead), std::end(other.m_notRead), m_notRead);
}

CKvarnInst& CKvarnInst::operator=(CKvarnInst const& other) {
    if (this != &other) {
        kvarn::Release(m_fil);
        m_ini = other.m_ini;
        m_proj = other.m_proj;
        m_fil = kvarn::Share(other.m_fil);
        std::copy(std::begin(other.m_notRead), std::end(other.m_notRead), m_notRead);
    }
    return *this;
}

CKvarnInst::~CKvarnInst() {
    kvarn::Release(m_fil);
}

int CKvarnInst::Init(CAutoIni* ini, CProjPath* projekt) {
    m_ini = ini;
    m_proj = projekt;
    return 0;
}

CAutoIni* CKvarnInst::AiniPtr() const {
    return m_ini;
}

void CKvarnInst::GetAiniProjPath(CAutoIni** ini, CProjPath** projekt) const {
    *ini = m_ini;
    *projekt = m_proj;
}

CString CKvarnInst::Default(char const* file, CString key) {
    for (kvarn::KeyDefault const& row : kvarn::DefaultsOf(file)) {
        if (kvarn::SameText(row.nyckel, key.GetString())) {
            return row.varde;
        }
    }
    return {};
}

CString CKvarnInst::ReadKey(char const* file, CString key) {
    CString value;
    if (kvarn::ParKind const* const kind = ParKindOf(file)) {
        value = kind->ReadKey(m_ini, m_proj, key.GetString());
    } else if (Named(file, CProjPath::Jb23ParNamn)) {
        value = Jb23ReadKey(key);
    }
    return value.IsEmpty() ? Default(file, key) : value;
}

CString CKvarnInst::ReadKey(char const* file, char const* key) {
    return ReadKey(file, CString(key));
}

int CKvarnInst::ReadKeyInt(char const* file, char const* key, int defaultOnly) {
    constexpr int noNumber = -9;
    constexpr int unlimited = -1;
    CString const text = defaultOnly != 0 ? Default(file, key) : ReadKey(file, key);
    if (kvarn::SameText(text.GetString(), "MAX")) {
        return unlimited;
    }
    std::int32_t value = 0;
    return kvarn::Scan(text.GetString(), value) == 1 ? value : noNumber;
}

double CKvarnInst::ReadKeyDouble(char const* file, char const* key, int defaultOnly) {
    constexpr double noNumber = -9.0;
    CString const text = defaultOnly != 0 ? Default(file, key) : ReadKey(file, key);
    double value = 0.0;
    return kvarn::Scan(text.GetString(), value) == 1 ? value : noNumber;
}

int CKvarnInst::WriteKey(char const* file, CString key, CString value) {
    kvarn::KeyChange const change = {key.GetString(), value.GetString()};
    if (kvarn::ParKind const* const kind = ParKindOf(file)) {
        return kind->WriteKeys(m_ini, m_proj, {&change, 1});
    }
    bool const unread = Named(file, CProjPath::Jb23ParNamn) &&
                        kvarn::WriteJb23(m_proj, m_ini, {&change, 1}) == kvarn::Jb23Written::unread;
    return unread ? -1 : 0;
}

int CKvarnInst::WriteKeys(char const* file, nyckelvarde* nycklar, int antal) {
    kvarn::ClientKeys const keys = kvarn::ClientKeysOf(nycklar, antal);
    if (keys.empty()) {
        return 0;
    }
    auto const changes = kvarn::ChangesOf(keys);
    if (kvarn::ParKind const* const kind = ParKindOf(file)) {
        return kvarn::TellEach(keys, kind->WriteKeys(m_ini, m_proj, changes));
    }
    bool const failed = Named(file, CProjPath::Jb23ParNamn) &&
                        kvarn::WriteJb23(m_proj, m_ini, changes) != kvarn::Jb23Written::done;
    return kvarn::TellEach(keys, failed ? -1 : 0, [](kvarn::KeyChange const&) { return true; });
}

int CKvarnInst::WriteKey(char const* file, CString key, int value) {
    constexpr int unlimited = -1;
    bool const max = value == unlimited && key.Find("SKALA") >= 0;
    return WriteKey(file, key, max ? CString("MAX") : kvarn::ToCString(kvarn::Format("%d", value)));
}

int CKvarnInst::WriteKey(char const* file, CString key, double value, int decimals) {
    return WriteKey(file, key, kvarn::ToCString(kvarn::Format("%.*lf", decimals, value)));
}

int CKvarnInst::LocaleCheckAndFix() {
    if (DecimalIsPoint()) {
        return 0;
    }
    std::setlocale(LC_NUMERIC, kvarn::englishLocale);
    return DecimalIsPoint() ? 0 : -1;
}
