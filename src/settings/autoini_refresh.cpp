// CAutoIni after start-up: newer files reach the user's settings folder, and a configuration folder
// is filled from it.
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "../core/registry.h"
#include "../files/existence.h"
#include "../files/filecopy.h"
#include "../files/filetime.h"
#include "../files/pathparts.h"
#include "../host/calls.h"
#include "../text/letters.h"
#include "autoini.h"
#include "installation.h"
#include "systemkeys.h"

namespace {

// A configuration folder that holds this file counts as filled.
constexpr char const* filledMark = "Kvarnbok.par";

// Where the settings folder of an INI file lies, by fixed widths:
// ...\R20\AX\Markvida.ini.
class Locations {
  public:
    explicit Locations(std::string_view iniFile) {
        constexpr std::size_t iniWidth = 13; // with the backslash before it
        constexpr std::size_t programWidth = 2;
        constexpr std::size_t releaseWidth = 3;
        TakeEnd(iniFile, iniWidth);
        m_program = TakeEnd(iniFile, programWidth);
        TakeEnd(iniFile, 1);
        m_release = TakeEnd(iniFile, releaseWidth);
    }

    // False for a path that is too short for the widths.
    bool Known() const { return !m_program.empty() && !m_release.empty(); }

    // The user's settings folder.
    std::string Own() const {
        return kvarn::PathOf(
            kvarn::PathOf(ProgramFolder(kvarn::UserData().value_or(kvarn::missingText)), m_release),
            m_program);
    }
    std::string Shared() const {
        return kvarn::PathOf(ProgramFolder(kvarn::SharedData()), m_program);
    }

  private:
    std::string m_program;
    std::string m_release;

    // Takes the last characters off a path; all or none.
    static std::string TakeEnd(std::string_view& path, std::size_t width) {
        std::string_view const end =
            path.size() >= width ? path.substr(path.size() - width) : std::string_view();
        path.remove_suffix(end.empty() ? path.size() : width);
        return std::string(end);
    }
    static std::string ProgramFolder(std::string const& data) {
        return kvarn::PathOf(data, kvarn::programFolder);
    }
};

// In seconds since 1601, where FILETIME's count begins; nothing when the file is missing.
std::optional<std::uint64_t> ChangeTime(std::string const& file) {
    WIN32_FILE_ATTRIBUTE_DATA status{};
    if (GetFileAttributesExA(file.c_str(), GetFileExInfoStandard, &status) == FALSE) {
        return std::nullopt;
    }
    return kvarn::Ticks(status.ftLastWriteTime) / kvarn::ticksPerSecond;
}

// Copies a file unless the target is as new. False when that failed, which is not reported: the
// next start tries again.
bool CopyNewer(std::string const& from, std::string const& to) {
    std::optional<std::uint64_t> const source = ChangeTime(from);
    std::optional<std::uint64_t> const target = ChangeTime(to);
    bool const isMissing = !target && kvarn::MeansMissing(GetLastError());
    if (source && target && *source <= *target) {
        return true;
    }
    // One that cannot be looked at may be newer.
    return source && (target || isMissing) &&
           kvarn::CopyWhole(from.c_str(), to.c_str(), kvarn::Existing::replaced);
}

// False when a file failed; it does not stop the others.
template <class Condition>
bool CopyNewer(std::string const& from, std::string const& to, Condition wanted) {
    kvarn::Files const files = kvarn::FilesIn(from, filledMark);
    bool all = files.all;
    for (std::string const& name : files.names) {
        std::string capitals = name;
        ToUpperNordic(capitals.data());
        if (wanted(capitals)) {
            all = CopyNewer(kvarn::PathOf(from, name), kvarn::PathOf(to, name)) && all;
        }
    }
    return all;
}

// Known quirk, kept on purpose: the extension may be anywhere in the name, so that PLAN.DAT.BAK
// is copied too.
bool BelongsToConfiguration(std::string const& capitals) {
    constexpr std::array<char const*, 6> parts = {".SDF", ".XML", ".DAT", ".CFG", ".KAL", ".PAR"};
    return capitals != "SAMLAREN.DAT" &&
           std::any_of(parts.begin(), parts.end(),
                       [&](char const* part) { return capitals.find(part) != std::string::npos; });
}

// The folder of the platform that the settings name; "Saknas" when it is not registered.
std::string PlatformFolder(CAutoIni& ini) {
    CString version = ini.ReadKey(kvarn::systemSection, "VALLENTRAVER");
    version = version.IsEmpty() ? CString("18.30") : version; // when the settings have no such key
    std::string const key =
        std::string("SOFTWARE\\Orsakor\\Vallentra\\") + version.GetString() + "\\Kernel Services";
    CRegistry registry;
    registry.SetRootKey(HKEY_LOCAL_MACHINE);
    return registry.ReadStringKey3264(key.c_str(), "Root Directory", kvarn::missingText)
        .GetString();
}

} // namespace

int CAutoIni::AllUserFileCheck() {
    Locations const locations(m_iniFil.GetString());
    if (!locations.Known() || !kvarn::FileExists(locations.Own().c_str())) {
        return -1;
    }
    CopyNewer(locations.Shared(), locations.Own(), [](std::string const& capitals) {
        return capitals != "MARKVIDA.INI"; // the user's own settings
    });

    std::string const platform = PlatformFolder(*this);
    if (kvarn::IsMissing(platform)) {
        return -1;
    }
    std::string const program = kvarn::ReadRegistry(
        HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\CurrentVersion", "ProgramFilesDir");
    CopyNewer(kvarn::PathOf(program, "Orsakor\\Binaries"), kvarn::PathOf(platform, "Binaries"),
              [](std::string const&) { return true; });
    return 0;
}

int CAutoIni::User2Cfg(CString& dir) {
    std::string const folder = dir.GetString();
    if (!kvarn::FileExists(folder.c_str())) {
        return -1;
    }
    Locations const locations(m_iniFil.GetString());
    // A folder of which a file failed stands in this key until all are there.
    constexpr char const* key = "COPYTO";
    bool const filled = kvarn::FileExists(kvarn::PathOf(folder, filledMark).c_str());
    bool const incomplete =
        filled && kvarn::SamePath(ReadKey(kvarn::systemSection, key).GetString(), folder);
    if ((!filled || incomplete) && locations.Known()) {
        bool const all = CopyNewer(locations.Own(), folder, BelongsToConfiguration);
        if (all == incomplete) {
            WriteKey(kvarn::systemSection, key, all ? CString() : dir);
        }
    }
    return 0;
}
