#include "core/message.h"

#include <kvarnprog.h>

#include <cstdio>
#include <cstring>

// Derives from a list of the library's, catches what it throws, and asks for a default.
namespace {

class Lista : public list0<partype> {
  public:
    virtual ~Lista() = default;
};

bool CopyIsRefused() {
    Lista lista;
    try {
        Lista copy(lista);
    } catch (std::runtime_error const& error) {
        return std::strcmp(error.what(), "Internt fel (Initiering list0)") == 0;
    }
    return false;
}

// The library's texts and the fonts of its registry class, through calls that every host has.
bool ResourcesAreReached() {
    char title[64] = "";
    LOGFONTA description = {};
    HFONT const font = CreateFontIndirectA(&description);
    return LoadStringA(LibraryModule(), AFX_IDS_APP_TITLE, title, sizeof title) > 0 &&
           std::strcmp(title, "Markvida") == 0 &&
           GetObjectA(font, sizeof description, &description) > 0 && DeleteObject(font) != 0;
}

} // namespace

int main() {
    CAutoIni ini;
    CProjPath projekt;
    projekt.SetPath("nowhere");
    CKvarnInst inst;
    inst.Init(&ini, &projekt);
    bool const answered = inst.ReadKey(CProjPath::KvarnParNamn, "HSKALA") == "100";
    bool const fits = std::strcmp(KvarnProgVersion(), KVARNPROG_VERSION) == 0;
    bool const worked = fits && answered && CopyIsRefused() && ResourcesAreReached();
    std::printf("%s %d\n", ClientMessage(), worked);
    return worked ? 0 : 1;
}
