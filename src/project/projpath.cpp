#include "projpath.h"

#include "../core/messageout.h"
#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../text/format.h"

namespace {

// The pointers may be changed, the names that they start with may not.
constexpr char* Namn(char const* namn) {
    return const_cast<char*>(namn);
}

CString Sokvag(CString const& katalog, char const* namn) {
    return kvarn::PathOf(katalog.GetString(), namn).c_str();
}

} // namespace

constinit char* CProjPath::KvarnDbsNamn = Namn("KVARNBOK.DBS");
constinit char* CProjPath::KvarnDbkNamn = Namn("KVARNBOK.DBK");
constinit char* CProjPath::StenDbsNamn = Namn("KLIPPBOK.DBS");
constinit char* CProjPath::StenDbkNamn = Namn("KLIPPBOK.DBK");
constinit char* CProjPath::FaltverkDbsNamn = Namn("FALTVERK.GDS");
constinit char* CProjPath::FaltverkDbkNamn = Namn("FALTVERK.GDK");
constinit char* CProjPath::TerrDbsNamn = Namn("SKOGSBOK.TDS");
constinit char* CProjPath::UtvDbsNamn = Namn("KVARNUTV.DBS");
constinit char* CProjPath::UtvDbkNamn = Namn("KVARNUTV.DBK");
constinit char* CProjPath::KvarnDbfKat = Namn("KVARNBOK.DBF");
constinit char* CProjPath::PostDbfKat = Namn("SKOGSBOK.DBF");
constinit char* CProjPath::StackKat = Namn("STACK");
constinit char* CProjPath::StabRitKat = Namn("DAMMSBOK.RIT");
constinit char* CProjPath::KvarnRitKat = Namn("KVARNBOK.RIT");
constinit char* CProjPath::StenRitKat = Namn("KLIPPBOK.RIT");
constinit char* CProjPath::StenDbfKat = Namn("KLIPPBOK.DBF");
constinit char* CProjPath::PostRitKat = Namn("SKOGSBOK.RIT");
constinit char* CProjPath::FaltverkRitKat = Namn("FALTVERK.RIT");
constinit char* CProjPath::FaltverkDbfKat = Namn("FALTVERK.DBF");
constinit char* CProjPath::Pictures = Namn("Pictures");
constinit char* CProjPath::KvarnZipNamn = Namn("KVARNBOK.ZIP");
constinit char* CProjPath::KvarnAvpNamn = Namn("KVARNBOK.AVP");
constinit char* CProjPath::KvarnVlNamn = Namn("KVARNBOK.VL");
constinit char* CProjPath::KvarnParNamn = Namn("KVARNBOK.PAR");
constinit char* CProjPath::KvarnCfgNamn = Namn("KVARNBOK.CFG");
constinit char* CProjPath::RamvalNamn = Namn("RAMVAL.DAT");
constinit char* CProjPath::StenVlNamn = Namn("KLIPPBOK.VL");
constinit char* CProjPath::Jb23ParNamn = Namn("JB23.PAR");
constinit char* CProjPath::Kodfil = Namn("KODFIL.DAT");
constinit char* CProjPath::Miljkod = Namn("MILJKOD.DAT");
constinit char* CProjPath::Linkod = Namn("LINKOD.PAR");
constinit char* CProjPath::Gvrref = Namn("Gvrref.dat");
constinit char* CProjPath::StenParNamn = Namn("KLIPPBOK.PAR");

CProjPath::CProjPath() = default;
CProjPath::CProjPath(CProjPath const&) = default;
CProjPath& CProjPath::operator=(CProjPath const&) = default;
CProjPath::~CProjPath() = default;

int CProjPath::SetPath(char const* folder) {
    m_projKat = folder;
    m_zip = Sokvag(m_projKat, KvarnZipNamn);
    m_kvarnDbs = Sokvag(m_projKat, KvarnDbsNamn);
    m_faltverkDbs = Sokvag(m_projKat, FaltverkDbsNamn);
    m_terrDbs = Sokvag(m_projKat, TerrDbsNamn);
    m_stenDbs = Sokvag(m_projKat, StenDbsNamn);
    m_utvDbs = Sokvag(m_projKat, UtvDbsNamn);
    m_kvarnDbf = Sokvag(m_projKat, KvarnDbfKat);
    m_kvarnRit = Sokvag(m_projKat, KvarnRitKat);
    m_stack = Sokvag(m_projKat, StackKat);
    m_postDbf = Sokvag(m_projKat, PostDbfKat);
    m_postRit = Sokvag(m_projKat, PostRitKat);
    m_stabRit = Sokvag(m_projKat, StabRitKat);
    m_pictures = Sokvag(m_projKat, Pictures);
    m_kvarnAvp = Sokvag(m_kvarnDbf, KvarnAvpNamn);
    m_kvarnVl = Sokvag(m_kvarnDbf, KvarnVlNamn);
    m_kvarnPar = Sokvag(m_projKat, KvarnParNamn);
    m_stenPar = Sokvag(m_projKat, StenParNamn);
    return 0;
}

int CProjPath::CreateFolder(CString path, int visaFel) {
    if (kvarn::MakeFolder(path)) {
        return 1;
    }
    char const* const text =
        kvarn::ToMessageBuffer(kvarn::Format("Fel, kan EJ skapa katalog:\n%s", path.GetString()));
    if (visaFel != 0) {
        MessageOut(text, kvarn::messageOk, kvarn::messageExclamation, nullptr);
    }
    return 0;
}
