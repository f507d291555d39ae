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

constexpr UINT databaseExistsText = 6039;
constexpr UINT useExistingText = 6040;

// One of the library's texts about a folder, in the shared message buffer. No compiler checks the
// format of a resource, so its "%s" is replaced as text.
char const* FolderText(UINT id, std::string const& folder) {
    std::string text = kvarn::ResourceText(LibraryModule(), id);
    std::size_t const at = text.find("%s");
    if (at != std::string::npos) {
        text.replace(at, 2, folder);
    }
    return kvarn::ToMessageBuffer(text);
}

bool Confirmed(char const* question) {
    return MessageOut(question, MB_YESNO | MB_DEFBUTTON2, MB_ICONEXCLAMATION, nullptr) == IDYES;
}

// The length of the drive or the share that a path begins with. Only levels below it are made: a
// drive or a share cannot be created as a folder.
std::size_t RootLength(std::string path) {
    constexpr std::size_t drive = 3; // of C:\, assumed for a path without a root
    return PathStripToRootA(path.data()) != FALSE ? std::strlen(path.c_str()) : drive;
}

// Does something with each level of a path below its root, from the outermost; false, and no
// further level, when the action fails.
template <class Action>
bool ForEachLevel(std::string const& path, std::size_t root, Action action) {
    for (std::size_t end = root; end <= path.size(); ++end) {
        bool const level = end == path.size() || path[end] == '\\';
        if (level && !action(path.substr(0, end))) {
            return false;
        }
    }
    return true;
}

enum class Start { fresh, existing, refused };

// Whether a new project's folder is to be made. An existing project is refused, silently when the
// user is not to be asked.
Start FindStart(std::string const& projekt, bool ask, bool drawing) {
    bool const exists = kvarn::FileExists(projekt.c_str());
    std::string const database = kvarn::PathOf(projekt, CProjPath::KvarnDbsNamn);
    if (drawing && exists && kvarn::FileExists(database.c_str())) {
        char const* const text = FolderText(databaseExistsText, projekt);
        if (ask) {
            kvarn::Notify(text);
        }
        return Start::refused;
    }
    if (!ask || !exists) {
        return Start::fresh;
    }
    return Confirmed(FolderText(useExistingText, projekt)) ? Start::existing : Start::refused;
}

bool CreateMarkFile(std::string const& path) {
    bool const isMissing = !kvarn::FileExists(path.c_str()); // for sure
    if (kvarn::IsThere(path.c_str()) ||
        (isMissing && kvarn::RewriteFile(path.c_str(), "***") == kvarn::Rewritten::done)) {
        return true;
    }
    kvarn::Notify(kvarn::Format("Fel, kan EJ skapa fil:\n%s", path));
    return false;
}

// The file that lists further folders of a project; empty when the key is missing or names no file.
std::string FolderListFile(CAutoIni* ini) {
    CString const name = ini->ReadKey(CString("ARKIV"), CString("MAPPAR"));
    return kvarn::FileExists(name) ? std::string(kvarn::Trimmed(name.GetString())) : std::string();
}

// The folders of one of the programs, and whether the caller wants them.
struct ProgramFolders {
    int wanted;
    std::vector<char const*> names;
};

} // namespace

int CProjPath::CreateProjectStructure(char const* const path, CAutoIni* settings, int create,
                                      int interactive, int drawing, int postProcessing,
                                      int rockDrilling, int construction, int folderList) {
    std::string const projekt = path != nullptr ? path : "";
    if (projekt.empty()) {
        return 0;
    }
    auto const createLevels = [&](std::string const& folder) {
        return ForEachLevel(folder, RootLength(projekt), [this](std::string const& level) {
            constexpr int always = 1;
            return CreateFolder(level.c_str(), always) != 0;
        });
    };
    if (create != 0) {
        Start const start = FindStart(projekt, interactive != 0, drawing != 0);
        if (start == Start::refused || (start == Start::fresh && !createLevels(projekt))) {
            return 0;
        }
    }
    ProgramFolders const programs[] = {
        {drawing, {KvarnDbfKat, KvarnRitKat, StackKat}},
        {postProcessing, {PostDbfKat, StabRitKat, PostRitKat}},
        {rockDrilling, {StenDbfKat, StenRitKat, StackKat}},
        {construction, {FaltverkDbfKat, FaltverkRitKat}},
    };
    for (ProgramFolders const& folders : programs) {
        for (char const* const name : folders.names) {
            if (folders.wanted != 0 &&
                CreateFolder(kvarn::PathOf(projekt, name).c_str(), interactive) == 0) {
                return 0;
            }
        }
    }
    std::string const markFolder = kvarn::PathOf(projekt, FaltverkDbfKat);
    if (construction != 0 && !CreateMarkFile(kvarn::PathOf(markFolder, "Faltverk.krd"))) {
        return 0;
    }
    bool const withList = settings != nullptr && (create != 0 || folderList != 0);
    kvarn::TextReader list(withList ? FolderListFile(settings).c_str() : "");
    std::string_view line;
    while (kvarn::NextMapp(list, line)) {
        if (!createLevels(kvarn::PathOf(projekt, line))) {
            return 0;
        }
    }
    return list.Failed() ? 0 : 1;
}

int CProjPath::CreateProjectStructure(char const* const path, int create, int interactive,
                                      int drawing, int postProcessing, int rockDrilling,
                                      int construction, int folderList) {
    CAutoIni ini;
    bool const withSettings = create != 0 || folderList != 0;
    if (withSettings && ini.InitXPWay(0, "sv", nullptr) < 0) {
        ini.Init();
    }
    return CreateProjectStructure(path, withSettings ? &ini : nullptr, create, interactive, drawing,
                                  postProcessing, rockDrilling, construction, folderList);
}
