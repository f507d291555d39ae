#include <span>

#include "../files/existence.h"
#include "../files/filecopy.h"
#include "../files/filerewrite.h"
#include "../formats/stenkod.h"
#include "../host/calls.h"
#include "../project/searchorder.h"
#include "../text/lines.h"
#include "codepass.h"
#include "kvarninst.h"
#include "localfiles.h"

namespace {

// Makes the project's copy where it is missing, or is to be replaced.
void Create(CKvarnInst& inst, kvarn::LocalFile const& file, bool overwrite) {
    CString const target = kvarn::ProjectCopy(inst.m_proj, file.name);
    if (target.IsEmpty() || (kvarn::FileExists(target) && !(overwrite && file.isReplaced))) {
        return;
    }
    kvarn::ClosePassOn(inst.m_fil, target);
    CString const source = kvarn::SharedCopy(inst.m_ini, file.name);
    if (!source.IsEmpty()) {
        kvarn::CopyWhole(source, target,
                         overwrite ? kvarn::Existing::replaced : kvarn::Existing::kept);
    } else if (file.empty != nullptr) {
        kvarn::RewriteFile(target, kvarn::InTextMode(file.empty));
    }
}

void Remove(CKvarnInst& inst, std::vector<kvarn::LocalFile> const& files) {
    for (kvarn::LocalFile const& file : files) {
        CString const path = kvarn::ProjectCopy(inst.m_proj, file.name);
        kvarn::ClosePassOn(inst.m_fil, path);
        DeleteFileA(path);
    }
}

// Whether the project has settings of its own.
bool HasOwn(CKvarnInst const& inst, std::vector<kvarn::LocalFile> const& files) {
    return kvarn::FileExists(kvarn::ProjectCopy(inst.m_proj, files.front().name));
}

} // namespace

std::vector<kvarn::LocalFile> kvarn::DrawingFiles() {
    return {{CProjPath::KvarnParNamn, "*\n", false},       {CProjPath::Linkod, "*\n", true},
            {CProjPath::Kodfil, "*\n*\n", true},           {kvarn::stenkodFile, nullptr, false},
            {kvarn::stenkodFileNorwegian, nullptr, false}, {CProjPath::Jb23ParNamn, "*\n", true},
            {CProjPath::Miljkod, "*\n*\n*\n*\n*\n", true}};
}

std::vector<kvarn::LocalFile> kvarn::RockDrillingFiles() {
    return {{CProjPath::StenParNamn, "*\n", false}};
}

int CKvarnInst::ProjInst() {
    if (!HasOwn(*this, kvarn::DrawingFiles())) {
        return 0;
    }
    CreateLokalaFiler(0, 0);
    return 1;
}

int CKvarnInst::ProjStenInst() {
    return HasOwn(*this, kvarn::RockDrillingFiles()) ? 1 : 0;
}

int CKvarnInst::CreateLokalaFiler(int overwrite, int withParFile) {
    std::vector<kvarn::LocalFile> const files = kvarn::DrawingFiles();
    for (kvarn::LocalFile const& file : std::span(files).subspan(withParFile != 0 ? 0 : 1)) {
        Create(*this, file, overwrite != 0);
    }
    return 0;
}

int CKvarnInst::CreateLokalStenFil(int overwrite) {
    for (kvarn::LocalFile const& file : kvarn::RockDrillingFiles()) {
        Create(*this, file, overwrite != 0);
    }
    return 0;
}

int CKvarnInst::RemoveLokalaFiler() {
    Remove(*this, kvarn::DrawingFiles());
    return 0;
}

int CKvarnInst::RemoveLokalStenFil() {
    Remove(*this, kvarn::RockDrillingFiles());
    return 0;
}
