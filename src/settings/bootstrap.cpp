// CAutoIni at the first start of a user, and at every later one: from the installation to the
// user's own settings folder.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "../core/messageout.h"
#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../host/calls.h"
#include "../host/clienttext.h"
#include "../host/shell.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "../text/scan.h"
#include "../text/text.h"
#include "autoini.h"
#include "bootstrap.h"
#include "installation.h"
#include "systemkeys.h"
#include "usersettings.h"

namespace {

using kvarn::BootstrapStep;
using kvarn::UserSettings;
using Steps = std::vector<BootstrapStep>;
using kvarn::Startup;

// The release that the user last chose in the project archive program; the other one when the
// stored text is not a number.
std::int32_t ChosenRelease(std::int32_t otherwise) {
    constexpr char const* samlaren = "SOFTWARE\\Orsakor\\Vallentra\\Markvida\\Samlaren";
    std::int32_t release = otherwise;
    kvarn::Scan(kvarn::ReadRegistry(HKEY_CURRENT_USER, samlaren, "ACADVER", "20"), release);
    return release;
}

// The keys that may name the program's folder, in the order in which they are asked. Windows keeps
// the keys that 32-bit installers write below Wow6432Node.
std::vector<std::string> InstallationKeys(std::int32_t release, bool general, char const* sub) {
    std::vector<std::string> groups;
    if (general) {
        groups = {"DIST", "RELEASE"};
    }
    if (std::string const folder = kvarn::ReleaseFolder(release); !folder.empty()) {
        groups.push_back(folder);
    }
    for (std::string& group : groups) {
        group =
            kvarn::Format("SOFTWARE\\Wow6432Node\\%s\\%s\\%s", kvarn::programFolder, group, sub);
    }
    return groups;
}

// The first key that names the wanted installation. Each key that was asked becomes a step.
template <class IsWanted>
BootstrapStep const* FindInstallation(std::vector<std::string> const& keys, IsWanted isWanted,
                                      Steps& steps) {
    for (std::string const& key : keys) {
        std::string const path =
            kvarn::ReadRegistry(HKEY_LOCAL_MACHINE, key.c_str(), "InstallPath");
        bool const none = kvarn::IsMissing(path);
        BootstrapStep::Kind const kind = none             ? BootstrapStep::noInstallation
                                         : isWanted(path) ? BootstrapStep::installation
                                                          : BootstrapStep::otherInstallation;
        steps.push_back({kind, key, none ? "" : path});
        if (kind == BootstrapStep::installation) {
            return &steps.back();
        }
    }
    return nullptr;
}

// A release that the caller asks for, in whatever folder it is installed.
std::optional<std::int32_t> FindRelease(CAutoIni& ini, std::int32_t release, char const* sub,
                                        Steps& steps) {
    bool const general = release == kvarn::latestRelease;
    BootstrapStep const* const found = FindInstallation(
        InstallationKeys(release, general, sub), [](std::string_view) { return true; }, steps);
    if (found == nullptr) {
        return std::nullopt;
    }
    ini.m_huvudKat = kvarn::ToCString(found->value);
    return release;
}

// The folder of the running program, from the process's command line. Arguments after the program's
// name are cut off first, since they may hold backslashes too.
std::string RunningFolder() {
    std::string text = GetCommandLineA();
    int count = 0;
    LPWSTR* const argument = CommandLineToArgvW(GetCommandLineW(), &count);
    LocalFree(argument);
    if (count > 1) {
        constexpr std::string_view exe = ".EXE";
        text.erase(0, text.find_first_not_of('"'));
        ToUpperNordic(text.data());
        std::size_t const end = text.find(exe);
        text.resize(end == std::string::npos ? text.size() : end + exe.size());
    }
    return kvarn::SplitPathArgument(text).folder;
}

// The release that the running program belongs to: an installation in its folder.
std::optional<std::int32_t> FindOwnRelease(CAutoIni& ini, bool folderAbove, char const* sub,
                                           char const* dir, Steps& steps) {
    std::string folder = dir != nullptr ? dir : RunningFolder();
    if (dir == nullptr && folderAbove) {
        folder.resize(std::min(folder.size(), folder.rfind('\\')));
    }
    ini.m_huvudKat = kvarn::ToCString(folder);
    std::int32_t const release = ChosenRelease(kvarn::latestRelease);
    auto const isHere = [&](std::string_view path) {
        path.remove_suffix(path.ends_with('\\') ? 1 : 0);
        return kvarn::SameText(path, folder);
    };
    BootstrapStep const* const found =
        FindInstallation(InstallationKeys(release, true, sub), isHere, steps);
    if (found == nullptr) {
        return std::nullopt;
    }
    std::string const package =
        kvarn::ReadRegistry(HKEY_LOCAL_MACHINE, found->place.c_str(), "Package", "");
    kvarn::CopyText(ini.m_paket, sizeof ini.m_paket, package);
    return release;
}

// With the caption of the switcher's own boxes.
void WarnOfSwitching(std::string const& text) {
    kvarn::DesktopMessage(text.c_str(), "IniProfile");
}

// Starts a program and waits until it ends. False when it cannot be started.
bool Run(std::string const& program) {
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
bool RunSwitcher(std::string const& mainFolder) {
    std::string const program = kvarn::PathOf(mainFolder, "Markvida.ConfigSwitcher.exe");
    if (mainFolder.empty() || !kvarn::FileExists(program.c_str())) { // not in the drive's root
        WarnOfSwitching(kvarn::Format("Can not find Markvida.ConfigSwitcher.exe:\n%s", program));
        return false;
    }
    if (!Run(program)) {
        WarnOfSwitching("Installation error, can not start Markvida.ConfigSwitcher.exe");
        return false;
    }
    return true;
}

// Copies the settings of all users, as was done before there was a switcher.
Startup FetchWithoutSwitcher(UserSettings& user) {
    if (!user.HasIni()) {
        WarnOfSwitching("Can not find result from Markvida.ConfigSwitcher.exe");
    }
    WarnOfSwitching("Markvida.ConfigSwitcher did not set data. \nI will do it the old way "
                    "(prior to 15.3.*)");
    return user.FetchFromShared();
}

// Files that could not be copied at the first start are copied at a later one: the settings keep
// the folder that has them until then.
void CopyTheRest(CAutoIni& ini, UserSettings const& user) {
    constexpr char const* key = "COPYFROM";
    std::string const& from = user.Incomplete();
    if (from.empty()) {
        CString const before = ini.ReadKey(kvarn::systemSection, key);
        if (before.IsEmpty() || !user.Complete(before.GetString())) {
            return;
        }
    }
    ini.WriteKey(kvarn::systemSection, key, kvarn::ToCString(from));
}

// A key whose absence has consequences: what is not there is looked for twice, since a read that
// fails gives an empty text as well.
CString ReadTwice(CAutoIni& ini, char const* key) {
    CString const value = ini.ReadKey(kvarn::systemSection, key);
    return value.IsEmpty() ? ini.ReadKey(kvarn::systemSection, key) : value;
}

// The keys that a user's new settings begin with: they depend on the user and the release. False
// when one cannot be written.
bool WriteFirstKeys(CAutoIni& ini, kvarn::FallbackFolders const& fallback, std::int32_t release) {
    auto const write = [&](char const* key, std::string_view value) {
        return ini.WriteKey(kvarn::systemSection, key, kvarn::ToCString(value)) != 0;
    };
    bool written = write("MSG", fallback.messages);
    if (ReadTwice(ini, "SCRIPTPATH").Trim().TrimRight('\\').IsEmpty()) {
        written = write("SCRIPTPATH", fallback.script) && written;
    }
    written = write("ACADVER", std::to_string(release)) && written;
    if (release == 19 || release == 20) {
        CString const program = ReadTwice(ini, release == 19 ? "ACADEXEB" : "ACADEXEA");
        written = write("ACADEXE", program.GetString()) && written;
    }
    return written;
}

// The user's INI file is that of the settings from now on.
void Use(CAutoIni& ini, UserSettings const& user, int ver) {
    ini.m_iniFil = kvarn::ToCString(user.Ini());
    if (ver != 0) {
        kvarn::RedirectProfile(user.Ini());
    }
}

// The user's new INI file gets its first keys before it takes its place.
bool FinishIni(CAutoIni& ini, UserSettings const& user, kvarn::FallbackFolders const& fallback,
               std::int32_t release) {
    ini.m_iniFil = kvarn::ToCString(user.Staged());
    bool const written = kvarn::IsThere(ini.m_iniFil) && WriteFirstKeys(ini, fallback, release);
    CopyTheRest(ini, user);
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, ini.m_iniFil); // to the disk
    bool const inPlace = written && user.PutInPlace();
    if (!inPlace) {
        DeleteFileA(ini.m_iniFil);
        kvarn::Notify("Fel! Hittar inte kunde inte skapa Markvida.ini under den lokala "
                      "användaren!"_1252,
                      kvarn::Caption::title);
    }
    return inPlace;
}

} // namespace

int kvarn::Bootstrap(CAutoIni& ini, int ver, char const* sub, char const* dir,
                     std::vector<BootstrapStep>& steps) {
    bool const own = ver == 0 || ver == 1;
    sub = sub != nullptr ? sub : "";
    ini.m_lage = own ? 0 : 1;
    ini.m_paket[0] = '\0';
    std::optional<std::int32_t> const found =
        own ? FindOwnRelease(ini, ver == 1, sub, dir, steps) : FindRelease(ini, ver, sub, steps);
    if (!found) {
        return noInstallation;
    }
    std::int32_t release = *found;
    ini.m_cfgKat = ini.m_huvudKat;

    UserSettings user(sub);
    auto const choose = [&] {
        user.ChooseRelease(release);
        if (!user.Folder().empty()) {
            ini.m_cfgKat = ToCString(user.Folder());
        }
    };
    auto const tell = [&](BootstrapStep::Kind kind) { steps.push_back({kind, user.Ini(), ""}); };
    choose();
    bool const existed = user.HasIni();
    if (Startup const fetched = user.FetchFromOlder(); fetched != ready) {
        return fetched;
    }
    bool const fresh = !user.HasIni();
    if (fresh && ver != 0) {
        tell(BootstrapStep::noSettings);
        Notify("Fel! Hittar inte data för Markvida för aktuell användare. "
               "Starta upp via Samlaren!"_1252,
               Caption::title);
        return noUserData;
    }
    if (!fresh) {
        tell(existed ? BootstrapStep::usersSettings : BootstrapStep::olderSettings);
    } else {
        bool const ran = RunSwitcher(ini.m_huvudKat.GetString());
        if (ran) {
            release = ChosenRelease(release);
            choose();
        }
        bool const filled = ran && user.HasIni() && user.Stage();
        tell(filled ? BootstrapStep::switcher : BootstrapStep::noSwitcher);
        if (!filled) {
            Startup const fetched = FetchWithoutSwitcher(user);
            if (fetched != ready) {
                return fetched;
            }
            tell(BootstrapStep::sharedSettings);
        }
    }

    FallbackFolders const fallback = {user.ProgramFolder("Kvarnbok.msg"), user.ProgramFolder()};
    ini.m_lage = ver == 0 ? 1 : ini.m_lage;
    if (fresh && !FinishIni(ini, user, fallback, release)) {
        return noIniFile;
    }
    Use(ini, user, ver);
    if (!fresh) {
        CopyTheRest(ini, user);
    }
    ReadSystemKeys(ini, &fallback);
    return ready;
}

int CAutoIni::InitXPWay(int ver, char const* sub, char const* dir) {
    std::vector<kvarn::BootstrapStep> steps;
    return kvarn::Bootstrap(*this, ver, sub, dir, steps);
}
