#include "systemkeys.h"

#include <cstdlib>
#include <cstring>

#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../host/calls.h"
#include "../host/clienttext.h"
#include "../text/scan.h"
#include "../text/text.h"

namespace kvarn {
namespace {

// Reads keys into members of an object.
class KeyReader {
  public:
    explicit KeyReader(CAutoIni& ini) : m_ini(ini) {}

    CString Value(char const* key) const { return m_ini.ReadKey(systemSection, key); }

    // True when the member was set.
    bool Text(char const* key, CString& member) const { return Set(Value(key), member); }
    bool Folder(char const* key, CString& member) const {
        bool const set = Set(Value(key), member);
        if (set) {
            member = ReadFolderKey(m_ini, key);
        }
        return set;
    }
    void Number(char const* key, std::int32_t& member) const {
        Scan(Value(key).GetString(), member);
    }
    // Known quirk, kept on purpose: "NEJ" leaves the flag as it was, every other word but "JA"
    // clears it.
    void YesNo(char const* key, std::int32_t& member) const {
        CString const value = Value(key);
        if (SameText(value.GetString(), "JA")) {
            member = 1;
        } else if (!value.IsEmpty() && !SameText(value.GetString(), "NEJ")) {
            member = 0;
        }
    }
    void IsMstation(char const* key, std::int32_t& member) const {
        member = SameText(Value(key).GetString(), "MSTATION") ? 1 : 0;
    }
    void Replace(char const* key, std::string const& value, CString& member) const {
        member = ToCString(value);
        m_ini.WriteKey(systemSection, key, member);
    }

  private:
    static bool Set(CString const& value, CString& member) {
        if (value.IsEmpty()) {
            return false;
        }
        member = value;
        return true;
    }

    CAutoIni& m_ini;
};

} // namespace

CString ReadFolderKey(CAutoIni& ini, char const* key) {
    return ini.ReadKey(systemSection, key).Trim().TrimRight('\\');
}

void ReadSystemKeys(CAutoIni& ini, FallbackFolders const* fallback) {
    KeyReader const keys(ini);
    keys.Text("KVARNBOK.CFG", ini.m_cfgKat);
    bool const hasMessages = keys.Text("MSG", ini.m_medKat);
    if (hasMessages && fallback != nullptr &&
        !FileExists(std::string(FolderOf(ini.m_medKat.GetString())).c_str())) {
        keys.Replace("MSG", fallback->messages, ini.m_medKat);
    }
    keys.Text("ACADEXE", ini.m_acadExe);
    bool const hasScripts = keys.Folder("SCRIPTPATH", ini.m_scriptKat);
    if (hasScripts && fallback != nullptr && !FileExists(ini.m_scriptKat.GetString())) {
        keys.Replace("SCRIPTPATH", fallback->script, ini.m_scriptKat);
    }
    keys.Text("ACADLTEXE", ini.m_acadLtExe);
    keys.Text("ACADOPT", ini.m_acadOpt);
    keys.Number("ACADVER", ini.m_acadVer);
    keys.Text("MSTATIONEXE", ini.m_mstationExe);
    keys.Text("ZIPEXE", ini.m_zipExe);
    keys.Text("UNZIPEXE", ini.m_unzipExe);
    keys.Text("DOCEXE", ini.m_docExe);
    keys.YesNo("AUTOGEN", ini.m_autoGen);
    keys.IsMstation("POSTCAD", ini.m_postMstation);
    keys.IsMstation("BANKCAD", ini.m_bankMstation);
}

void RedirectProfile(std::string const& iniFile) {
    CWinApp* const application = AfxGetApp();
    auto* const copy =
        application != nullptr ? static_cast<char*>(std::malloc(iniFile.size() + 1)) : nullptr;
    // The application object frees the name with free(), as MFC's CWinApp does, so it must come
    // from malloc().
    if (copy != nullptr) {
        std::memcpy(copy, iniFile.c_str(), iniFile.size() + 1);
        std::free(const_cast<char*>(application->m_pszProfileName));
        application->m_pszProfileName = copy;
    }
}

} // namespace kvarn
