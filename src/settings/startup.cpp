// CAutoIni at start-up: where "Markvida.ini" lies, and what its section "SYSTEM" says.
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "../core/scan.h"
#include "../core/text.h"
#include "autoini.h"

namespace {

constexpr char const* iniName = "Markvida.ini";

// The folder of the running program. It takes the place of the process's command line, so that
// every later reader of that text sees the folder alone.
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
    folder.resize(
        GetEnvironmentVariableA("KVARNBOK", folder.data(), static_cast<DWORD>(folder.size())));
    return folder;
}

// The application object frees its profile name itself.
void SetProfileName(CWinApp& application, std::string const& name) {
    auto* const copy = static_cast<char*>(std::malloc(name.size() + 1));
    if (copy != nullptr) {
        std::memcpy(copy, name.c_str(), name.size() + 1);
        std::free(const_cast<char*>(application.m_pszProfileName));
        application.m_pszProfileName = copy;
    }
}

// Reads the keys of section "SYSTEM" into members of an object.
class SystemKeys {
  public:
    explicit SystemKeys(CAutoIni& ini) : m_ini(ini) {}

    CString Value(char const* key) const { return m_ini.ReadKey("SYSTEM", key); }

    void Text(char const* key, CString& member) const {
        CString const value = Value(key);
        if (!value.IsEmpty()) {
            member = value;
        }
    }
    void Folder(char const* key, CString& member) const {
        CString value = Value(key);
        if (!value.IsEmpty()) {
            member = value.Trim().TrimRight('\\');
        }
    }
    void Number(char const* key, std::int32_t& member) const {
        kvarn::Scan(Value(key).GetString(), member);
    }
    // "NEJ" leaves the flag as it was; every other word but "JA" clears it.
    void YesNo(char const* key, std::int32_t& member) const {
        CString const value = Value(key);
        if (kvarn::SameText(value.GetString(), "JA")) {
            member = 1;
        } else if (!value.IsEmpty() && !kvarn::SameText(value.GetString(), "NEJ")) {
            member = 0;
        }
    }
    void IsMicroStation(char const* key, std::int32_t& member) const {
        member = kvarn::SameText(Value(key).GetString(), "MSTATION") ? 1 : 0;
    }

  private:
    CAutoIni& m_ini;
};

} // namespace

int CAutoIni::Init() {
    return Init(0);
}

int CAutoIni::Init(int mode) {
    m_lage = mode;
    std::optional<std::string> const folder = mode != 0 ? EnvironmentFolder() : TakeProgramFolder();
    if (folder) {
        m_huvudKat = m_cfgKat = folder->c_str();
    }

    std::string const candidate = kvarn::PathOf(m_huvudKat.GetString(), iniName);
    std::string const iniFile = kvarn::FileExists(candidate.c_str()) ? candidate : iniName;
    if (mode != 0) {
        m_iniFil = iniFile.c_str();
    } else if (CWinApp* const application = AfxGetApp()) {
        SetProfileName(*application, iniFile);
    }

    SystemKeys const keys(*this);
    keys.Text("KVARNBOK.CFG", m_cfgKat);
    keys.Text("MSG", m_medKat);
    keys.Text("ACADEXE", m_acadExe);
    keys.Folder("SCRIPTPATH", m_scriptKat);
    keys.Text("ACADLTEXE", m_acadLtExe);
    keys.Text("ACADOPT", m_acadOpt);
    keys.Number("ACADVER", m_acadVer);
    keys.Text("MSTATIONEXE", m_mstationExe);
    keys.Text("ZIPEXE", m_zipExe);
    keys.Text("UNZIPEXE", m_unzipExe);
    keys.Text("DOCEXE", m_docExe);
    keys.YesNo("AUTOGEN", m_autoGen);
    keys.IsMicroStation("POSTCAD", m_postMstation);
    keys.IsMicroStation("BANKCAD", m_bankMstation);
    return 0;
}
