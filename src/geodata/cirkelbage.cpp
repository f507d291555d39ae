#include "cirkelbage.h"

namespace kvarn {

Cirkel CirkelGenom(Punkt fran, Punkt till, double bulge) {
    Punkt const d = till - fran;
    double const korda = Langd(d);
    double const hojd = std::fabs(bulge * korda / 2);
    double const radie = (korda * korda / 4 + hojd * hojd) / (2 * hojd);
    double const tillMitten = (bulge >= 0 ? 1 : -1) * (radie - hojd);
    return {{(fran.x + till.x) / 2 + tillMitten * d.y / korda,
             (fran.y + till.y) / 2 - tillMitten * d.x / korda},
            radie};
}

double Linjefot::Avstand() const {
    double const dxdy = m_d.x * m_d.y;
    Punkt const tvars = {m_p.x * (m_d.y * m_d.y) - dxdy * m_p.y,
                         m_p.y * (m_d.x * m_d.x) - dxdy * m_p.x};
    double const avstand = Langd(tvars) / m_langd2;
    return m_d.x * m_p.y - m_d.y * m_p.x > 0 ? -avstand : avstand;
}

namespace {

constexpr double kant = 1e-5; // metres

} // namespace

// Along the quadrant's edge the direction is the quadrant's first, also at its far edge.
Riktning::Riktning(int kvadrant, bool langsKanten, double t)
    : m_kvadrant(kvadrant),
      m_matt(langsKanten ? kvadrant : (std::sqrt(t * t + 1) - 1) / t + kvadrant) {}

Riktning::Riktning(Punkt p)
    : Riktning(p.y >= 0 && p.x >= 0   ? Riktning(0, p.y <= kant, p.x / p.y)
               : p.y <= 0 && p.x >= 0 ? Riktning(1, p.x <= kant, -p.y / p.x)
               : p.y <= 0 && p.x <= 0 ? Riktning(2, p.y >= -kant, p.x / p.y)
                                      : Riktning(3, p.x >= -kant, -p.y / p.x)) {}

namespace {

// Between the directions of an arc that turns with the bearing, from the first to the last. False
// when one of them is not a number.
bool Mellan(double forsta, double sista, double matt) {
    return forsta > sista ? matt >= forsta || matt <= sista : forsta <= matt && matt <= sista;
}

} // namespace

Bagfot FotPaBage(Punkt fran, Punkt till, double bulge, Punkt p) {
    Cirkel const cirkel = CirkelGenom(fran, till, bulge);
    Riktning const motP(p - cirkel.mitt);
    Riktning const motFran(fran - cirkel.mitt);
    Riktning const motTill(till - cirkel.mitt);
    bool const medurs = bulge > 0; // where x points right and y up
    bool const inom = medurs ? Mellan(motFran.Matt(), motTill.Matt(), motP.Matt())
                             : Mellan(motTill.Matt(), motFran.Matt(), motP.Matt());
    if (!inom) {
        return {};
    }
    double vinkelP = motP.Vinkel();
    double vinkelFran = motFran.Vinkel();
    if (medurs && vinkelFran > vinkelP) {
        vinkelFran -= twoPi;
    } else if (bulge < 0 && vinkelP > vinkelFran) {
        vinkelP -= twoPi;
    }
    return {.inom = true,
            .langs = std::fabs((vinkelP - vinkelFran) * cirkel.radie),
            .offset = (Langd(p - cirkel.mitt) - cirkel.radie) * (medurs ? 1 : -1)};
}

} // namespace kvarn
