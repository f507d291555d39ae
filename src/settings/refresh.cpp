// CAutoIni after start-up: newer files reach the user's settings folder, and a configuration folder
// is filled from it.
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "../core/registry.h"
#include "../files/existence.h"
#include "../files/filecopy.h"
#include "../files/pathparts.h"
#include "../host/calls.h"
#include "../text/letters.h"
#include "autoini.h"
#include "installation.h"
#include "systemnycklar.h"

namespace {

// A configuration folder that holds this file is filled.
constexpr char const* fylldMarke = "Kvarnbok.par";

// Where the settings folder of an INI file lies, by fixed widths:
// ...\R20\AX\Markvida.ini.
class Platser {
  public:
    explicit Platser(std::string_view iniFil) {
        constexpr std::size_t iniBredd = 13; // with the backslash before it
        constexpr std::size_t programBredd = 2;
        constexpr std::size_t utgaveBredd = 3;
        Kapa(iniFil, iniBredd);
        m_program = Kapa(iniFil, programBredd);
        Kapa(iniFil, 1);
        m_utgava = Kapa(iniFil, utgaveBredd);
    }

    // False for a path that is too short for the widths.
    bool Kanda() const { return !m_program.empty() && !m_utgava.empty(); }

    // The user's settings folder.
    std::string Egen() const {
        return kvarn::PathOf(kvarn::PathOf(Programkatalog(kvarn::Anvandardata()), m_utgava),
                             m_program);
    }
    std::string Gemensam() const {
        return kvarn::PathOf(Programkatalog(kvarn::Gemensamdata()), m_program);
    }

  private:
    std::string m_program;
    std::string m_utgava;

    // Takes the last characters off a path; all or none.
    static std::string Kapa(std::string_view& path, std::size_t bredd) {
        std::string_view const slut =
            path.size() >= bredd ? path.substr(path.size() - bredd) : std::string_view();
        path.remove_suffix(slut.empty() ? path.size() : bredd);
        return std::string(slut);
    }
    static std::string Programkatalog(CString const& data) {
        return kvarn::PathOf(data.GetString(), kvarn::programkatalog);
    }
};

// Seconds since 1601; nothing for a file that is not there.
std::optional<std::uint64_t> Andrad(std::string const& fil) {
    constexpr std::uint64_t perSekund = 10'000'000;
    WIN32_FILE_ATTRIBUTE_DATA status{};
    if (GetFileAttributesExA(fil.c_str(), GetFileExInfoStandard, &status) == FALSE) {
        return std::nullopt;
    }
    FILETIME const& tid = status.ftLastWriteTime;
    return (std::uint64_t{tid.dwHighDateTime} << 32U | tid.dwLowDateTime) / perSekund;
}

// Copies a file unless there is one that is as new. A copy that fails is let be.
void KopieraNyare(std::string const& fran, std::string const& till) {
    std::optional<std::uint64_t> const kalla = Andrad(fran);
    std::optional<std::uint64_t> const mal = Andrad(till);
    if (kalla && (!mal || *kalla > *mal)) {
        kvarn::CopyWhole(fran.c_str(), till.c_str(), kvarn::Existing::replaced);
    }
}

template <class Villkor>
void KopieraNyare(std::string const& fran, std::string const& till, Villkor ska) {
    for (std::string const& namn : kvarn::FilerI(fran, fylldMarke)) {
        std::string versaler = namn;
        ToUpperNordic(versaler.data());
        if (ska(versaler)) {
            KopieraNyare(kvarn::PathOf(fran, namn), kvarn::PathOf(till, namn));
        }
    }
}

// The files that a configuration folder is filled with: anywhere in the name, so that a
// PLAN.DAT.BAK counts too.
bool HorTillKonfigurationen(std::string const& versaler) {
    constexpr std::array<char const*, 6> delar = {".SDF", ".XML", ".DAT", ".CFG", ".KAL", ".PAR"};
    return versaler != "SAMLAREN.DAT" &&
           std::any_of(delar.begin(), delar.end(),
                       [&](char const* del) { return versaler.find(del) != std::string::npos; });
}

// The platform's own folder; "Saknas" where none is registered.
CString Plattformskatalog(CAutoIni& ini) {
    CString version = ini.ReadKey(kvarn::systemSektion, "VALLENTRAVER");
    version = version.IsEmpty() ? CString("18.30") : version;
    std::string const nyckel =
        std::string("SOFTWARE\\Orsakor\\Vallentra\\") + version.GetString() + "\\Kernel Services";
    CRegistry register_;
    register_.SetRootKey(HKEY_LOCAL_MACHINE);
    return register_.ReadStringKey3264(nyckel.c_str(), "Root Directory", kvarn::saknad);
}

} // namespace

int CAutoIni::AllUserFileCheck() {
    Platser const platser(m_iniFil.GetString());
    if (!platser.Kanda() || !kvarn::FileExists(platser.Egen().c_str())) {
        return -1;
    }
    KopieraNyare(platser.Gemensam(), platser.Egen(), [](std::string const& versaler) {
        return versaler != "MARKVIDA.INI"; // the user's own settings
    });

    CString const plattform = Plattformskatalog(*this);
    if (kvarn::ArSaknad(plattform)) {
        return -1;
    }
    CString const program = kvarn::LasRegistret(
        HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\CurrentVersion", "ProgramFilesDir");
    KopieraNyare(kvarn::PathOf(program.GetString(), "Orsakor\\Binaries"),
                 kvarn::PathOf(plattform.GetString(), "Binaries"),
                 [](std::string const&) { return true; });
    return 0;
}

int CAutoIni::User2Cfg(CString& dir) {
    std::string const katalog = dir.GetString();
    if (!kvarn::FileExists(katalog.c_str())) {
        return -1;
    }
    Platser const platser(m_iniFil.GetString());
    bool const fylld = kvarn::FileExists(kvarn::PathOf(katalog, fylldMarke).c_str());
    if (!fylld && platser.Kanda()) {
        KopieraNyare(platser.Egen(), katalog, HorTillKonfigurationen);
    }
    return 0;
}
