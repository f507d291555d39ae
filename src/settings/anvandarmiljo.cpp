#include "anvandarmiljo.h"

#include "../core/messageout.h"
#include "../files/existence.h"
#include "../files/filecopy.h"
#include "../files/pathparts.h"
#include "../host/shell.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "installation.h"

namespace kvarn {
namespace {

void KopieraEn(std::string const& fran, std::string const& till) {
    if (!CopyWhole(fran.c_str(), till.c_str(), Existing::replaced)) {
        NotifyTitled(Format("Kunde inte kopiera filen:\n%s\ntill:\n%s", fran, till));
    }
}

// Markvida.ini comes last: once it is there, the folder counts as filled.
void KopieraAlla(std::string const& fran, std::string const& till) {
    for (std::string const& namn : FilerI(fran, iniNamn)) {
        KopieraEn(PathOf(fran, namn), PathOf(till, namn));
    }
}

// The same path under the name that the maker had before.
std::string MedAldreNamn(std::string text) {
    constexpr std::string_view nu = "Orsakor";
    constexpr std::string_view da = "Brinvik";
    static_assert(nu.size() == da.size());
    for (std::size_t i = text.find(nu); i != std::string::npos; i = text.find(nu, i)) {
        da.copy(&text[i], da.size());
    }
    return text;
}

// The user's application data, made where it is missing.
std::string Datakatalog() {
    CString const data = Anvandardata().Trim();
    if (!data.IsEmpty() && !ArSaknad(data)) {
        return data.GetString();
    }
    char katalog[MAX_PATH] = "";
    SHGetFolderPathA(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, katalog);
    return katalog;
}

} // namespace

std::string Utgavekatalog(std::int32_t utgava) {
    switch (utgava) {
    case 18:
        return "R18";
    case 19:
        return "R19";
    case senasteUtgava:
        return "R20";
    default:
        return "";
    }
}

Anvandarmiljo::Anvandarmiljo(std::string program)
    : m_data(Datakatalog()), m_program(std::move(program)) {}

void Anvandarmiljo::ValjUtgava(std::int32_t utgava) {
    std::string const namn = Utgavekatalog(utgava);
    if (!namn.empty() && !m_data.empty()) {
        m_utgavekatalog = Programkatalog(namn.c_str());
        m_katalog = PathOf(m_utgavekatalog, m_program);
        m_ini = PathOf(m_katalog, iniNamn);
    }
}

bool Anvandarmiljo::HarIni() const {
    return !m_ini.empty() && FileExists(m_ini.c_str());
}

std::string Anvandarmiljo::Programkatalog() const {
    return PathOf(m_data, programkatalog);
}

std::string Anvandarmiljo::Programkatalog(char const* fil) const {
    return PathOf(Programkatalog(), fil);
}

Uppstart Anvandarmiljo::HamtaFranAldre() const {
    std::string const aldreIni = MedAldreNamn(m_ini);
    bool const finns = !aldreIni.empty() && FileExists(aldreIni.c_str());
    return finns && !HarIni() ? Fyll(MedAldreNamn(m_katalog)) : klar;
}

Uppstart Anvandarmiljo::HamtaFranGemensamma() const {
    std::string const katalog =
        PathOf(PathOf(Gemensamdata().GetString(), programkatalog), m_program);
    std::string const ini = PathOf(katalog, iniNamn);
    if (!FileExists(ini.c_str())) {
        NotifyTitled(Format(
            "Fel! Hittar inte data för Markvida för All Users, felaktig installation?!\n%s"_1252,
            ini));
        return ingaGemensammaData;
    }
    return Fyll(katalog);
}

Uppstart Anvandarmiljo::Fyll(std::string const& fran) const {
    Uppstart const skapade = SkapaKataloger();
    if (skapade == klar) {
        KopieraAlla(fran, m_katalog);
    }
    return skapade;
}

Uppstart Anvandarmiljo::SkapaKataloger() const {
    std::string const huvudkatalog = PathOf(m_data, "Orsakor");
    if (m_data.empty() || !MakeFolder(huvudkatalog.c_str())) {
        NotifyTitled(Format("Kunde inte skapa applikationens huvudkatalog:\n%s", huvudkatalog));
        return ingenHuvudkatalog;
    }
    // Where one of these fails, so does the next.
    MakeFolder(PathOf(huvudkatalog, "Vallentra").c_str());
    MakeFolder(Programkatalog().c_str());
    for (std::string const& katalog : {m_utgavekatalog, m_katalog}) {
        if (!MakeFolder(katalog.c_str())) {
            NotifyTitled(Format("Kunde inte skapa lokala kataloger:\n%s", katalog));
            return ingenAnvandarkatalog;
        }
    }
    return klar;
}

} // namespace kvarn
