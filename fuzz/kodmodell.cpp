#include "kodmodell.h"

#include <algorithm>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "check.h"
#include "formats/linkod.h"
#include "formats/miljkod.h"
#include "support/boxes.h"
#include "text/codepage.h"
#include "text/letters.h"

// --- The library's calls -------------------------------------------------------------------------

bool Svar::operator==(Svar const& annat) const {
    auto const lika = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    return result == annat.result && ord == annat.ord && heltal == annat.heltal &&
           rutor == annat.rutor && std::equal(tal.begin(), tal.end(), annat.tal.begin(), lika);
}

namespace {

int Rutor() {
    int const antal = static_cast<int>(Boxes::Shown().size());
    Boxes::Shown().clear();
    return antal;
}

std::string Stampelfil(Mappar const& mappar, Anrop const& anrop) {
    return anrop.fil.empty() ? "" : mappar.Sokvag(anrop.fil);
}

} // namespace

Svar Las(CKvarnInst& inst, Mappar const& mappar, Anrop const& anrop) {
    constexpr std::size_t storlek = kvarn::longestKodtext + 1;
    std::string const vakt(64, 'U');
    std::array<std::string, 3> ord;
    ord.fill("\n" + std::string(storlek - 1, '\0') + vakt);
    Svar svar;
    switch (anrop.slag) {
    case Slag::kodfil:
        svar.result = inst.KodfilDatRead(ord[0].data(), ord[1].data());
        break;
    case Slag::miljkod:
        svar.result = inst.MiljkodRead(anrop.lage, ord[0].data(), ord[1].data(),
                                       anrop.utan[0] ? nullptr : &svar.heltal[0],
                                       anrop.utan[1] ? nullptr : &svar.heltal[1]);
        break;
    case Slag::linkod:
        svar.result = inst.LinkodRead(ord[0].data(), ord[1].data(), ord[2].data(), &svar.tal[0],
                                      &svar.heltal[0]);
        break;
    case Slag::stampel:
        svar.result = inst.StampParRead(Stampelfil(mappar, anrop).c_str(), ord[0].data(),
                                        ord[1].data(), &svar.tal[0], &svar.tal[1], &svar.tal[2]);
    }
    for (std::size_t i = 0; i < ord.size(); ++i) {
        Check(ord[i].substr(storlek) == vakt, "a buffer of 256 bytes is enough");
        svar.ord[i] = TillNoll(ord[i]);
    }
    svar.rutor = Rutor();
    return svar;
}

Svar Skriv(CKvarnInst& inst, Mappar const& mappar, Anrop const& anrop) {
    char const* o[5];
    for (std::size_t i = 0; i < std::size(o); ++i) { // an empty text in both its forms
        o[i] = anrop.ord[i].empty() && i % 2 == 0 ? nullptr : anrop.ord[i].c_str();
    }
    Svar svar;
    switch (anrop.slag) {
    case Slag::kodfil:
        svar.result = inst.KodfilDatWrite(anrop.lage, o[0], o[1]);
        break;
    case Slag::miljkod:
        svar.result = inst.MiljKodWrite(anrop.lage, o[0], o[1], anrop.heltal[0], anrop.heltal[1]);
        break;
    case Slag::linkod:
        svar.result = inst.LinkodWrite(anrop.lage, o[0], o[1], o[2], o[3], o[4]);
        break;
    case Slag::stampel:
        svar.result = inst.StampParWrite(Stampelfil(mappar, anrop).c_str(), anrop.lage, o[0], o[1],
                                         o[2], o[3], o[4]);
    }
    svar.rutor = Rutor();
    return svar;
}

// --- Texts ---------------------------------------------------------------------------------------

std::string TillNoll(std::string_view text) {
    return std::string(text.substr(0, text.find('\0')));
}

std::string Kort(std::string const& text) {
    return text.substr(0, kvarn::longestKodtext);
}

std::string UtanBlanka(std::string text, bool borjan) {
    constexpr char const* blanka = " \t\n\v\f\r";
    text.erase(text.find_last_not_of(blanka) + 1);
    return text.erase(0, borjan ? std::min(text.find_first_not_of(blanka), text.size()) : 0);
}

std::string DosTillAnsi(std::string text) {
    OemToAnsiNordic(text.data());
    return text;
}

std::string Kodtext(std::string_view bytes) {
    using namespace std::literals;
    // clang-format off
    static std::string const bitar[] = {
        "*\n", "*", "\n", "\r\n", "\r", " ", "\t", "\x1A", "\0"s, "PV", "PV12 ", "PV120", "PV-5 ",
        " max=", " steg=", "max=0", "steg=0", "MAX=200000", "Steg=100001", "=", "s", "m", "X ",
        "TOLK ", "FK ", "ABCDE ", "*A ", "K1 Lera gr\xE5\n", "\x86\x84\x94", "\xED", "\xA0", "\xC5",
        "1.5 ", "-3 ", "12", "1e308 ", "inf ", "nan ", "0x1p3 ", "99999999999 ",
        std::string(254, 'w'), std::string(256, 'v'), std::string(20, ' '), std::string(48, 'k'),
        "A B 1.5 7" + std::string(40, ' ') + "text\n", "FK Text max=6 steg=1\n", "a b 1 2 3\n",
        "\n*\n*\n*\n*\n"};
    // clang-format on
    constexpr std::size_t forsta = 0xA0;
    std::string text;
    for (char const c : bytes) {
        std::size_t const nummer = static_cast<unsigned char>(c);
        bool const bit = nummer >= forsta && nummer - forsta < std::size(bitar);
        text += bit ? bitar[nummer - forsta] : std::string(1, c);
    }
    return text;
}

// --- The model -----------------------------------------------------------------------------------

bool Heltal(std::string const& text, int& value) {
    std::int64_t tal = 0;
    bool const last = std::sscanf(text.c_str(), "%" SCNd64, &tal) == 1;
    value = last ? static_cast<int>(std::clamp<std::int64_t>(tal, INT32_MIN, INT32_MAX)) : value;
    return last;
}

namespace {

// Takes "steg=" or "max=" and its number off the end of a text.
void TaTal(std::string& text, kvarn::MiljkodLimit const& limit, int& varde) {
    std::string const namn(limit.name);
    int const standard = limit.otherwise;
    varde = standard;
    std::string sma = text;
    std::transform(sma.begin(), sma.end(), sma.begin(), kvarn::Lower1252);
    std::size_t const plats = sma.rfind(namn[0]);
    if (plats == std::string::npos || plats < 1 || sma.find(namn, plats) == std::string::npos) {
        return;
    }
    Heltal(sma.substr(plats + namn.size()), varde);
    varde = varde < limit.least || varde > limit.most ? standard : varde;
    text = UtanBlanka(text.substr(0, plats - 1), false);
}

// Each reads a line; false when it is skipped.

bool Kodrad(std::string const& a, std::string const& b, Svar& svar) {
    if (!b.empty()) {
        svar.ord = {Kort(a), Kort(b), svar.ord[2]};
    }
    return !b.empty();
}

bool Miljrad(std::string const& rad, std::string const& kod, bool medTal, Svar& svar) {
    constexpr std::size_t langst = kvarn::longestMiljkod;
    svar.rutor += kod.size() > langst ? 1 : 0;
    if (kod.empty() || kod.size() > langst) {
        return false;
    }
    std::string text = UtanBlanka(rad.substr(rad.find(kod) + kod.size()));
    if (medTal) {
        TaTal(text, kvarn::miljkodStep, svar.heltal[1]);
        TaTal(text, kvarn::miljkodMax, svar.heltal[0]);
    }
    svar.ord = {kod, Kort(DosTillAnsi(text)), svar.ord[2]};
    return true;
}

void Linkodrad(std::string const& rad, Svar& svar) {
    constexpr std::size_t kolumn = kvarn::linkodTextColumn;
    int lasta = 0;
    std::sscanf(rad.c_str(), "%*s %*s %*f%n", &lasta);
    svar.heltal[0] = 0;
    Heltal(rad.c_str() + lasta, svar.heltal[0]);
    std::string const text = UtanBlanka(rad, false);
    svar.ord[2] = DosTillAnsi(Kort(text.size() > kolumn ? text.substr(kolumn) : ""));
    std::string const kod = svar.ord[0] = DosTillAnsi(svar.ord[0]);
    int nummer = 0;
    if (kod.size() >= 4 && kod.starts_with("PV") && Heltal(kod.substr(2), nummer)) {
        svar.result = nummer < 100 ? 2 : 3;
        svar.ord[0] = kod.substr(2);
    }
}

bool Tolka(Anrop const& anrop, std::string const& rad, Svar& svar) {
    std::string a(rad.size() + 1, '\0');
    std::string b = a;
    std::array<double, 3> tal = svar.tal;
    int const antal = std::sscanf(rad.c_str(), "%s %s %lf %lf %lf", a.data(), b.data(), &tal[0],
                                  &tal[1], &tal[2]);
    a = TillNoll(a);
    b = TillNoll(b);
    if (anrop.slag == Slag::kodfil) {
        return Kodrad(a, b, svar);
    }
    if (anrop.slag == Slag::miljkod) {
        return Miljrad(rad, a, !anrop.utan[0] && !anrop.utan[1], svar);
    }
    bool const linkod = anrop.slag == Slag::linkod;
    svar.ord[0] = a.empty() ? svar.ord[0] : Kort(a);
    svar.ord[1] = b.empty() ? svar.ord[1] : Kort(b);
    svar.tal[0] = tal[0];
    svar.result = antal < (linkod ? 3 : 4) ? -2 : 1;
    if (!linkod) {
        svar.tal = {tal[0], tal[1], antal == 4 ? 3.0 : tal[2]};
        svar.ord[0] = svar.result == 1 ? DosTillAnsi(svar.ord[0]) : svar.ord[0];
    } else if (svar.result == 1) {
        Linkodrad(rad, svar);
    }
    return true;
}

bool NastaRad(kvarn::LineReader& fil, std::string& rad) {
    std::string_view nasta;
    bool const last = fil.ReadLine(nasta);
    rad = last ? nasta : "";
    return last;
}

} // namespace

void Stall(kvarn::LineReader& fil, Anrop const& anrop) {
    std::string rad;
    std::int64_t stjarnor = anrop.slag == Slag::kodfil    ? 1
                            : anrop.slag != Slag::miljkod ? 0
                            : anrop.lage < 0              ? INT64_MAX
                                                          : std::int64_t{anrop.lage} + 1;
    while (stjarnor > 0 && NastaRad(fil, rad)) {
        stjarnor -= rad[0] == '*' ? 1 : 0;
    }
}

int Slut(Slag slag) {
    return slag == Slag::kodfil || slag == Slag::miljkod ? -1 : 0;
}

Svar Nasta(kvarn::LineReader& fil, Anrop const& anrop) {
    Svar svar;
    std::string rad;
    while (NastaRad(fil, rad) && (anrop.slag == Slag::kodfil || rad[0] != '*')) {
        if (Tolka(anrop, rad, svar)) {
            return svar;
        }
    }
    svar.result = Slut(anrop.slag);
    return svar;
}
