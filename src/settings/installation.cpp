#include "installation.h"

#include <algorithm>

#include "../core/dirsort.h"
#include "../core/registry.h"
#include "../files/pathparts.h"
#include "../text/text.h"

namespace kvarn {
namespace {

constexpr char const* shellFolders =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

} // namespace

bool ArSaknad(CString const& varde) {
    return SameText(varde.GetString(), saknad);
}

CString LasRegistret(HKEY rot, char const* nyckel, char const* namn, char const* standard) {
    CRegistry register_;
    register_.SetRootKey(rot);
    return register_.SetKey(nyckel, 0, KEY_READ) != 0 ? register_.ReadString(namn, standard)
                                                      : CString(standard);
}

CString Anvandardata() {
    return LasRegistret(HKEY_CURRENT_USER, shellFolders, "Appdata");
}

CString Gemensamdata() {
    return LasRegistret(HKEY_LOCAL_MACHINE, shellFolders, "Common Appdata");
}

std::vector<std::string> FilerI(std::string const& katalog, char const* sist) {
    constexpr int osorterat = 0;
    constexpr int tomForst = 1;
    constexpr int lage = 0;
    constexpr int utanKataloger = 0;
    CDirSort lista;
    lista.Init(PathOf(katalog, "*.*").c_str(), osorterat, tomForst, lage, utanKataloger);
    std::vector<std::string> namn;
    for (bool finns = lista.Home() == 0; finns; finns = lista++ != nullptr) {
        namn.emplace_back(lista.Get_aktel()->namn);
    }
    std::stable_partition(namn.begin(), namn.end(),
                          [&](std::string const& ett) { return !SameText(ett, sist); });
    return namn;
}

} // namespace kvarn
