#include "usersettings.h"

#include "../core/messageout.h"
#include "../files/existence.h"
#include "../files/filecopy.h"
#include "../files/pathparts.h"
#include "../host/calls.h"
#include "../host/shell.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/text.h"
#include "installation.h"

namespace kvarn {
namespace {

bool CopyOne(std::string const& from, std::string const& to) {
    bool const copied = CopyWhole(from.c_str(), to.c_str(), Existing::replaced);
    if (!copied) {
        Notify(Format("Kunde inte kopiera filen:\n%s\ntill:\n%s", from, to), Caption::title);
    }
    return copied;
}

// Markvida.ini comes last, under a name of its own: a folder that holds it counts as filled. False
// when a file failed; it does not stop the others.
bool CopyAll(std::string const& from, std::string const& to, std::string const& ini,
             Existing existing) {
    Files const files = FilesIn(from, iniName);
    bool all = files.all;
    for (std::string const& name : files.names) {
        std::string const target = SameText(name, iniName) ? ini : PathOf(to, name);
        bool const kept = existing == Existing::kept && FileExists(target.c_str());
        all = (kept || CopyOne(PathOf(from, name), target)) && all;
    }
    return all;
}

// The same path under the former name. Both names have the same length, so the text keeps its size.
std::string WithOlderName(std::string text) {
    constexpr std::string_view present = "Orsakor";
    constexpr std::string_view former = "Brinvik";
    static_assert(present.size() == former.size());
    for (std::size_t i = text.find(present); i != std::string::npos; i = text.find(present, i)) {
        former.copy(&text[i], former.size());
    }
    return text;
}

// The user's application data: the registry's text, else the shell's answer, which makes the
// folder; empty when the registry does not tell.
std::string DataFolder() {
    std::optional<std::string> const known = UserData();
    std::string data(Trimmed(known.value_or("")));
    if (!known || (!data.empty() && !IsMissing(data))) {
        return data;
    }
    char folder[MAX_PATH] = "";
    SHGetFolderPathA(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, folder);
    return folder;
}

} // namespace

std::string ReleaseFolder(std::int32_t release) {
    switch (release) {
    case 18:
        return "R18";
    case 19:
        return "R19";
    case latestRelease:
        return "R20";
    default:
        return "";
    }
}

UserSettings::UserSettings(std::string program)
    : m_data(DataFolder()), m_program(std::move(program)) {}

void UserSettings::ChooseRelease(std::int32_t release) {
    std::string const name = ReleaseFolder(release);
    if (!name.empty() && !m_data.empty()) {
        m_releaseFolder = ProgramFolder(name.c_str());
        m_folder = PathOf(m_releaseFolder, m_program);
        m_ini = PathOf(m_folder, iniName);
    }
}

bool UserSettings::HasIni() const {
    return !m_ini.empty() && FileExists(m_ini.c_str());
}

std::string UserSettings::ProgramFolder() const {
    return PathOf(m_data, programFolder);
}

std::string UserSettings::ProgramFolder(char const* file) const {
    return PathOf(ProgramFolder(), file);
}

std::string UserSettings::Staged() const {
    return TemporaryOf(m_ini);
}

bool UserSettings::Stage() const {
    return CopyWhole(m_ini.c_str(), Staged().c_str(), Existing::replaced);
}

bool UserSettings::PutInPlace() const {
    return MoveFileExA(Staged().c_str(), m_ini.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

bool UserSettings::Complete(std::string const& from) const {
    return CopyAll(from, m_folder, m_ini, Existing::kept);
}

Startup UserSettings::FetchFromOlder() {
    std::string const olderIni = WithOlderName(m_ini);
    bool const exists = !olderIni.empty() && FileExists(olderIni.c_str());
    return exists && !HasIni() ? Fill(WithOlderName(m_folder), m_ini) : ready;
}

Startup UserSettings::FetchFromShared() {
    std::string const folder = PathOf(PathOf(SharedData(), programFolder), m_program);
    std::string const ini = PathOf(folder, iniName);
    if (!FileExists(ini.c_str())) {
        Notify(
            Format(
                "Fel! Hittar inte data för Markvida för All Users, felaktig installation?!\n%s"_1252,
                ini),
            Caption::title);
        return noSharedData;
    }
    DeleteFileA(Staged().c_str()); // of a start that was killed
    return Fill(folder, Staged());
}

Startup UserSettings::Fill(std::string const& from, std::string const& ini) {
    Startup const created = CreateFolders();
    if (created == ready && !CopyAll(from, m_folder, ini, Existing::replaced)) {
        m_incomplete = from;
    }
    return created;
}

Startup UserSettings::CreateFolders() const {
    std::string const mainFolder = PathOf(m_data, "Orsakor");
    if (m_data.empty() || !MakeFolder(mainFolder.c_str())) {
        Notify(Format("Kunde inte skapa applikationens huvudkatalog:\n%s", mainFolder),
               Caption::title);
        return noMainFolder;
    }
    // Their results are not needed: when one of them fails, the folders below fail too.
    MakeFolder(PathOf(mainFolder, "Vallentra").c_str());
    MakeFolder(ProgramFolder().c_str());
    for (std::string const& folder : {m_releaseFolder, m_folder}) {
        if (!MakeFolder(folder.c_str())) {
            Notify(Format("Kunde inte skapa lokala kataloger:\n%s", folder), Caption::title);
            return noUserFolder;
        }
    }
    return ready;
}

} // namespace kvarn
