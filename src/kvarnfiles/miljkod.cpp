// CKvarnInst: the environmental codes, in three sections.
#include <climits>
#include <iterator>
#include <optional>

#include "../core/messageout.h"
#include "../files/filerewrite.h"
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

constexpr std::size_t langstaKod = 4;
constexpr int forstaAvsnitt = 1; // with records; section 0 is empty
constexpr char const* avsnittSlut = "*\n";
constexpr char const* tomInledning = "*\n*\n"; // header and section 0

struct Miljpost {
    std::string kod;
    std::string text;
    int max = 100;
    int steg = 20;
};

// Stands at the start of a section; at the end of a file that has none such.
void TillAvsnitt(kvarn::TextReader& fil, int avsnitt) {
    constexpr int aldrig = INT_MAX;
    bool const kan = avsnitt >= 0 && avsnitt < aldrig;
    kvarn::SkipStarLines(fil, kan ? avsnitt + 1 : aldrig);
}

// A number that stands last in a text, after its name and "="; where the last letter of the kind
// that the name begins with begins no such name, the value stays and so does the text. The
// character before the name goes with it.
void TaTal(std::string_view& text, std::string_view namn, std::string_view forstaBokstav, int minst,
           int& varde) {
    constexpr int mest = 100000;
    std::size_t const plats = text.find_last_of(forstaBokstav);
    if (plats == std::string_view::npos || plats == 0 ||
        !kvarn::SameText(text.substr(plats, namn.size()), namn)) {
        return;
    }
    std::int32_t tal = varde;
    kvarn::Scan(text.substr(plats + namn.size()), tal);
    varde = tal >= minst && tal <= mest ? tal : varde;
    text = kvarn::TrimmedRight(text.substr(0, plats - 1));
}

Miljpost Tolkad(std::string_view kod, std::string_view text, bool medTal) {
    Miljpost post;
    if (medTal) {
        TaTal(text, "steg=", "sS", 1, post.steg);
        TaTal(text, "max=", "mM", 0, post.max);
    }
    post.kod = kod;
    post.text = text;
    OemToAnsiNordic(post.text.data());
    return post;
}

// The next record of the section; none at its end.
std::optional<Miljpost> NastaPost(kvarn::TextReader& fil, bool medTal) {
    std::string_view rad;
    while (fil.ReadLine(rad) && !kvarn::IsStarLine(rad)) {
        std::string_view kod;
        if (kvarn::Scan(rad, kod) != 1) {
            continue;
        }
        if (kod.size() <= langstaKod) {
            std::string_view const efterKod = rad.substr(rad.find(kod) + kod.size());
            return Tolkad(kod, kvarn::Trimmed(efterKod), medTal);
        }
        kvarn::Notify(kvarn::Format("Fel rad, namn är för långt\n%s"_1252, rad));
    }
    return std::nullopt;
}

std::string Rad(char const* kod, char const* text) {
    return kvarn::Format("%s %s\n", kvarn::Text(kod), kvarn::Text(text));
}
std::string RadMedTal(char const* kod, char const* text, int max, int steg) {
    return kvarn::Format("%s %s max=%d steg=%d\n", kvarn::Text(kod), kvarn::Text(text), max, steg);
}

// --- Codes that programs rely on -----------------------------------------------------------------

struct Avsnitt {
    bool medTal;
    Miljpost obligatorisk;
};

std::string Rad(Avsnitt const& avsnitt, Miljpost const& post) {
    // A code that begins with a star was read after a blank, and would end the section without.
    std::string const kod = (kvarn::IsStarLine(post.kod) ? " " : "") + post.kod;
    return avsnitt.medTal ? RadMedTal(kod.c_str(), post.text.c_str(), post.max, post.steg)
                          : Rad(kod.c_str(), post.text.c_str());
}

// Appends the lines of the section that the file stands at, with its obligatory code at the end
// where that was missing. True when it was there.
bool Uppdatera(std::string& rader, kvarn::TextReader& fil, Avsnitt const& avsnitt) {
    bool funnen = false;
    while (auto const post = NastaPost(fil, avsnitt.medTal)) {
        funnen = funnen || post->kod == avsnitt.obligatorisk.kod;
        rader += Rad(avsnitt, *post);
    }
    rader += funnen ? "" : Rad(avsnitt, avsnitt.obligatorisk);
    rader += avsnittSlut;
    return funnen;
}

char const* const lasrubrik = "Läsning av Kvarnbok - Miljkod.dat inställningar"_1252;
char const* const skrivrubrik = "Skrivning av Kvarnbok - Miljkod.dat inställningar"_1252;

} // namespace

int CKvarnInst::MiljkodRead(int section, char* code, char* text, int* max, int* step) {
    kvarn::Laspass pass(m_fil, kvarn::Passlag::miljkod);
    if (pass.Ledig()) {
        pass.Oppna(kvarn::FirstFound(m_proj, m_ini, CProjPath::Miljkod), lasrubrik);
        if (pass.Fil() != nullptr) {
            TillAvsnitt(*pass.Fil(), section);
        }
    }
    bool const medTal = max != nullptr && step != nullptr;
    auto const post = pass.Fil() != nullptr ? NastaPost(*pass.Fil(), medTal) : std::nullopt;
    if (!post) {
        pass.Avsluta();
        return -1;
    }
    kvarn::Lamna(code, post->kod);
    kvarn::Lamna(text, post->text);
    if (medTal) {
        *max = post->max;
        *step = post->steg;
    }
    return 0;
}

int CKvarnInst::MiljKodWrite(int mode, char const* code, char const* text, int max, int step) {
    enum { borja = 1, metod, metoderSlut, tolkning, tolkningarSlut, klass, sluta };
    kvarn::Skrivpass pass(m_fil, kvarn::Passlag::miljkod);
    if (mode == borja) {
        CString const path = kvarn::FirstFound(m_proj, m_ini, CProjPath::Miljkod);
        if (!pass.Borja(path)) {
            kvarn::KanInteSkriva(path, skrivrubrik);
        }
        return !pass.Pagar() || pass.Skriv(tomInledning) ? 0 : -1;
    }
    if (!pass.Pagar()) {
        return -1;
    }
    bool skriven = true;
    if (mode == metod || mode == tolkning) {
        skriven = pass.Skriv(Rad(code, text));
    } else if (mode == klass) {
        skriven = pass.Skriv(RadMedTal(code, text, max, step));
    } else if (mode == metoderSlut || mode == tolkningarSlut || mode == sluta) {
        skriven = pass.Skriv(avsnittSlut);
    }
    if (mode == sluta) {
        skriven = pass.Avsluta() && skriven;
    }
    return skriven ? 0 : -1;
}

int CKvarnInst::MiljkodUppdatX() {
    Avsnitt const alla[] = {{false, {"X", "okänd metod, sammanställning"_1252}},
                            {false, {"TOLK", "Tolkad klassificering"}},
                            {true, {"FK", "Föroreningsklass"_1252, 6, 1}}};
    kvarn::StangPass(m_fil);
    CString const path = kvarn::FirstFound(m_proj, m_ini, CProjPath::Miljkod);
    if (path.IsEmpty()) {
        return 0;
    }
    std::string rader = tomInledning;
    { // closed again before it is replaced
        kvarn::TextReader fil(path);
        if (!fil.IsOpen()) {
            kvarn::KanInteLasa(path, lasrubrik);
            return 0;
        }
        TillAvsnitt(fil, forstaAvsnitt);
        int funna = 0;
        for (Avsnitt const& avsnitt : alla) {
            funna += Uppdatera(rader, fil, avsnitt) ? 1 : 0;
        }
        if (fil.Failed() || funna == std::ssize(alla)) {
            return 0;
        }
    }
    if (kvarn::RewriteFile(path, kvarn::InTextMode(rader)) != kvarn::Rewritten::done) {
        kvarn::KanInteSkriva(path, skrivrubrik);
    }
    return 0;
}
