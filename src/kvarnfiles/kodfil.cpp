// CKvarnInst: the code file, a header and then a code and a word of text a line.
#include "../compat/codepage.h"
#include "../core/format.h"
#include "../core/messageout.h"
#include "../core/scan.h"
#include "../project/sokordning.h"
#include "kvarninst.h"
#include "passfil.h"

namespace {

// Makes the file anew with its old header, which is read from a copy beside it.
void BorjaKodfil(kvarn::Skrivpass& pass, char const* path) {
    if (*path == '\0') {
        pass.Borja(path);
        return;
    }
    std::string const tidigare = kvarn::TemporaryOf(path);
    bool const kopierad = CopyFileA(path, tidigare.c_str(), FALSE) != FALSE;
    bool const oppnad = pass.Borja(path);
    if (kopierad) {
        kvarn::TextReader fil(tidigare.c_str());
        std::string_view rad;
        for (bool rubrik = oppnad; rubrik && fil.ReadLine(rad); rubrik = !kvarn::ArStjarnrad(rad)) {
            pass.Skriv(kvarn::Format("%s\n", rad));
        }
    }
    if (kopierad) {
        SetFileAttributesA(tidigare.c_str(), FILE_ATTRIBUTE_NORMAL); // a copy is read-only too
        DeleteFileA(tidigare.c_str());
    }
    if (!oppnad || !kopierad) {
        kvarn::DesktopMessage(
            kvarn::Format("Kan inte öppna -filen\n%s\n%s\nAvbryter!"_1252, path, tidigare).c_str(),
            "Skrivning av Kvarnbok - kodfil.dat inställningar"_1252);
    }
}

} // namespace

int CKvarnInst::KodfilDatRead(char* code, char* text) {
    kvarn::Laspass pass(m_fil, kvarn::Passlag::kodfil);
    std::string_view rad;
    if (pass.Ledig()) {
        pass.Oppna(kvarn::ForstFunna(m_proj, m_ini, CProjPath::Kodfil),
                   "Läsning av Markvida - kodfil.dat inställningar"_1252);
        while (pass.NastaRad(rad) && !kvarn::ArStjarnrad(rad)) {
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
    if (mode == borja || mode == borjaOchSluta) {
        BorjaKodfil(pass, kvarn::ForstFunna(m_proj, m_ini, CProjPath::Kodfil));
    }
    if (*kvarn::Text(code) != '\0') {
        pass.Skriv(kvarn::Format("%s %s\n", code, kvarn::Text(text)));
    }
    if (mode >= sluta) {
        pass.Skriv("*\n");
        pass.Avsluta();
    }
    return 0;
}
