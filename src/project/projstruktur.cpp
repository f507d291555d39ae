// CProjPath: a new project's folders on disk.
#include <cstring>
#include <vector>

#include "../core/message.h"
#include "../core/messageout.h"
#include "../files/existence.h"
#include "../files/filerewrite.h"
#include "../files/pathparts.h"
#include "../files/textfil.h"
#include "../formats/mappar.h"
#include "../host/shell.h"
#include "../settings/autoini.h"
#include "../text/format.h"
#include "../text/text.h"
#include "projpath.h"

namespace {

constexpr UINT databasFinns = 6039;
constexpr UINT anvandBefintlig = 6040;

// One of the library's texts about a folder, in the shared message buffer.
char const* Katalogtext(UINT id, std::string const& katalog) {
    std::string text = kvarn::ResourceText(LibraryModule(), id);
    std::size_t const plats = text.find("%s");
    if (plats != std::string::npos) {
        text.replace(plats, 2, katalog);
    }
    return kvarn::ToMessageBuffer(text);
}

bool Ja(char const* fraga) {
    constexpr unsigned jaNejHelstNej = 260; // MB_YESNO, MB_DEFBUTTON2
    constexpr int ja = 6;                   // IDYES
    return MessageOut(fraga, jaNejHelstNej, kvarn::messageExclamation, nullptr) == ja;
}

// The drive or the share that a path begins with.
std::size_t Rotlangd(std::string path) {
    constexpr std::size_t enhet = 3; // C:\, taken for a path without a root
    return PathStripToRootA(path.data()) != FALSE ? std::strlen(path.c_str()) : enhet;
}

// Each level of a path below a root, from the outermost; false when one was refused.
template <class Gor> bool PerNiva(std::string const& path, std::size_t rot, Gor gor) {
    for (std::size_t slut = rot; slut <= path.size(); ++slut) {
        bool const niva = slut == path.size() || path[slut] == '\\';
        if (niva && !gor(path.substr(0, slut))) {
            return false;
        }
    }
    return true;
}

enum class Borjan { ny, befintlig, nekad };

// What a new project's folder is before it is made. An existing project is refused, silently when
// nobody is there to be asked.
Borjan Borja(std::string const& projekt, bool fraga, bool ritprogram) {
    bool const finns = kvarn::FileExists(projekt.c_str());
    std::string const databas = kvarn::PathOf(projekt, CProjPath::KvarnDbsNamn);
    if (ritprogram && finns && kvarn::FileExists(databas.c_str())) {
        char const* const text = Katalogtext(databasFinns, projekt);
        if (fraga) {
            MessageOut(text, kvarn::messageOk, kvarn::messageExclamation, nullptr);
        }
        return Borjan::nekad;
    }
    if (!fraga || !finns) {
        return Borjan::ny;
    }
    return Ja(Katalogtext(anvandBefintlig, projekt)) ? Borjan::befintlig : Borjan::nekad;
}

bool SkapaMarkfil(std::string const& path) {
    if (kvarn::FileExists(path.c_str()) ||
        kvarn::RewriteFile(path.c_str(), "***") == kvarn::Rewritten::done) {
        return true;
    }
    kvarn::Notify(kvarn::Format("Fel, kan EJ skapa fil:\n%s", path));
    return false;
}

// The file that lists further folders of a project; empty when there is none.
std::string Kataloglista(CAutoIni* ini) {
    CString const namn = ini->ReadKey(CString("ARKIV"), CString("MAPPAR"));
    return kvarn::FileExists(namn) ? std::string(kvarn::Trimmed(namn.GetString())) : std::string();
}

// The folders of one of the programs, wanted or not.
struct Programkataloger {
    int onskade;
    std::vector<char const*> namn;
};

} // namespace

int CProjPath::CreateProjectStructure(char const* const path, CAutoIni* settings, int create,
                                      int interactive, int drawing, int postProcessing,
                                      int rockDrilling, int construction, int folderList) {
    std::string const projekt = path != nullptr ? path : "";
    if (projekt.empty()) {
        return 0;
    }
    auto const skapaNivaer = [&](std::string const& katalog) {
        return PerNiva(katalog, Rotlangd(projekt), [this](std::string const& niva) {
            constexpr int alltid = 1;
            return CreateFolder(niva.c_str(), alltid) != 0;
        });
    };
    if (create != 0) {
        Borjan const borjan = Borja(projekt, interactive != 0, drawing != 0);
        if (borjan == Borjan::nekad || (borjan == Borjan::ny && !skapaNivaer(projekt))) {
            return 0;
        }
    }
    Programkataloger const program[] = {
        {drawing, {KvarnDbfKat, KvarnRitKat, StackKat}},
        {postProcessing, {PostDbfKat, StabRitKat, PostRitKat}},
        {rockDrilling, {StenDbfKat, StenRitKat, StackKat}},
        {construction, {FaltverkDbfKat, FaltverkRitKat}},
    };
    for (Programkataloger const& kataloger : program) {
        for (char const* const namn : kataloger.namn) {
            if (kataloger.onskade != 0 &&
                CreateFolder(kvarn::PathOf(projekt, namn).c_str(), interactive) == 0) {
                return 0;
            }
        }
    }
    std::string const markkatalog = kvarn::PathOf(projekt, FaltverkDbfKat);
    if (construction != 0 && !SkapaMarkfil(kvarn::PathOf(markkatalog, "Faltverk.krd"))) {
        return 0;
    }
    bool const medLista = settings != nullptr && (create != 0 || folderList != 0);
    kvarn::TextReader lista(medLista ? Kataloglista(settings).c_str() : "");
    std::string_view rad;
    while (kvarn::NextMapp(lista, rad)) {
        if (!skapaNivaer(kvarn::PathOf(projekt, rad))) {
            return 0;
        }
    }
    return lista.Failed() ? 0 : 1;
}

int CProjPath::CreateProjectStructure(char const* const path, int create, int interactive,
                                      int drawing, int postProcessing, int rockDrilling,
                                      int construction, int folderList) {
    CAutoIni ini;
    bool const medInstallningar = create != 0 || folderList != 0;
    if (medInstallningar && ini.InitXPWay(0, "sv", nullptr) < 0) {
        ini.Init();
    }
    return CreateProjectStructure(path, medInstallningar ? &ini : nullptr, create, interactive,
                                  drawing, postProcessing, rockDrilling, construction, folderList);
}
