// CAutoIni at the first start of a user, and at every later one: from the installation to the
// user's own settings folder.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "../compat/codepage.h"
#include "../compat/shell.h"
#include "../core/format.h"
#include "../core/messageout.h"
#include "../core/scan.h"
#include "../core/text.h"
#include "anvandarmiljo.h"
#include "autoini.h"
#include "installation.h"
#include "systemnycklar.h"

namespace {

using kvarn::Anvandarmiljo;
using kvarn::Uppstart;

// The release that the user last chose in the project archive program; the other one given where
// that is no number.
std::int32_t ValdUtgava(std::int32_t annars) {
    constexpr char const* samlaren = "SOFTWARE\\Orsakor\\Vallentra\\Markvida\\Samlaren";
    std::int32_t utgava = annars;
    kvarn::Scan(kvarn::LasRegistret(HKEY_CURRENT_USER, samlaren, "ACADVER", "20").GetString(),
                utgava);
    return utgava;
}

// The keys that may tell where the program is installed, in the order in which they are asked.
std::vector<std::string> Installationsnycklar(std::int32_t utgava, bool allmanna, char const* sub) {
    std::vector<std::string> grupper;
    if (allmanna) {
        grupper = {"DIST", "RELEASE"};
    }
    if (std::string const katalog = kvarn::Utgavekatalog(utgava); !katalog.empty()) {
        grupper.push_back(katalog);
    }
    for (std::string& grupp : grupper) {
        grupp =
            kvarn::Format("SOFTWARE\\Wow6432Node\\%s\\%s\\%s", kvarn::programkatalog, grupp, sub);
    }
    return grupper;
}

CString InstallPath(std::string const& nyckel) {
    return kvarn::LasRegistret(HKEY_LOCAL_MACHINE, nyckel.c_str(), "InstallPath");
}

// A release that is asked for: wherever it is installed.
std::optional<std::int32_t> SokUtgava(CAutoIni& ini, std::int32_t utgava, char const* sub) {
    bool const allmanna = utgava == kvarn::senasteUtgava;
    for (std::string const& nyckel : Installationsnycklar(utgava, allmanna, sub)) {
        CString const katalog = InstallPath(nyckel);
        if (!kvarn::ArSaknad(katalog)) {
            ini.m_huvudKat = katalog;
            return utgava;
        }
    }
    return std::nullopt;
}

// The folder of the running program, by the process's command line, in capitals.
std::string KorandeKatalog() {
    std::string text = GetCommandLineA();
    int antal = 0;
    LPWSTR* const argument = CommandLineToArgvW(GetCommandLineW(), &antal);
    LocalFree(argument);
    if (antal > 1) {
        constexpr std::string_view exe = ".EXE";
        text.erase(0, text.find_first_not_of('"'));
        ToUpperNordic(text.data());
        std::size_t const slut = text.find(exe);
        text.resize(slut == std::string::npos ? text.size() : slut + exe.size());
    }
    return kvarn::SplitPathArgument(text).folder;
}

// The release that the running program belongs to: an installation in its folder.
std::optional<std::int32_t> SokEgenUtgava(CAutoIni& ini, bool katalogenOver, char const* sub,
                                          char const* dir) {
    std::string katalog = dir != nullptr ? dir : KorandeKatalog();
    if (dir == nullptr && katalogenOver) {
        katalog.resize(std::min(katalog.size(), katalog.rfind('\\')));
    }
    ini.m_huvudKat = katalog.c_str();
    std::int32_t const utgava = ValdUtgava(kvarn::senasteUtgava);
    for (std::string const& nyckel : Installationsnycklar(utgava, true, sub)) {
        CString const installerad = InstallPath(nyckel);
        std::string_view utanSlut = installerad.GetString();
        utanSlut.remove_suffix(utanSlut.ends_with('\\') ? 1 : 0);
        if (kvarn::SameText(utanSlut, katalog)) {
            CString const paket =
                kvarn::LasRegistret(HKEY_LOCAL_MACHINE, nyckel.c_str(), "Package", "");
            kvarn::CopyText(ini.m_paket, sizeof ini.m_paket, paket.GetString());
            return utgava;
        }
    }
    return std::nullopt;
}

// As the switcher's own boxes look.
void VarnaOmVaxling(std::string const& text) {
    kvarn::DesktopMessage(text.c_str(), "IniProfile");
}

// Starts a program and waits until it ends. False when it cannot be started.
bool Kor(std::string const& program) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(program.c_str(), nullptr, nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE,
                       nullptr, nullptr, &start, &process) == FALSE) {
        return false;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

// Lets the configuration switcher make the user's settings. True when it ran.
bool KorVaxlaren(std::string const& huvudKat) {
    std::string const program = kvarn::PathOf(huvudKat, "Markvida.ConfigSwitcher.exe");
    if (!kvarn::FileExists(program.c_str())) {
        VarnaOmVaxling(kvarn::Format("Can not find Markvida.ConfigSwitcher.exe:\n%s", program));
        return false;
    }
    if (!Kor(program)) {
        VarnaOmVaxling("Installation error, can not start Markvida.ConfigSwitcher.exe");
        return false;
    }
    return true;
}

// What the installation did before there was a switcher.
Uppstart HamtaUtanVaxlare(Anvandarmiljo const& miljo) {
    if (!miljo.HarIni()) {
        VarnaOmVaxling("Can not find result from Markvida.ConfigSwitcher.exe");
    }
    VarnaOmVaxling("Markvida.ConfigSwitcher did not set data. \nI will do it the old way "
                   "(prior to 15.3.*)");
    Uppstart const hamtade = miljo.HamtaFranGemensamma();
    if (hamtade == kvarn::klar && !miljo.HarIni()) {
        kvarn::Varna("Fel! Hittar inte kunde inte skapa Markvida.ini under den lokala "
                     "användaren!"_1252);
        return kvarn::ingenIniFil;
    }
    return hamtade;
}

// What the user's new settings begin with.
void Inled(CAutoIni& ini, kvarn::Reservkataloger const& reserv, std::int32_t utgava) {
    auto const skriv = [&](char const* nyckel, CString const& varde) {
        ini.WriteKey(kvarn::systemSektion, nyckel, varde);
    };
    skriv("MSG", reserv.meddelanden.c_str());
    if (kvarn::LasKatalognyckel(ini, "SCRIPTPATH").IsEmpty()) {
        skriv("SCRIPTPATH", reserv.script.c_str());
    }
    skriv("ACADVER", std::to_string(utgava).c_str());
    if (utgava == 19 || utgava == 20) {
        skriv("ACADEXE", ini.ReadKey(kvarn::systemSektion, utgava == 19 ? "ACADEXEB" : "ACADEXEA"));
    }
}

} // namespace

int CAutoIni::InitXPWay(int ver, char const* sub, char const* dir) {
    bool const egen = ver == 0 || ver == 1;
    sub = sub != nullptr ? sub : "";
    m_lage = egen ? 0 : 1;
    m_paket[0] = '\0';
    std::optional<std::int32_t> const funnen =
        egen ? SokEgenUtgava(*this, ver == 1, sub, dir) : SokUtgava(*this, ver, sub);
    if (!funnen) {
        return kvarn::ingenInstallation;
    }
    std::int32_t utgava = *funnen;
    m_cfgKat = m_huvudKat;

    Anvandarmiljo miljo(sub);
    auto const valj = [&] {
        miljo.ValjUtgava(utgava);
        if (!miljo.Katalog().empty()) {
            m_cfgKat = miljo.Katalog().c_str();
        }
    };
    valj();
    if (Uppstart const hamtade = miljo.HamtaFranAldre(); hamtade != kvarn::klar) {
        return hamtade;
    }
    bool const ny = !miljo.HarIni();
    if (ny && ver != 0) {
        kvarn::Varna("Fel! Hittar inte data för Markvida för aktuell användare. "
                     "Starta upp via Samlaren!"_1252);
        return kvarn::ingaAnvandardata;
    }
    if (ny) {
        bool const korde = KorVaxlaren(m_huvudKat.GetString());
        if (korde) {
            utgava = ValdUtgava(utgava);
            valj();
        }
        if (!korde || !miljo.HarIni()) {
            Uppstart const hamtade = HamtaUtanVaxlare(miljo);
            if (hamtade != kvarn::klar) {
                return hamtade;
            }
        }
    }

    m_iniFil = miljo.Ini().c_str();
    if (ver == 0) {
        m_lage = 1;
    } else {
        kvarn::StyrOmProfil(miljo.Ini());
    }
    kvarn::Reservkataloger const reserv = {miljo.Programkatalog("Kvarnbok.msg"),
                                           miljo.Programkatalog()};
    if (ny) {
        Inled(*this, reserv, utgava);
    }
    kvarn::LasSystemnycklar(*this, &reserv);
    return kvarn::klar;
}
