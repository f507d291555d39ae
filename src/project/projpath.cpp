#include "projpath.h"

#include "../core/messageout.h"
#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../host/clienttext.h"
#include "../text/format.h"

namespace {

// Clients may change the pointers, but not the names that the pointers start with.
constexpr char* Name(char const* name) {
    return const_cast<char*>(name);
}

CString PathIn(CString const& folder, char const* name) {
    return kvarn::ToCString(kvarn::PathOf(folder.GetString(), name));
}

} // namespace

constinit char* CProjPath::KvarnDbsNamn = Name("KVARNBOK.DBS");
constinit char* CProjPath::KvarnDbkNamn = Name("KVARNBOK.DBK");
constinit char* CProjPath::StenDbsNamn = Name("KLIPPBOK.DBS");
constinit char* CProjPath::StenDbkNamn = Name("KLIPPBOK.DBK");
constinit char* CProjPath::FaltverkDbsNamn = Name("FALTVERK.GDS");
constinit char* CProjPath::FaltverkDbkNamn = Name("FALTVERK.GDK");
constinit char* CProjPath::TerrDbsNamn = Name("SKOGSBOK.TDS");
constinit char* CProjPath::UtvDbsNamn = Name("KVARNUTV.DBS");
constinit char* CProjPath::UtvDbkNamn = Name("KVARNUTV.DBK");
constinit char* CProjPath::KvarnDbfKat = Name("KVARNBOK.DBF");
constinit char* CProjPath::PostDbfKat = Name("SKOGSBOK.DBF");
constinit char* CProjPath::StackKat = Name("STACK");
constinit char* CProjPath::StabRitKat = Name("DAMMSBOK.RIT");
constinit char* CProjPath::KvarnRitKat = Name("KVARNBOK.RIT");
constinit char* CProjPath::StenRitKat = Name("KLIPPBOK.RIT");
constinit char* CProjPath::StenDbfKat = Name("KLIPPBOK.DBF");
constinit char* CProjPath::PostRitKat = Name("SKOGSBOK.RIT");
constinit char* CProjPath::FaltverkRitKat = Name("FALTVERK.RIT");
constinit char* CProjPath::FaltverkDbfKat = Name("FALTVERK.DBF");
constinit char* CProjPath::Pictures = Name("Pictures");
constinit char* CProjPath::KvarnZipNamn = Name("KVARNBOK.ZIP");
constinit char* CProjPath::KvarnAvpNamn = Name("KVARNBOK.AVP");
constinit char* CProjPath::KvarnVlNamn = Name("KVARNBOK.VL");
constinit char* CProjPath::KvarnParNamn = Name("KVARNBOK.PAR");
constinit char* CProjPath::KvarnCfgNamn = Name("KVARNBOK.CFG");
constinit char* CProjPath::RamvalNamn = Name("RAMVAL.DAT");
constinit char* CProjPath::StenVlNamn = Name("KLIPPBOK.VL");
constinit char* CProjPath::Jb23ParNamn = Name("JB23.PAR");
constinit char* CProjPath::Kodfil = Name("KODFIL.DAT");
constinit char* CProjPath::Miljkod = Name("MILJKOD.DAT");
constinit char* CProjPath::Linkod = Name("LINKOD.PAR");
constinit char* CProjPath::Gvrref = Name("Gvrref.dat");
constinit char* CProjPath::StenParNamn = Name("KLIPPBOK.PAR");

CProjPath::CProjPath() = default;
CProjPath::CProjPath(CProjPath const&) = default;
CProjPath& CProjPath::operator=(CProjPath const&) = default;
CProjPath::~CProjPath() = default;

int CProjPath::SetPath(char const* folder) {
    m_projKat = folder;
    m_zip = PathIn(m_projKat, KvarnZipNamn);
    m_kvarnDbs = PathIn(m_projKat, KvarnDbsNamn);
    m_faltverkDbs = PathIn(m_projKat, FaltverkDbsNamn);
    m_terrDbs = PathIn(m_projKat, TerrDbsNamn);
    m_stenDbs = PathIn(m_projKat, StenDbsNamn);
    m_utvDbs = PathIn(m_projKat, UtvDbsNamn);
    m_kvarnDbf = PathIn(m_projKat, KvarnDbfKat);
    m_kvarnRit = PathIn(m_projKat, KvarnRitKat);
    m_stack = PathIn(m_projKat, StackKat);
    m_postDbf = PathIn(m_projKat, PostDbfKat);
    m_postRit = PathIn(m_projKat, PostRitKat);
    m_stabRit = PathIn(m_projKat, StabRitKat);
    m_pictures = PathIn(m_projKat, Pictures);
    m_kvarnAvp = PathIn(m_kvarnDbf, KvarnAvpNamn);
    m_kvarnVl = PathIn(m_kvarnDbf, KvarnVlNamn);
    m_kvarnPar = PathIn(m_projKat, KvarnParNamn);
    m_stenPar = PathIn(m_projKat, StenParNamn);
    return 0;
}

int CProjPath::CreateFolder(CString path, int showError) {
    if (kvarn::MakeFolder(path)) {
        return 1;
    }
    char const* const text =
        kvarn::ToMessageBuffer(kvarn::Format("Fel, kan EJ skapa katalog:\n%s", path.GetString()));
    if (showError != 0) {
        kvarn::Notify(text);
    }
    return 0;
}
