// CKvarnInst: the title block's parameters, in a file that the caller names.
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "../text/scan.h"
#include "klienttext.h"
#include "kvarninst.h"
#include "oppningsfel.h"
#include "passfil.h"

int CKvarnInst::StampParRead(char const* path, char* word1, char* word2, double* num1, double* num2,
                             double* num3) {
    constexpr double tredjeTal = 3.0; // of a line that leaves it out
    kvarn::Laspass pass(m_fil, kvarn::Passlag::stampel);
    if (pass.Ledig() &&
        !pass.Oppna(kvarn::Text(path), "Läsning av Kvarnbok - Stämpel inställningar"_1252)) {
        return -1;
    }
    std::string_view rad;
    if (!pass.NastaPost(rad)) {
        return 0;
    }
    std::string_view forsta;
    std::string_view andra;
    int const antal = kvarn::Scan(rad, forsta, andra, *num1, *num2, *num3);
    if (antal >= 1) {
        kvarn::Lamna(word1, forsta);
    }
    if (antal >= 2) {
        kvarn::Lamna(word2, andra);
    }
    if (antal < 4) {
        return -2;
    }
    if (antal == 4) {
        *num3 = tredjeTal;
    }
    OemToAnsiNordic(word1);
    return 1;
}

int CKvarnInst::StampParWrite(char const* path, int mode, char const* s1, char const* s2,
                              char const* s3, char const* s4, char const* s5) {
    enum { borja = 1, rad = 2, sluta = 3 };
    kvarn::Skrivpass pass(m_fil, kvarn::Passlag::stampel);
    if (mode == borja) {
        if (!pass.Borja(kvarn::Text(path))) {
            kvarn::KanInteSkriva(path, "Skrivning av Kvarnbok - Stämpel inställningar"_1252);
        }
        return 0;
    }
    if (!pass.Pagar()) {
        return -1;
    }
    bool skriven = true;
    if (mode == rad) {
        skriven = pass.Skriv(kvarn::Format("%s %s %s %s %s\n", kvarn::Text(s1), kvarn::Text(s2),
                                           kvarn::Text(s3), kvarn::Text(s4), kvarn::Text(s5)));
    } else if (mode == sluta) {
        skriven = pass.Avsluta();
    }
    return skriven ? 0 : -1;
}
