#include "bergormatelista.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "../files/textfil.h"
#include "../project/searchorder.h"
#include "../text/format.h"
#include "../text/scan.h"
#include "../text/text.h"
#include "datafil.h"

template class KVARNPROG_LIST_DEFINE list0<bergmattype>;

namespace {

constexpr int berg = 0;
constexpr int fyllning = 1;
constexpr int norska = 1;

constexpr bergmattype standard = {0, 4, 0, 1.0, 0.0, "", ""};
constexpr int storstaMonster = 256;
constexpr double minstaSkala = 0.01;
constexpr double radianerPerGrad = 0.017453292519944444; // pi taken as 3.14159265359

bool HarAvsnitt(int slag) {
    return slag == berg || slag == fyllning;
}

// After so many lines that begin with a star the list's section begins.
int StjarnorFore(int slag) {
    return slag == berg ? 2 : 3;
}

std::span<char const* const> Tabell(int slag, int norsk) {
    using Lista = CBergOrMateLista;
    bool const n = norsk == norska;
    switch (slag) {
    case berg: // without the empty entry
        return n ? std::span(Lista::BERGARTERN, std::size(Lista::BERGARTERN) - 1)
                 : std::span<char const* const>(Lista::BERGARTER);
    case fyllning:
        return n ? Lista::FYLLNADN : Lista::FYLLNAD;
    default:
        return n ? Lista::JORDARTERN : Lista::JORDARTER;
    }
}

CString Stenkodfil(CBergOrMateLista const& lista) {
    return kvarn::FirstFound(lista.m_proj, lista.m_ini,
                             lista.m_norsk == norska ? CBergOrMateLista::FILNAMNN
                                                     : CBergOrMateLista::FILNAMN);
}

// A line of the file, completed; nothing was read when it has fewer than two values.
bool LasMaterial(std::string_view rad, bergmattype& post) {
    post = standard;
    std::string_view namn;
    std::string_view text;
    double grader = 0;
    int const antal =
        kvarn::Scan(rad, post.nr, namn, text, post.skala, post.monster, grader, post.flagga);
    kvarn::CopyText(post.namn, sizeof post.namn, namn);
    kvarn::CopyText(post.text, sizeof post.text, text);
    post.vinkel = grader * radianerPerGrad;
    if (!(post.skala >= minstaSkala)) {
        post.skala = standard.skala;
    }
    if (post.monster < 1 || post.monster > storstaMonster) {
        post.monster = standard.monster;
    }
    if (post.nr >= 0) {
        post.flagga = standard.flagga;
    }
    return antal >= 2;
}

// The first entry with the number becomes current; false when there is none.
bool GaTill(CBergOrMateLista& lista, int nr) {
    bool finns = lista.Home() == 0;
    while (finns && lista.Get_aktel()->nr != nr) {
        finns = lista++ != nullptr;
    }
    return finns;
}

// A line of the file into the entry that has its number.
void TaOver(bergmattype& post, bergmattype const& rad, bool medNamn) {
    post.skala = rad.skala;
    post.vinkel = rad.vinkel;
    kvarn::CopyText(post.text, sizeof post.text, rad.text);
    if (medNamn) {
        kvarn::CopyText(post.namn, sizeof post.namn, rad.namn);
    }
}

// The lines of the list's section; inbyggda is the built-in entries' count, from which on a name
// counts too.
void LasAvsnitt(CBergOrMateLista& lista, std::string_view text, int inbyggda) {
    constexpr int norskExtra = 31; // a number that the Norwegian table does not have
    kvarn::LineReader fil(text);
    kvarn::SkipStarLines(fil, StjarnorFore(lista.m_slag));
    int forskjutning = 0;
    std::string_view rad;
    while (fil.ReadLine(rad) && !kvarn::IsStarLine(rad)) {
        bergmattype post;
        if (!LasMaterial(rad, post)) {
            continue;
        }
        bool const extra = lista.m_norsk == norska && post.nr == norskExtra &&
                           kvarn::FieldText(post.namn).starts_with("Ikke");
        if (extra) {
            forskjutning = 1;
        } else if (post.nr >= 0 && GaTill(lista, post.nr - forskjutning)) {
            TaOver(*lista.Get_aktel(), post, post.nr >= inbyggda);
        } else {
            lista.Ny(1, &post);
        }
    }
}

std::string Kortform(bergmattype const& post) {
    return kvarn::Format("%d %s\n", post.nr, kvarn::FieldText(post.namn));
}

std::string Rad(bergmattype const& post) {
    std::string_view const text = kvarn::FieldText(post.text);
    return text.empty()
               ? Kortform(post)
               : kvarn::Format("%d %s %s %.3lf %d %.3lf %d\n", post.nr, kvarn::FieldText(post.namn),
                               text, post.skala, post.monster, post.vinkel, post.flagga);
}

template <class Skriv> std::string Avsnitt(CBergOrMateLista* lista, Skriv skriv) {
    std::string rader;
    bool finns = lista != nullptr && lista->Home() == 0;
    for (; finns; finns = (*lista)++ != nullptr) {
        rader += skriv(*lista->Get_aktel());
    }
    return rader + "*\n";
}

// The text up to and with so many lines that begin with a star, which are added where it has fewer.
std::string TillAvsnitt(std::string text, int stjarnor) {
    std::size_t slut = 0;
    while (stjarnor > 0 && slut < text.size()) {
        stjarnor -= text[slut] == '*' ? 1 : 0;
        std::size_t const radslut = text.find('\n', slut);
        slut = radslut == std::string::npos ? text.size() : radslut + 1;
    }
    text.resize(slut);
    if (!text.empty() && !text.ends_with('\n')) {
        text += "\r\n";
    }
    for (; stjarnor > 0; --stjarnor) {
        text += "*\r\n";
    }
    return text;
}

} // namespace

CBergOrMateLista::CBergOrMateLista(CAutoIni* ini, CProjPath* projekt, int slag, int norsk)
    : m_slag(slag), m_norsk(norsk), m_ini(ini), m_proj(projekt) {}

CBergOrMateLista::~CBergOrMateLista() = default;

int CBergOrMateLista::Init() {
    std::span<char const* const> const tabell = Tabell(m_slag, m_norsk);
    auto const lagg = [&](std::size_t nr, char const* namn) {
        bergmattype post = standard;
        post.nr = static_cast<std::int16_t>(nr);
        kvarn::CopyText(post.namn, sizeof post.namn, namn);
        Ny(1, &post);
    };
    lagg(0, " ");
    for (std::size_t i = 0; i < tabell.size(); ++i) {
        lagg(i + 1, tabell[i]);
    }
    CString const path = HarAvsnitt(m_slag) ? Stenkodfil(*this) : CString();
    std::string text;
    if (!path.IsEmpty() && kvarn::LasDatafil(path, text, m_ejLast)) {
        LasAvsnitt(*this, text, static_cast<int>(tabell.size()));
    }
    return 0;
}

int CBergOrMateLista::Save(CBergOrMateLista* other) {
    CString const path = HarAvsnitt(m_slag) ? Stenkodfil(*this) : CString();
    if (path.IsEmpty()) {
        return -1;
    }
    std::string text;
    CString ejLastNu;
    if (!kvarn::LasDatafil(path, text, ejLastNu)) {
        return -2;
    }
    text = TillAvsnitt(std::move(text), StjarnorFore(m_slag));
    kvarn::AppendTextMode(text, Avsnitt(this, Rad) + Avsnitt(other, Kortform));
    return kvarn::SkrivDatafil(path, text, m_ejLast) == kvarn::Rewritten::done ? 0 : -2;
}

CString CBergOrMateLista::Find(int nr) {
    return GaTill(*this, nr) ? CString(std::string(kvarn::FieldText(m_aktpost->namn)).c_str())
                             : CString("??");
}

int CBergOrMateLista::FindNr(CString& name) {
    for (bool finns = Home() == 0; finns; finns = (*this)++ != nullptr) {
        if (kvarn::SameText(kvarn::FieldText(m_aktpost->namn), name.GetString())) {
            return m_aktpost->nr;
        }
    }
    return 0;
}
