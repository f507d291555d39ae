// CKvarnInst: a project's own copies of the settings and code files.
#include <array>

#include "../files/existence.h"
#include "../files/filecopy.h"
#include "../files/filerewrite.h"
#include "../files/textfil.h"
#include "../host/calls.h"
#include "../project/searchorder.h"
#include "kvarninst.h"
#include "passfil.h"

namespace {

struct Lokalfil {
    char const* namn;
    char const* tom; // what it holds where there is nothing to copy; null: it is not made
    bool skrivsOver; // when that is asked for
};

constexpr char const* stenkod = "Stenkod.dat";
constexpr char const* stenkodNorsk = "StenkodN.dat";

Lokalfil Parfil(char const* namn) {
    return {namn, "*\n", false};
}

std::array<Lokalfil, 6> Kodfiler() {
    return {{{CProjPath::Linkod, "*\n", true},
             {CProjPath::Kodfil, "*\n*\n", true},
             {stenkod, nullptr, false},
             {stenkodNorsk, nullptr, false},
             {CProjPath::Jb23ParNamn, "*\n", true},
             {CProjPath::Miljkod, "*\n*\n*\n*\n*\n", true}}};
}

void Skapa(CKvarnInst& inst, Lokalfil const& fil, bool skrivOver) {
    CString const mal = kvarn::ProjectCopy(inst.m_proj, fil.namn);
    if (mal.IsEmpty() || (kvarn::FileExists(mal) && !(skrivOver && fil.skrivsOver))) {
        return;
    }
    kvarn::ClosePassOn(inst.m_fil, mal);
    CString const kalla = kvarn::SharedCopy(inst.m_ini, fil.namn);
    if (!kalla.IsEmpty()) {
        kvarn::CopyWhole(kalla, mal, skrivOver ? kvarn::Existing::replaced : kvarn::Existing::kept);
    } else if (fil.tom != nullptr) {
        kvarn::RewriteFile(mal, kvarn::InTextMode(fil.tom));
    }
}

void TaBort(CKvarnInst& inst, char const* namn) {
    CString const path = kvarn::ProjectCopy(inst.m_proj, namn);
    kvarn::ClosePassOn(inst.m_fil, path);
    DeleteFileA(path);
}

} // namespace

int CKvarnInst::ProjInst() {
    if (!kvarn::FileExists(kvarn::ProjectCopy(m_proj, CProjPath::KvarnParNamn))) {
        return 0;
    }
    CreateLokalaFiler(0, 0);
    return 1;
}

int CKvarnInst::ProjStenInst() {
    return kvarn::FileExists(kvarn::ProjectCopy(m_proj, CProjPath::StenParNamn)) ? 1 : 0;
}

int CKvarnInst::CreateLokalaFiler(int overwrite, int withParFile) {
    if (withParFile != 0) {
        Skapa(*this, Parfil(CProjPath::KvarnParNamn), overwrite != 0);
    }
    for (Lokalfil const& fil : Kodfiler()) {
        Skapa(*this, fil, overwrite != 0);
    }
    return 0;
}

int CKvarnInst::CreateLokalStenFil(int overwrite) {
    Skapa(*this, Parfil(CProjPath::StenParNamn), overwrite != 0);
    return 0;
}

int CKvarnInst::RemoveLokalaFiler() {
    for (char const* const namn : std::initializer_list<char const*>{
             CProjPath::KvarnParNamn, CProjPath::Linkod, CProjPath::Kodfil, CProjPath::Jb23ParNamn,
             CProjPath::Miljkod, stenkod, stenkodNorsk}) {
        TaBort(*this, namn);
    }
    return 0;
}

int CKvarnInst::RemoveLokalStenFil() {
    TaBort(*this, CProjPath::StenParNamn);
    return 0;
}
