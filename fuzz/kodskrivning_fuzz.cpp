// Code files of any bytes are read as a model reads them. What is written to them reads back, for
// all that can: a word has no white space, a text is one line, neither has a zero or an end-of-file
// character, the first word of a line begins with no "*", and 255 characters come back. Then,
// format by format,
// - the code file's header, which is kept, has a line "*";
// - an environmental code has at most four characters; its text comes back without the blanks at
//   its ends and with its DOS letters converted, the numbers within their limits; where a class has
//   no text its maximum is read as one;
// - the first part of a line code ends before the text's column; the text comes back without the
//   blanks at its end, and a line without a whole number takes one that the text begins with;
// - a Jb2/Jb3 step has a scale before it, and the file is at most one line short of the key's own.
// The update of the environmental codes keeps the records of any file.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>

#include "check.h"
#include "formats/linkod.h"
#include "formats/miljkod.h"
#include "kodmodell.h"
#include "support/boxes.h"
#include "text/codepage.h"

namespace {

using Rader = std::vector<std::string>;
using Poster = std::vector<Svar>;

Mappar mappar;
CKvarnInst inst;

// A file in one of the folders, and what is written to it.
class Prov {
  public:
    Prov(FuzzedDataProvider& provider, std::string const& namn) : in(provider) {
        constexpr std::size_t langst = 200;
        mappar.Tom();
        inst.Init(&mappar.ini, &mappar.proj);
        char const mapp = Mappar::alla[in.ConsumeIntegralInRange<std::size_t>(0, 2)];
        mappar.Skriv(mapp, namn, Kodtext(in.ConsumeRandomLengthString(langst)));
        m_fil = mapp + ('/' + namn);
    }
    std::string Bytes() const { return mappar.Allt().at(m_fil); }
    Rader Lasta() const {
        Check(mappar.Allt().size() == 1, "no file is left beside it");
        Rader rader;
        std::string const bytes = Bytes();
        kvarn::LineReader fil{std::string_view(bytes)};
        for (std::string_view rad; fil.ReadLine(rad);) {
            rader.emplace_back(rad);
        }
        return rader;
    }

    std::string Text(std::string_view utan = {"\n\0\x1A", 3}) {
        constexpr std::size_t langst = 12;
        std::string text = Kodtext(in.ConsumeRandomLengthString(langst));
        std::erase_if(text, [&](char c) { return utan.find(c) != std::string_view::npos; });
        return text;
    }
    std::string Ord(std::size_t langst = 300) {
        std::string const text = Text({"\t\n\v\f\r \0\x1A", 8});
        return text.empty() ? "o" : text.substr(0, langst);
    }
    std::string ForstaOrd(std::size_t langst = 300) {
        std::string const text = Ord(langst);
        return text[0] == '*' ? "k" : text;
    }
    std::string Tal(char const* format) {
        char text[40];
        std::snprintf(text, sizeof text, format, in.ConsumeFloatingPointInRange(-1e9, 1e9));
        return text;
    }
    int Skrivet(Slag slag, int lage, std::array<std::string, 5> const& ord = {},
                std::array<int, 2> const& heltal = {}) const {
        return Skriv(inst, mappar, {slag, lage, ord, heltal, {}, m_fil}).result;
    }
    // The records up to the end, as the model reads them too.
    Poster Lasta(Slag slag, int avsnitt = 0) const {
        Anrop const anrop = {slag, avsnitt, {}, {}, {avsnitt != 3}, m_fil};
        std::string const bytes = Bytes();
        kvarn::LineReader fil{std::string_view(bytes)};
        Stall(fil, anrop);
        Poster poster;
        Svar svar;
        do {
            svar = Las(inst, mappar, anrop);
            Check(svar == Nasta(fil, anrop), "what the model reads");
            poster.push_back(svar);
        } while (svar.result != Slut(slag));
        poster.pop_back();
        return poster;
    }
    bool Fler() { return in.remaining_bytes() > 0 && in.ConsumeBool(); }

    FuzzedDataProvider& in;

  private:
    std::string m_fil;
};

// --- The code file -------------------------------------------------------------------------------

void Kodfil(FuzzedDataProvider& provider) {
    Prov prov(provider, "KODFIL.DAT");
    prov.Lasta(Slag::kodfil);
    Rader vantade = prov.Lasta();
    auto const slut = std::find_if(vantade.begin(), vantade.end(),
                                   [](std::string const& rad) { return rad.starts_with('*'); });
    bool const lasbar = slut != vantade.end();
    vantade.erase(lasbar ? slut + 1 : slut, vantade.end());
    Poster poster;
    int lage = 1;
    do {
        std::string const kod = prov.ForstaOrd();
        std::string const ord = prov.Ord();
        prov.Skrivet(Slag::kodfil, lage, {kod, ord});
        lage = 0;
        vantade.push_back(kod + ' ' + ord);
        poster.push_back({.ord = {Kort(kod), Kort(ord), "\n"}});
    } while (prov.Fler());
    prov.Skrivet(Slag::kodfil, 2);
    vantade.emplace_back("*");
    Check(prov.Lasta() == vantade, "header, codes and the end line");
    Check(prov.Lasta(Slag::kodfil) == (lasbar ? poster : Poster()), "the codes read back");
}

// --- The environmental codes ---------------------------------------------------------------------

// What a record is when it has been written and read.
Svar Tillbaka(Svar post, int avsnitt) {
    constexpr int mest = kvarn::MiljkodLimit::most;
    auto& [max, steg] = post.heltal;
    post.ord[1] = DosTillAnsi(Kort(UtanBlanka(post.ord[1])));
    if (avsnitt == 3) {
        bool const tom = post.ord[1].empty();
        post.ord[1] = tom ? "max=" + std::to_string(max) : post.ord[1];
        max = tom || max < 0 || max > mest ? kvarn::miljkodMax.otherwise : max;
        steg = steg < 1 || steg > mest ? kvarn::miljkodStep.otherwise : steg;
    }
    return post;
}

void Miljkod(FuzzedDataProvider& provider) {
    Prov prov(provider, "MILJKOD.DAT");
    prov.Skrivet(Slag::miljkod, 1);
    Poster poster[4];
    for (int i = 1; i <= 3; ++i) {
        while (prov.Fler()) {
            constexpr int mest = kvarn::MiljkodLimit::most + 2;
            Svar post{.ord = {prov.ForstaOrd(kvarn::longestMiljkod), prov.Text(), "\n"}};
            if (i == 3) {
                post.heltal = {prov.in.ConsumeIntegralInRange(-2, mest),
                               prov.in.ConsumeIntegral<int>() >>
                                   prov.in.ConsumeIntegralInRange(0, 24)};
            }
            Check(prov.Skrivet(Slag::miljkod, 2 * i, {post.ord[0], post.ord[1]}, post.heltal) == 0,
                  "a record");
            poster[i].push_back(Tillbaka(post, i));
        }
        Check(prov.Skrivet(Slag::miljkod, 2 * i + 1) == 0, "a section's end");
    }
    Check(!prov.Lasta().empty(), "the sections' ends");
    for (int i = 0; i <= 4; ++i) {
        Check(prov.Lasta(Slag::miljkod, i) == (i < 4 ? poster[i] : Poster()),
              "the codes read back");
    }
}

void MiljkodUppdatX(FuzzedDataProvider& provider) {
    Prov prov(provider, "MILJKOD.DAT");
    std::string const fore = prov.Bytes();
    Poster poster[4];
    bool alla = true;
    for (int i = 1; i <= 3; ++i) {
        static Svar const obligatoriska[] = {
            {.ord = {"X", "okänd metod, sammanställning"_1252, "\n"}},
            {.ord = {"TOLK", "Tolkad klassificering", "\n"}},
            {.ord = {"FK", "Föroreningsklass"_1252, "\n"}, .heltal = {6, 1}}};
        Svar const& obligatorisk = obligatoriska[i - 1];
        poster[i] = prov.Lasta(Slag::miljkod, i);
        if (std::none_of(poster[i].begin(), poster[i].end(),
                         [&](Svar const& post) { return post.ord[0] == obligatorisk.ord[0]; })) {
            poster[i].push_back(obligatorisk);
            alla = false;
        }
    }
    inst.MiljkodUppdatX();
    Boxes::Shown().clear();
    Check(!alla || prov.Bytes() == fore, "a file that has all three codes is left alone");
    std::string const efter = prov.Bytes();
    for (int i = 1; i <= 3 && !alla; ++i) {
        for (Svar& post : poster[i]) {
            post = post.ord[1].empty() ? Tillbaka(post, i) : post;
            post.rutor = 0; // the lines that were skipped are gone
        }
        Check(prov.Lasta(Slag::miljkod, i) == poster[i],
              "every record is kept, what was missing added");
    }
    inst.MiljkodUppdatX();
    Check(prov.Bytes() == efter && prov.Lasta().size() >= 5, "updating again changes nothing");
}

// --- The line codes and the title block ----------------------------------------------------------

void Linkod(FuzzedDataProvider& provider) {
    constexpr std::size_t kort = 8; // so that the first part has 48 characters at most
    Prov prov(provider, "LINKOD.PAR");
    prov.Lasta(Slag::linkod);
    prov.Skrivet(Slag::linkod, 1);
    Poster poster;
    while (prov.Fler()) {
        bool const pv = prov.in.ConsumeBool();
        int const nummer = prov.in.ConsumeIntegralInRange(0, 200);
        int heltal = prov.in.ConsumeIntegral<int>();
        std::string kod = prov.ForstaOrd(kort);
        kod = pv ? std::to_string(nummer) : kod.starts_with("PV") ? "P" : kod;
        std::string const ord = prov.Ord(kort);
        std::string const tal = prov.Tal("%g");
        std::string const text = prov.Text();
        Check(prov.Skrivet(Slag::linkod, pv ? 4 : 2,
                           {kod, ord, tal, text, std::to_string(heltal)}) == 0,
              "a line code");
        Check((prov.Lasta().back() + '\r').compare(kvarn::linkodTextColumn, text.size(), text) == 0,
              "the text stands in its column");
        if (!pv && !Heltal(text, heltal)) {
            heltal = 0;
        }
        poster.push_back({.result = !pv || nummer < 10 ? 1
                                    : nummer < 100     ? 2
                                                       : 3,
                          .ord = {(pv && nummer < 10 ? "PV" : "") + DosTillAnsi(kod), ord,
                                  DosTillAnsi(Kort(UtanBlanka(text, false)))}});
        poster.back().tal[0] = std::strtod(tal.c_str(), nullptr);
        poster.back().heltal[0] = heltal;
    }
    Check(prov.Skrivet(Slag::linkod, 5) == 0 && prov.Lasta().back() == "*", "the end line");
    Check(prov.Lasta(Slag::linkod) == poster, "the line codes read back");
}

void Stampel(FuzzedDataProvider& provider) {
    Prov prov(provider, "STAMP.PAR");
    prov.Lasta(Slag::stampel);
    prov.Skrivet(Slag::stampel, 1);
    Poster poster;
    while (prov.Fler()) {
        std::array<std::string, 5> const rad = {prov.ForstaOrd(), prov.Ord(), prov.Tal("%.17g"),
                                                prov.Tal("%f"),
                                                prov.in.ConsumeBool() ? prov.Tal("%e") : ""};
        Check(prov.Skrivet(Slag::stampel, 2, rad) == 0, "a field");
        Svar post{.result = 1, .ord = {DosTillAnsi(Kort(rad[0])), Kort(rad[1]), "\n"}};
        for (std::size_t i = 0; i < 3; ++i) {
            post.tal[i] = rad[i + 2].empty() ? 3.0 : std::strtod(rad[i + 2].c_str(), nullptr);
        }
        poster.push_back(post);
    }
    Check(prov.Skrivet(Slag::stampel, 3) == 0 && prov.Lasta().size() == poster.size(), "the end");
    Check(prov.Lasta(Slag::stampel) == poster, "the fields read back");
}

// --- The Jb2/Jb3 scales --------------------------------------------------------------------------

using Skalrad = std::array<std::string, 2>;

Skalrad Delad(Rader const& rader, std::size_t nummer) {
    std::string const rad = nummer < rader.size() ? rader[nummer] : "";
    Skalrad ord = {std::string(rad.size() + 1, '\0'), std::string(rad.size() + 1, '\0')};
    std::sscanf(rad.c_str(), "%s %s", ord[0].data(), ord[1].data());
    return {TillNoll(ord[0]), TillNoll(ord[1])};
}

void Jb23(FuzzedDataProvider& provider) {
    static char const* const storheter[] = {"SJUNK",  "HAST",  "KRAFT", "RPM", "SPOL", "FLODE",
                                            "HAMMAR", "TRYCK", "QT",    "FT",  "U",    "hast"};
    constexpr std::size_t antal = std::size(storheter) - 1; // the last is none: the first line's
    auto const nyckel = [](std::size_t nummer, std::size_t spalt) {
        return CString(storheter[nummer]) + (spalt == 0 ? "SKALA" : "STEG");
    };
    Prov prov(provider, "JB23.PAR");
    Rader rader = prov.Lasta();
    do {
        auto const nummer = prov.in.ConsumeIntegralInRange<std::size_t>(0, antal);
        std::size_t const spalt = prov.in.ConsumeBool() ? 1 : 0;
        std::size_t const rad = nummer % antal;
        std::string const varde = prov.Ord();
        inst.Jb23WriteKey(nyckel(nummer, spalt), varde.c_str());
        bool const ny = rad >= rader.size();
        Skalrad ord = ny ? Skalrad{"0", "0"} : Delad(rader, rad);
        ord[spalt] = varde;
        (ny ? rader.emplace_back() : rader[rad]) = ord[0] + "   " + ord[1];
        Check(prov.Lasta() == rader, "one line changes, or is added");
        Check(rad >= rader.size() || ord[0].empty() ||
                  inst.Jb23ReadKey(nyckel(nummer, spalt)) == varde.c_str(),
              "a scale reads back");
    } while (prov.Fler());
    for (std::size_t i = 0; i <= antal; ++i) {
        for (std::size_t const spalt : {0U, 1U}) {
            Check(inst.Jb23ReadKey(nyckel(i, spalt)) == Delad(rader, i % antal)[spalt].c_str(),
                  "the word in its column");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static Boxes const boxes;
    FuzzedDataProvider provider(data, size);
    constexpr void (*prov[])(FuzzedDataProvider&) = {Kodfil, Miljkod, MiljkodUppdatX,
                                                     Linkod, Stampel, Jb23};
    prov[provider.ConsumeIntegralInRange<std::size_t>(0, std::size(prov) - 1)](provider);
    return 0;
}
