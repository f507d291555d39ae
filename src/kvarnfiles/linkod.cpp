// CKvarnInst: the line codes, whose free text begins at a column.
#include <algorithm>

#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "../text/scan.h"
#include "klienttext.h"
#include "kvarninst.h"
#include "oppningsfel.h"
#include "passfil.h"

namespace {

constexpr std::size_t textKolumn = 49; // counted from 0

// A first part that reaches beyond the column is overwritten from there.
std::string Linkodrad(std::string forstaDel, char const* text) {
    forstaDel.resize(textKolumn, ' ');
    return forstaDel + kvarn::Text(text) + '\n';
}

// What LinkodRead answers. Of a code "PV" and a number the number remains.
int Slagen(char* code) {
    constexpr int vanlig = 1;
    constexpr int storstaSmalaPv = 99;
    constexpr std::size_t kortastePv = 4;
    std::string_view const kod = code;
    std::int32_t nummer = 0;
    if (kod.size() < kortastePv || !kod.starts_with("PV") ||
        kvarn::Scan(kod.substr(2), nummer) != 1) {
        return vanlig;
    }
    kvarn::Lamna(code, kod.substr(2));
    return nummer <= storstaSmalaPv ? 2 : 3;
}

} // namespace

int CKvarnInst::LinkodRead(char* code, char* word, char* text, double* number, int* integer) {
    kvarn::Laspass pass(m_fil, kvarn::Passlag::linkod);
    if (pass.Ledig() && !pass.Oppna(kvarn::FirstFound(m_proj, m_ini, CProjPath::Linkod),
                                    "Läsning av Kvarnbok - Linkod.dat inställningar"_1252)) {
        return -1;
    }
    std::string_view rad;
    if (!pass.NastaPost(rad)) {
        return 0;
    }
    std::string_view kod;
    std::string_view ord;
    std::int32_t heltal = 0;
    int const antal = kvarn::Scan(rad, kod, ord, *number, heltal);
    if (antal >= 1) {
        kvarn::Lamna(code, kod);
    }
    if (antal >= 2) {
        kvarn::Lamna(word, ord);
    }
    if (antal < 3) {
        return -2;
    }
    *integer = heltal;
    rad = kvarn::TrimmedRight(rad);
    kvarn::Lamna(text, rad.substr(std::min(rad.size(), textKolumn)));
    OemToAnsiNordic(text);
    OemToAnsiNordic(code);
    return Slagen(code);
}

int CKvarnInst::LinkodWrite(int mode, char const* a, char const* b, char const* c, char const* text,
                            char const* e) {
    enum { borja = 1, vanligRad = 2, pvRad = 4, sluta = 5 };
    kvarn::Skrivpass pass(m_fil, kvarn::Passlag::linkod);
    if (mode == borja) {
        CString const path = kvarn::FirstFound(m_proj, m_ini, CProjPath::Linkod);
        if (!pass.Borja(path)) {
            kvarn::KanInteSkriva(path, "Skrivning av Kvarnbok - Linkod.par inställningar"_1252);
        }
        return 0;
    }
    if (!pass.Pagar()) {
        return -1;
    }
    bool skriven = true;
    if (mode == vanligRad) {
        skriven = pass.Skriv(Linkodrad(
            kvarn::Format("%s %s %s", kvarn::Text(a), kvarn::Text(b), kvarn::Text(c)), text));
    } else if (mode == pvRad) {
        skriven =
            pass.Skriv(Linkodrad(kvarn::Format("PV%s %s %s %s", kvarn::Text(a), kvarn::Text(b),
                                               kvarn::Text(c), kvarn::Text(e)),
                                 text));
    } else if (mode == sluta) {
        bool const slutrad = pass.Skriv("*\n");
        skriven = pass.Avsluta() && slutrad;
    }
    return skriven ? 0 : -1;
}
