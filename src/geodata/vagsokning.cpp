// From a point to its station and offset.
#include <limits>

#include "cirkelbage.h"
#include "vaglinje.h"

// The nearest foot, or the nearest vertex, so far.
struct CVaglinje::Traff {
    double sektion;
    double offset;
    double avstand; // from the point, without sign
};

namespace {

// Modes of the search.
constexpr int helaMedHorn = 0;
constexpr int avgransat = 1;

constexpr double langtBort = 1.1e9; // metres
constexpr double langstTraff = 1e9;

// With y first, which gives the signs of offsets.
kvarn::Linjefot RakFot(kovltype const& p, kovltype const& q, double x, double y) {
    return {{p.y, p.x}, {q.y, q.x}, {y, x}};
}

// The foot of a point on a segment; inom is false where it has none.
kvarn::Bagfot FotPaSegment(kovltype const& p, kovltype const& q, double x, double y) {
    if (kvarn::ArBage(p.bulge)) {
        return kvarn::FotPaBage({p.x, p.y}, {q.x, q.y}, p.bulge, {x, y});
    }
    kvarn::Linjefot const fot = RakFot(p, q, x, y);
    if (fot.ForKort() || !fot.PaStrackan()) {
        return {};
    }
    return {.inom = true, .langs = fot.Langs(), .offset = fot.Avstand()};
}

// Whether a vertex result lies on the negative side of the segment that ends at the vertex.
bool PaNegativSida(kovltype const& p, kovltype const& q, double x, double y) {
    kvarn::Linjefot const fot = RakFot(p, q, x, y);
    return !fot.ForKort() && fot.Avstand() < 0;
}

} // namespace

// Two vertices before the end of the segment that lies as far along the line as the point lies
// from the line's start: the point's foot seldom lies before it.
CVaglinje::nod* CVaglinje::SokStart(double x, double y) {
    kovltype const& forsta = m_forsta->post;
    double const rakaVagen = kvarn::Langd({x - forsta.x, y - forsta.y});
    SokSegment(forsta.sektion + rakaVagen);
    (*this)--;
    (*this)--;
    return aktel;
}

CVaglinje::Traff CVaglinje::SokFot(nod* fran, double x, double y, int mode) {
    double const tecken = Vaxande() ? 1 : -1;
    Traff basta = {Seknoll, 0, langtBort};
    int position = m_position;
    bool funnen = false;
    bool sista = false;
    nod* till = fran;
    while (!sista && till->nasta != nullptr) {
        fran = till;
        till = till->nasta;
        ++position;
        kvarn::Bagfot const fot = FotPaSegment(fran->post, till->post, x, y);
        if (fot.inom && std::fabs(fot.offset) < basta.avstand) {
            basta = {fran->post.sektion + tecken * fot.langs, tecken * fot.offset,
                     std::fabs(fot.offset)};
        }
        sista = mode == avgransat && funnen; // one segment after the first foot
        funnen = basta.sektion < Sekkoll;
    }
    StallSegment(fran, till, position);
    return basta;
}

// An inner vertex, which alone counts: the line's ends are only in the way of others.
CVaglinje::Traff CVaglinje::SokHorn(nod* fran, double x, double y) {
    nod* narmast = nullptr;
    double avstand = langtBort;
    double kvadrat = langtBort * langtBort; // tells without a root which vertices are not nearer
    for (nod* n = fran; n != nullptr; n = n->nasta) {
        kvarn::Punkt const till = {n->post.x - x, n->post.y - y};
        double const d2 = till.x * till.x + till.y * till.y;
        if (d2 < kvadrat && std::sqrt(d2) < avstand) {
            avstand = std::sqrt(d2);
            kvadrat = d2;
            narmast = n;
        }
    }
    StallSegment(m_sista->forra, m_sista, m_antal);
    if (narmast == nullptr || narmast == m_forsta || narmast == m_sista) {
        return {Seknoll, 0, std::numeric_limits<double>::infinity()};
    }
    bool const negativ = PaNegativSida(narmast->forra->post, narmast->post, x, y);
    return {narmast->post.sektion, negativ ? -avstand : avstand, avstand};
}

int CVaglinje::Vagstv(double x, double y, double* sektion, double* offset, int mode) {
    *sektion = Seknoll;
    *offset = 0;
    if (typ == kvarn::vagtypProfil || Home() != 0) {
        return -1;
    }
    nod* const borjan = mode == avgransat ? SokStart(x, y) : m_forsta;
    Traff const fot = SokFot(borjan, x, y, mode);
    *sektion = fot.sektion;
    *offset = fot.offset;
    if (mode == helaMedHorn || (mode == avgransat && fot.sektion > Sekkoll)) {
        Traff const horn = SokHorn(borjan, x, y);
        if (horn.avstand < fot.avstand) {
            *sektion = horn.sektion;
            *offset = horn.offset;
            return 0;
        }
    }
    return fot.avstand <= langstTraff ? 0 : -1;
}

int CVaglinje::PktIomr(double x, double y, double* sektion, double* offset, int mode) {
    constexpr double tolerans = 0.001; // metres along the line
    double s = 0;
    double o = 0;
    if (Vagstv(x, y, &s, &o, mode) != 0) {
        return -1;
    }
    bool const inom = s >= omrSekFran - tolerans && s <= omrSekTill + tolerans && o >= omrAvstMin &&
                      o <= omrAvstMax;
    if (!inom) {
        return -1;
    }
    if (sektion != nullptr) {
        *sektion = s;
    }
    if (offset != nullptr) {
        *offset = o;
    }
    return 0;
}
