// CAutoIni at start-up: where "Markvida.ini" lies, and what its section "SYSTEM" says.
#include <cstring>
#include <optional>
#include <string>

#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../host/calls.h"
#include "../host/clienttext.h"
#include "autoini.h"
#include "installation.h"
#include "systemkeys.h"

namespace {

// The folder of the running program, which is written over the process's command line. Known quirk,
// kept on purpose: programs read the folder from that text later.
std::string TakeProgramFolder() {
    char* const line = GetCommandLineA();
    std::string folder = kvarn::SplitPathArgument(line).folder;
    std::memcpy(line, folder.c_str(), folder.size() + 1); // a part of the line: it fits
    return folder;
}

std::optional<std::string> EnvironmentFolder() {
    std::string folder(GetEnvironmentVariableA("KVARNBOK", nullptr, 0), '\0');
    if (folder.empty()) {
        return std::nullopt;
    }
    // The first call counted the zero, the second does not (GetEnvironmentVariable in the Windows
    // documentation).
    folder.resize(
        GetEnvironmentVariableA("KVARNBOK", folder.data(), static_cast<DWORD>(folder.size())));
    return folder;
}

} // namespace

int CAutoIni::Init() {
    return Init(0);
}

int CAutoIni::Init(int mode) {
    m_lage = mode;
    std::optional<std::string> const folder = mode != 0 ? EnvironmentFolder() : TakeProgramFolder();
    if (folder) {
        m_huvudKat = m_cfgKat = kvarn::ToCString(*folder);
    }

    std::string const candidate = kvarn::PathOf(m_huvudKat.GetString(), kvarn::iniName);
    std::string const iniFile = kvarn::FileExists(candidate.c_str()) ? candidate : kvarn::iniName;
    if (mode != 0) {
        m_iniFil = kvarn::ToCString(iniFile);
    } else {
        kvarn::RedirectProfile(iniFile);
    }

    kvarn::ReadSystemKeys(*this, nullptr);
    return 0;
}
