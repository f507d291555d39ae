#include "jb23.h"

#include "../files/filerewrite.h"
#include "../files/pathparts.h"
#include "../files/textfil.h"
#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/scan.h"
#include "kvarninst.h"
#include "oppningsfel.h"

namespace {

constexpr std::string_view skala = "SKALA";
constexpr std::string_view steg = "STEG";

// In the order of their lines.
constexpr std::string_view storheter[] = {"SJUNK",  "HAST",  "KRAFT", "RPM", "SPOL", "FLODE",
                                          "HAMMAR", "TRYCK", "QT",    "FT",  "U"};

// Where a key's value stands. A key that is unknown stands on the first line.
struct Plats {
    explicit Plats(std::string_view nyckel) : arSteg(nyckel.find(steg) != std::string_view::npos) {
        int nummer = 0;
        for (std::string_view const storhet : storheter) {
            ++nummer;
            if (nyckel.starts_with(storhet) &&
                nyckel.substr(storhet.size()) == (arSteg ? steg : skala)) {
                rad = nummer;
            }
        }
    }
    int rad = 1; // counted from 1
    bool arSteg; // the second column
};

// A line as it is taken apart and put together again; a missing word is empty.
struct Skalrad {
    explicit Skalrad(std::string_view rad) { kvarn::Scan(rad, skala, steg); }
    Skalrad(std::string_view enSkala, std::string_view ettSteg) : skala(enSkala), steg(ettSteg) {}

    std::string_view& I(Plats const& plats) { return plats.arSteg ? steg : skala; }
    std::string Text() const { return kvarn::Format("%s   %s\n", skala, steg); }

    std::string_view skala;
    std::string_view steg;
};

// All of the file, with the value in its place.
std::string MedVarde(kvarn::TextReader& fil, Plats const& plats, std::string_view varde) {
    std::string rader;
    std::string_view rad;
    int antal = 0;
    while (fil.ReadLine(rad)) {
        if (++antal == plats.rad) {
            Skalrad ny(rad);
            ny.I(plats) = varde;
            rader += ny.Text();
        } else {
            (rader += rad) += '\n';
        }
    }
    if (antal < plats.rad) { // one line more, whichever the key's own would be
        Skalrad ny("0", "0");
        ny.I(plats) = varde;
        rader += ny.Text();
    }
    return rader;
}

// A new file is complete only for the first line's scale.
std::string Nytt(Plats const& plats, std::string_view varde) {
    constexpr char const* vanligtSteg = "50";
    return plats.rad == 1 && !plats.arSteg ? Skalrad(varde, vanligtSteg).Text() : "";
}

CString Skrivplats(CProjPath const* projekt, CAutoIni const* ini) {
    CString path = kvarn::FirstFound(projekt, ini, CProjPath::Jb23ParNamn);
    if (path.IsEmpty() && ini != nullptr && !ini->m_cfgKat.IsEmpty()) {
        path = kvarn::PathOf(ini->m_cfgKat.GetString(), CProjPath::Jb23ParNamn).c_str();
    }
    return path;
}

} // namespace

int kvarn::SkrivJb23(CProjPath const* projekt, CAutoIni const* ini, char const* nyckel,
                     char const* varde) {
    Plats const plats(nyckel);
    CString const path = Skrivplats(projekt, ini);
    if (path.IsEmpty()) {
        return 0;
    }
    std::string rader;
    { // closed again before it is replaced
        TextReader fil(path);
        rader = fil.IsOpen() ? MedVarde(fil, plats, varde) : Nytt(plats, varde);
        if (fil.Failed() || (!fil.IsOpen() && !fil.Missing())) {
            return -1;
        }
    }
    RewriteFile(path, InTextMode(rader), TemporaryOf(path.GetString()).c_str());
    return 0;
}

CString CKvarnInst::Jb23ReadKey(CString key) {
    Plats const plats(key.GetString());
    CString const path = kvarn::FirstFound(m_proj, m_ini, CProjPath::Jb23ParNamn);
    if (path.IsEmpty()) {
        return {};
    }
    kvarn::TextReader fil(path);
    if (!fil.IsOpen()) {
        kvarn::KanInteLasa(path, "Läsning av Kvarnbok - jb2/3 inställningar"_1252);
        return {};
    }
    std::string_view rad;
    for (int antal = 1; fil.ReadLine(rad); ++antal) {
        if (antal == plats.rad) {
            return std::string(Skalrad(rad).I(plats)).c_str();
        }
    }
    return {};
}

CString CKvarnInst::Jb23WriteKey(CString key, CString value) {
    kvarn::SkrivJb23(m_proj, m_ini, key.GetString(), value.GetString());
    return value;
}
