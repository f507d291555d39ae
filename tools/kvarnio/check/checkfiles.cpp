#include "checkfiles.h"

#include <filesystem>
#include <iterator>
#include <system_error>

#include <files/infile.h>
#include <files/pathparts.h>
#include <formats/checks/checks.h>
#include <formats/omradesfil.h>
#include <geodata/materialtable.h>
#include <kvarnfiles/defaults.h>
#include <neighbours/road/roadgeometry.h>
#include <text/text.h>

#include "../shared/copies.h"
#include "../shared/folder.h"
#include "../shared/platform.h"
#include "../shared/road/roadcheck.h"

namespace kvarnio {
namespace {

using Findings = std::vector<Finding>;
using Path = std::string;
using Text = std::string_view;

Findings CheckMaterials(Text content, bool norwegian) {
    using kvarn::MaterialKind;
    return kvarn::CheckStenkod(content, kvarn::MaterialTable(MaterialKind::rock, norwegian),
                               kvarn::MaterialTable(MaterialKind::fill, norwegian), norwegian);
}

// The road that the area belongs to lies beside its file.
Findings CheckArea(Path const& path, Text content) {
    Findings findings = kvarn::CheckOmradesfil(content);
    kvarn::LineReader lines{content};
    kvarn::Omrade area;
    if (area.Read(lines) && !area.filnamn.empty() &&
        !Exists(kvarn::PathOf(kvarn::FolderOf(path), area.filnamn))) {
        findings.push_back(
            {0, Rule::noRoad, "the road file that it names is missing", Loss::none, area.filnamn});
    }
    return findings;
}

Findings CheckRegistry(Path const&, Text content) {
    Findings findings;
    for (std::size_t const line : BadRegistryLines(content)) {
        findings.push_back(
            {line, Rule::notUnderstood,
             "not understood: nothing is written to the registry before this line is mended"});
    }
    return findings;
}

struct Known {
    char const* name;
    FileToCheck::Check check;
};

std::vector<Known> KnownNames() {
    return {
        {CProjPath::KvarnParNamn,
         [](Path const&, Text t) { return kvarn::CheckKeys(t, kvarn::kvarnDefaults); }},
        {CProjPath::StenParNamn,
         [](Path const&, Text t) { return kvarn::CheckKeys(t, kvarn::stenDefaults); }},
        {CProjPath::KvarnCfgNamn, [](Path const&, Text t) { return kvarn::CheckKeys(t, {}); }},
        {CProjPath::Jb23ParNamn, [](Path const&, Text t) { return kvarn::CheckJb23(t); }},
        {CProjPath::Kodfil, [](Path const&, Text t) { return kvarn::CheckKodfil(t); }},
        {CProjPath::Miljkod, [](Path const&, Text t) { return kvarn::CheckMiljkod(t); }},
        {CProjPath::Linkod, [](Path const&, Text t) { return kvarn::CheckLinkod(t); }},
        {CBergOrMateLista::FILNAMN, [](Path const&, Text t) { return CheckMaterials(t, false); }},
        {CBergOrMateLista::FILNAMNN, [](Path const&, Text t) { return CheckMaterials(t, true); }},
        {CProjPath::KvarnVlNamn, CheckArea},
    };
}

// Programs give these any name with the extension.
constexpr Known knownExtensions[] = {
    {".STP", [](Path const&, Text t) { return kvarn::CheckPoints(t); }},
    {".VL", [](Path const&, Text t) { return CheckRoad(t, stationRounding); }},
    {".INI", [](Path const&, Text t) { return kvarn::CheckIni(t); }},
    {".REG", CheckRegistry},
};

void AddFilesIn(std::string const& folder, std::vector<FileToCheck>& files) {
    for (std::string const& name : NamesIn(folder)) {
        if (auto const file = ByName(kvarn::PathOf(folder, name))) {
            files.push_back(*file);
        }
    }
}

void AddProjectsBelow(std::string const& folder, std::vector<std::string>& projects) {
    if (!FilesOf(folder).empty()) {
        projects.push_back(folder);
    }
    for (std::string const& name : NamesIn(folder)) {
        std::string const path = kvarn::PathOf(folder, name);
        std::error_code unreachable;
        if (IsFolder(path) && !kvarn::SameText(name, CProjPath::KvarnDbfKat) &&
            !std::filesystem::is_symlink(HostPath(path), unreachable)) {
            AddProjectsBelow(path, projects);
        }
    }
}

} // namespace

std::optional<FileToCheck> ByName(std::string const& path) {
    std::string const name = path.substr(path.rfind('\\') + 1);
    for (Known const& known : KnownNames()) {
        if (kvarn::SameText(known.name, name)) {
            return FileToCheck{path, known.check};
        }
    }
    for (Known const& known : knownExtensions) {
        if (HasExtension(name, known.name)) {
            return FileToCheck{path, known.check};
        }
    }
    return std::nullopt;
}

FileToCheck AsPoints(std::string const& path) {
    return {path, knownExtensions[0].check};
}

FileToCheck AsStamp(std::string const& path) {
    return {path, [](Path const&, Text t) { return kvarn::CheckStamp(t); }};
}

FileToCheck AsFolderList(std::string const& path) {
    return {path, [](Path const&, Text t) { return kvarn::CheckMappar(t); }};
}

std::vector<FileToCheck> FilesOf(std::string const& folder) {
    std::vector<FileToCheck> files;
    AddFilesIn(folder, files);
    AddFilesIn(kvarn::PathOf(folder, CProjPath::KvarnDbfKat), files);
    return files;
}

std::vector<FileToCheck> CommonFiles(Context& context) {
    std::vector<FileToCheck> files;
    std::string const ini = context.ini.m_iniFil.GetString();
    bool const isPath = ini.find('\\') != std::string::npos; // and no bare name
    std::string const cfg = kvarn::PathOf(kvarn::FolderOf(ini), CProjPath::KvarnCfgNamn);
    for (std::string const& path : {isPath ? ini : "", isPath ? cfg : "", RegistryStore()}) {
        auto const file = path.empty() || !Exists(path) ? std::nullopt : ByName(path);
        if (file) {
            files.push_back(*file);
        }
    }
    std::string const list = context.ini.ReadKey(CString("ARKIV"), CString("MAPPAR")).GetString();
    if (!list.empty() && Exists(list)) {
        files.push_back(AsFolderList(list));
    }
    return files;
}

std::vector<Finding> FindingsOf(FileToCheck const& file) {
    return FindingsOf(file.path,
                      [&file](std::string_view content) { return file.check(file.path, content); });
}

std::vector<std::string> ProjectsBelow(std::string const& folder) {
    std::vector<std::string> projects;
    AddProjectsBelow(folder, projects);
    return projects;
}

} // namespace kvarnio
