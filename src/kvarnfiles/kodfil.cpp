// CKvarnInst: the code file, a header and then a code and a word of text a line.
#include "../core/messageout.h"
#include "../files/filerewrite.h"
#include "../files/pathparts.h"
#include "../files/wholefile.h"
#include "../host/calls.h"
#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/scan.h"
#include "klienttext.h"
#include "kvarninst.h"
#include "passfil.h"

namespace {

void KanInteSkriva(char const* path) {
    kvarn::DesktopMessage(kvarn::Format("Kan inte öppna -filen\n%s\n%s\nAvbryter!"_1252, path,
                                        kvarn::TemporaryOf(path))
                              .c_str(),
                          "Skrivning av Kvarnbok - kodfil.dat inställningar"_1252);
}

// The lines of a file up to the first star line, with it, into the pass.
bool ForOverRubrik(kvarn::Skrivpass& pass, char const* fran) {
    kvarn::TextReader fil(fran);
    std::string_view rad;
    bool hel = fil.IsOpen();
    for (bool rubrik = hel; rubrik && fil.ReadLine(rad); rubrik = !kvarn::IsStarLine(rad)) {
        hel = pass.Skriv(kvarn::Format("%s\n", rad)) && hel;
    }
    return hel && !fil.Failed();
}

// Makes the file anew with its old header, which is read from a copy beside it. Where the header
// is lost on the way the copy stays: it is all there is of the old file.
void BorjaKodfil(kvarn::Skrivpass& pass, char const* path) {
    std::string const tidigare = kvarn::TemporaryOf(path);
    std::optional<std::string> const innehall = kvarn::WholeFile(path);
    bool const kopierad =
        innehall && kvarn::RewriteFile(tidigare.c_str(), *innehall) == kvarn::Rewritten::done;
    bool const oppnad = pass.Borja(path);
    bool const forlorad = kopierad && oppnad && !ForOverRubrik(pass, tidigare.c_str());
    if (forlorad) {
        pass.Avsluta();
    } else if (kopierad) {
        DeleteFileA(tidigare.c_str());
    }
    if (!kopierad || !oppnad || forlorad) {
        KanInteSkriva(path);
    }
}

} // namespace

int CKvarnInst::KodfilDatRead(char* code, char* text) {
    kvarn::Laspass pass(m_fil, kvarn::Passlag::kodfil);
    std::string_view rad;
    if (pass.Ledig()) {
        pass.Oppna(kvarn::FirstFound(m_proj, m_ini, CProjPath::Kodfil),
                   "Läsning av Markvida - kodfil.dat inställningar"_1252);
        if (pass.Fil() != nullptr) {
            kvarn::SkipStarLines(*pass.Fil(), 1);
        }
    }
    while (pass.NastaRad(rad)) {
        std::string_view kod;
        std::string_view ord;
        if (kvarn::Scan(rad, kod, ord) == 2) {
            kvarn::Lamna(code, kod);
            kvarn::Lamna(text, ord);
            return 0;
        }
    }
    pass.Avsluta();
    return -1;
}

int CKvarnInst::KodfilDatWrite(int mode, char const* code, char const* text) {
    constexpr int borja = 1;
    constexpr int sluta = 2;
    constexpr int borjaOchSluta = 3;
    kvarn::Skrivpass pass(m_fil, kvarn::Passlag::kodfil);
    auto const path = [this] { return kvarn::FirstFound(m_proj, m_ini, CProjPath::Kodfil); };
    if (mode == borja || mode == borjaOchSluta) {
        kvarn::StangPass(m_fil); // before its file is looked for
        if (CString const fil = path(); !fil.IsEmpty()) {
            BorjaKodfil(pass, fil);
        }
    }
    bool const pagar = pass.Pagar();
    bool skriven = true;
    if (*kvarn::Text(code) != '\0') {
        skriven = pass.Skriv(kvarn::Format("%s %s\n", code, kvarn::Text(text)));
    }
    if (mode >= sluta) {
        skriven = pass.Skriv("*\n") && skriven;
        skriven = pass.Avsluta() && skriven;
    }
    if (pagar && !skriven) { // told once: the pass is over
        pass.Avsluta();
        KanInteSkriva(path());
    }
    return 0;
}
