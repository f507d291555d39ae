// CAutoIni at the first start of a user, and at every later one: from the installation to the
// user's own settings folder.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "../core/messageout.h"
#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../host/shell.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "../text/scan.h"
#include "../text/text.h"
#include "anvandarmiljo.h"
#include "autoini.h"
#include "bootstrap.h"
#include "installation.h"
#include "systemnycklar.h"

namespace {

using kvarn::Anvandarmiljo;
using kvarn::BootstrapStep;
using Steps = std::vector<BootstrapStep>;
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

// The first of the keys that names an installation which is the one wanted; the steps tell of each
// that was asked.
template <class IsWanted>
BootstrapStep const* FindInstallation(std::vector<std::string> const& keys, IsWanted isWanted,
                                      Steps& steps) {
    for (std::string const& key : keys) {
        CString const path = kvarn::LasRegistret(HKEY_LOCAL_MACHINE, key.c_str(), "InstallPath");
        bool const none = kvarn::ArSaknad(path);
        BootstrapStep::Kind const kind = none ? BootstrapStep::noInstallation
                                         : isWanted(path.GetString())
                                             ? BootstrapStep::installation
                                             : BootstrapStep::otherInstallation;
        steps.push_back({kind, key, none ? "" : path.GetString()});
        if (kind == BootstrapStep::installation) {
            return &steps.back();
        }
    }
    return nullptr;
}

// A release that is asked for: wherever it is installed.
std::optional<std::int32_t> SokUtgava(CAutoIni& ini, std::int32_t utgava, char const* sub,
                                      Steps& steps) {
    bool const allmanna = utgava == kvarn::senasteUtgava;
    BootstrapStep const* const found = FindInstallation(
        Installationsnycklar(utgava, allmanna, sub), [](std::string_view) { return true; }, steps);
    if (found == nullptr) {
        return std::nullopt;
    }
    ini.m_huvudKat = found->value.c_str();
    return utgava;
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
                                          char const* dir, Steps& steps) {
    std::string katalog = dir != nullptr ? dir : KorandeKatalog();
    if (dir == nullptr && katalogenOver) {
        katalog.resize(std::min(katalog.size(), katalog.rfind('\\')));
    }
    ini.m_huvudKat = katalog.c_str();
    std::int32_t const utgava = ValdUtgava(kvarn::senasteUtgava);
    auto const isHere = [&](std::string_view path) {
        path.remove_suffix(path.ends_with('\\') ? 1 : 0);
        return kvarn::SameText(path, katalog);
    };
    BootstrapStep const* const found =
        FindInstallation(Installationsnycklar(utgava, true, sub), isHere, steps);
    if (found == nullptr) {
        return std::nullopt;
    }
    CString const paket =
        kvarn::LasRegistret(HKEY_LOCAL_MACHINE, found->place.c_str(), "Package", "");
    kvarn::CopyText(ini.m_paket, sizeof ini.m_paket, paket.GetString());
    return utgava;
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
        kvarn::NotifyTitled("Fel! Hittar inte kunde inte skapa Markvida.ini under den lokala "
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

int kvarn::Bootstrap(CAutoIni& ini, int ver, char const* sub, char const* dir,
                     std::vector<BootstrapStep>& steps) {
    bool const egen = ver == 0 || ver == 1;
    sub = sub != nullptr ? sub : "";
    ini.m_lage = egen ? 0 : 1;
    ini.m_paket[0] = '\0';
    std::optional<std::int32_t> const funnen =
        egen ? SokEgenUtgava(ini, ver == 1, sub, dir, steps) : SokUtgava(ini, ver, sub, steps);
    if (!funnen) {
        return ingenInstallation;
    }
    std::int32_t utgava = *funnen;
    ini.m_cfgKat = ini.m_huvudKat;

    Anvandarmiljo miljo(sub);
    auto const valj = [&] {
        miljo.ValjUtgava(utgava);
        if (!miljo.Katalog().empty()) {
            ini.m_cfgKat = miljo.Katalog().c_str();
        }
    };
    auto const tell = [&](BootstrapStep::Kind kind) { steps.push_back({kind, miljo.Ini(), ""}); };
    valj();
    bool const fanns = miljo.HarIni();
    if (Uppstart const hamtade = miljo.HamtaFranAldre(); hamtade != klar) {
        return hamtade;
    }
    bool const ny = !miljo.HarIni();
    if (ny && ver != 0) {
        tell(BootstrapStep::noSettings);
        NotifyTitled("Fel! Hittar inte data för Markvida för aktuell användare. "
                     "Starta upp via Samlaren!"_1252);
        return ingaAnvandardata;
    }
    if (!ny) {
        tell(fanns ? BootstrapStep::usersSettings : BootstrapStep::olderSettings);
    } else {
        bool const korde = KorVaxlaren(ini.m_huvudKat.GetString());
        if (korde) {
            utgava = ValdUtgava(utgava);
            valj();
        }
        bool const lamnade = korde && miljo.HarIni();
        tell(lamnade ? BootstrapStep::switcher : BootstrapStep::noSwitcher);
        if (!lamnade) {
            Uppstart const hamtade = HamtaUtanVaxlare(miljo);
            if (hamtade != klar) {
                return hamtade;
            }
            tell(BootstrapStep::sharedSettings);
        }
    }

    ini.m_iniFil = miljo.Ini().c_str();
    if (ver == 0) {
        ini.m_lage = 1;
    } else {
        StyrOmProfil(miljo.Ini());
    }
    Reservkataloger const reserv = {miljo.Programkatalog("Kvarnbok.msg"), miljo.Programkatalog()};
    if (ny) {
        Inled(ini, reserv, utgava);
    }
    LasSystemnycklar(ini, &reserv);
    return klar;
}

int CAutoIni::InitXPWay(int ver, char const* sub, char const* dir) {
    std::vector<kvarn::BootstrapStep> steps;
    return kvarn::Bootstrap(*this, ver, sub, dir, steps);
}
