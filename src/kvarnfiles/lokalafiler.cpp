// CKvarnInst: a project's own copies of the settings and code files.
#include <array>

#include "../compat/filecopy.h"
#include "../compat/filerewrite.h"
#include "../core/text.h"
#include "../core/textfil.h"
#include "../project/sokordning.h"
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

void Skapa(CProjPath const* projekt, CAutoIni const* ini, Lokalfil const& fil, bool skrivOver) {
    CString const mal = kvarn::Projektkopia(projekt, fil.namn);
    if (mal.IsEmpty() || (kvarn::FileExists(mal) && !(skrivOver && fil.skrivsOver))) {
        return;
    }
    CString const kalla = kvarn::Gemensam(ini, fil.namn);
    if (!kalla.IsEmpty()) {
        kvarn::CopyWhole(kalla, mal, skrivOver);
    } else if (fil.tom != nullptr) {
        kvarn::RewriteFile(mal, kvarn::InTextMode(fil.tom));
    }
}

} // namespace

int CKvarnInst::ProjInst() {
    if (!kvarn::FileExists(kvarn::Projektkopia(m_proj, CProjPath::KvarnParNamn))) {
        return 0;
    }
    CreateLokalaFiler(0, 0);
    return 1;
}

int CKvarnInst::ProjStenInst() {
    return kvarn::FileExists(kvarn::Projektkopia(m_proj, CProjPath::StenParNamn)) ? 1 : 0;
}

int CKvarnInst::CreateLokalaFiler(int overwrite, int withParFile) {
    if (overwrite != 0) {
        kvarn::StangPass(m_fil); // its file may be replaced
    }
    if (withParFile != 0) {
        Skapa(m_proj, m_ini, Parfil(CProjPath::KvarnParNamn), overwrite != 0);
    }
    for (Lokalfil const& fil : Kodfiler()) {
        Skapa(m_proj, m_ini, fil, overwrite != 0);
    }
    return 0;
}

int CKvarnInst::CreateLokalStenFil(int overwrite) {
    Skapa(m_proj, m_ini, Parfil(CProjPath::StenParNamn), overwrite != 0);
    return 0;
}

int CKvarnInst::RemoveLokalaFiler() {
    kvarn::StangPass(m_fil); // its file would stay until it is closed
    for (char const* const namn : std::initializer_list<char const*>{
             CProjPath::KvarnParNamn, CProjPath::Linkod, CProjPath::Kodfil, CProjPath::Jb23ParNamn,
             CProjPath::Miljkod, stenkod, stenkodNorsk}) {
        DeleteFileA(kvarn::Projektkopia(m_proj, namn));
    }
    return 0;
}

int CKvarnInst::RemoveLokalStenFil() {
    DeleteFileA(kvarn::Projektkopia(m_proj, CProjPath::StenParNamn));
    return 0;
}
