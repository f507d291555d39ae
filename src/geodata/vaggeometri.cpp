// A road line's single elements: straight, arc, vertical curve, and the points on them.
#include "../core/messageout.h"
#include "../text/format.h"
#include "cirkelbage.h"
#include "vaglinje.h"

namespace {

constexpr double ingenKoordinat = 999999.9;
constexpr double tolerans = 0.0001; // metres along the line

// The value at a station between two that are known at the ends of a segment.
double Interpolera(double fran, double till, double sektion, kovltype const& p, kovltype const& q) {
    return fran + (sektion - p.sektion) * (till - fran) / (q.sektion - p.sektion);
}

// The bearing of a vector, from the y axis towards the x axis, in [0, 2 pi).
double Baring(kvarn::Punkt vektor) {
    double const vinkel = std::atan2(vektor.x, vektor.y);
    return vinkel < 0 ? vinkel + kvarn::twoPi : vinkel;
}

kvarn::Punkt PunktPaBage(kovltype const& p, kovltype const& q, double sektion, double offset) {
    kvarn::Cirkel const cirkel = kvarn::CirkelGenom({p.x, p.y}, {q.x, q.y}, p.bulge);
    double fran = Baring(kvarn::Punkt{p.x, p.y} - cirkel.mitt);
    double till = Baring(kvarn::Punkt{q.x, q.y} - cirkel.mitt);
    bool medurs = fran <= till;
    if (!(std::fabs(till - fran) < kvarn::pi)) { // the arc crosses bearing 0
        medurs = fran > till;
        (medurs ? fran : till) -= kvarn::twoPi;
    }
    double const radie = cirkel.radie + (medurs ? offset : -offset);
    double const vinkel = Interpolera(fran, till, sektion, p, q);
    return {cirkel.mitt.x + radie * std::sin(vinkel), cirkel.mitt.y + radie * std::cos(vinkel)};
}

kvarn::Punkt PunktPaStracka(kovltype const& p, kovltype const& q, double sektion, double offset) {
    double const vinkel = std::atan2(p.x - q.x, q.y - p.y) - kvarn::halfPi;
    return {Interpolera(p.x, q.x, sektion, p, q) + std::sin(vinkel) * offset,
            Interpolera(p.y, q.y, sektion, p, q) - std::cos(vinkel) * offset};
}

// In a vertical curve the height stands where a plan has x, and the station where it has y.
double HojdIKurva(kovltype const& p, kovltype const& q, double sektion) {
    kvarn::Punkt const fran = {p.x, p.y};
    kvarn::Punkt const till = {q.x, q.y};
    kvarn::Cirkel const cirkel = kvarn::Langd(till - fran) <= 0
                                     ? kvarn::Cirkel{fran, 0}
                                     : kvarn::CirkelGenom(fran, till, p.bulge);
    kvarn::Punkt const motP = fran - cirkel.mitt;
    kvarn::Punkt const motQ = till - cirkel.mitt;
    double const vinkel =
        Interpolera(std::atan2(motP.x, motP.y), std::atan2(motQ.x, motQ.y), sektion, p, q);
    return cirkel.mitt.x + cirkel.radie * std::sin(vinkel);
}

} // namespace

int CVaglinje::Bulge_r(kokotype* p1, kokotype* p2, double* radius, double* centreA, double* centreB,
                       int mode) {
    if (mode != 0) { // the centre of the mirrored plane
        kvarn::Cirkel const cirkel = kvarn::CirkelGenom({p1->y, p1->x}, {p2->y, p2->x}, p1->bulge);
        *radius = cirkel.radie;
        *centreA = cirkel.mitt.y;
        *centreB = cirkel.mitt.x;
        return 0;
    }
    double const r = *radius;
    double const korda = kvarn::Langd({p2->x - p1->x, p2->y - p1->y});
    double const rest = r * r - korda * korda / 4;
    if (rest >= 0 && korda > 0) {
        double const t = std::sqrt(rest);
        p1->bulge = (r > 0 ? -(r - t) : -(t + r)) / korda * 2;
    } else {
        StatusText(kvarn::ToMessageBuffer(kvarn::Format("%s %.2lf (%.2lf,%.2lf - %.2lf,%.2lf)",
                                                        "Fel (bulge->radie) radie:", r, p1->x,
                                                        p1->y, p2->x, p2->y)));
        p1->bulge = 0;
    }
    return 0;
}

int CVaglinje::Pldist(double a1, double b1, double a2, double b2, double pa, double pb,
                      double* dist, double* along) {
    if (typ == kvarn::vagtypProfil) {
        return -1;
    }
    kvarn::Linjefot const fot({a1, b1}, {a2, b2}, {pa, pb});
    if (fot.ForKort()) {
        return 0;
    }
    *dist = fot.Avstand();
    *along = fot.Langs();
    return fot.PaStrackan() ? 1 : 2;
}

int CVaglinje::Padist(kovltype* p1, kovltype* p2, double px, double py, double* along,
                      double* offset) {
    if (typ == kvarn::vagtypProfil) {
        return -1;
    }
    kvarn::Bagfot const fot = kvarn::FotPaBage({p1->x, p1->y}, {p2->x, p2->y}, p1->bulge, {px, py});
    if (!fot.inom) {
        return 2;
    }
    *along = fot.langs;
    *offset = fot.offset;
    return 1;
}

bool CVaglinje::Vaxande() const {
    return m_forsta->nasta == nullptr || !(m_forsta->nasta->post.sektion < m_forsta->post.sektion);
}

void CVaglinje::StallSegment(nod* fran, nod* till, int position) {
    mark = fran;
    aktel = till;
    m_position = position;
    Set_pael();
    Sort_mark();
}

int CVaglinje::SokSegment(double sektion) {
    if (Home() != 0) {
        return -1;
    }
    // A line whose stations decrease is walked by the stations' negatives.
    double const tecken = Vaxande() ? 1 : -1;
    double const sokt = tecken * sektion;
    if (sokt <= tecken * m_forsta->post.sektion - tolerans) {
        return -1;
    }
    nod* fran = m_forsta;
    int position = 1;
    for (nod* till = fran->nasta; till != nullptr; fran = till, till = till->nasta) {
        ++position;
        if (tecken * till->post.sektion + tolerans > sokt) {
            StallSegment(fran, till, position);
            return 0;
        }
    }
    StallSegment(fran, fran, position);
    return -1;
}

int CVaglinje::Vag2xy(double sektion, double offset, double* x, double* y) {
    *x = ingenKoordinat;
    *y = ingenKoordinat;
    if (typ == kvarn::vagtypProfil || SokSegment(sektion) != 0) {
        return -1;
    }
    kovltype const& p = *m_markpost;
    kovltype const& q = *m_aktpost;
    kvarn::Punkt const punkt = kvarn::ArBage(p.bulge) ? PunktPaBage(p, q, sektion, offset)
                                                      : PunktPaStracka(p, q, sektion, offset);
    *x = punkt.x;
    *y = punkt.y;
    return 0;
}

int CVaglinje::Vagprofz(double sektion, double* z) {
    *z = ingenKoordinat;
    if (typ == kvarn::vagtypPlan || Home() != 0 || m_forsta->post.y > sektion) {
        return -1;
    }
    nod* fran = m_forsta;
    nod* till = fran->nasta;
    int position = 2;
    for (; till != nullptr && till->post.y <= sektion; fran = till, till = till->nasta) {
        ++position;
    }
    if (till == nullptr) {
        StallSegment(fran, fran, position - 1);
        return -1;
    }
    StallSegment(fran, till, position);
    kovltype const& p = fran->post;
    kovltype const& q = till->post;
    *z = kvarn::ArBage(p.bulge) ? HojdIKurva(p, q, sektion) : Interpolera(p.x, q.x, sektion, p, q);
    return 0;
}
