// Stations: corrected at a known point, computed from the geometry, and a line's lengthening.
#include "cirkelbage.h"
#include "vaglinje.h"

namespace {

constexpr double inpa = 0.5; // metres inside the line, from where it is lengthened

// The length of the segment that ends at a vertex, by that vertex's own bulge.
double LangdTill(kovltype const& forra, kovltype const& vertex) {
    kvarn::Punkt const fran = {vertex.x, vertex.y};
    kvarn::Punkt const till = {forra.x, forra.y};
    return kvarn::ArBage(vertex.bulge) ? kvarn::FotPaBage(fran, till, vertex.bulge, till).langs
                                       : kvarn::Langd(fran - till);
}

} // namespace

int CVaglinje::SektKorr(double x, double y, double sektion) {
    constexpr double sammaPunkt = 0.001; // metres
    if (typ == kvarn::vagtypProfil || m_forsta == nullptr) {
        return -1;
    }
    kovltype const* kand = nullptr;
    for (bool finns = Home() == 0; finns; finns = (*this)++ != nullptr) {
        if (kvarn::Langd({m_aktpost->x - x, m_aktpost->y - y}) <= sammaPunkt) {
            kand = m_aktpost;
        }
    }
    if (kand == nullptr) {
        return -1;
    }
    double const skillnad = kand->sektion - sektion;
    for (bool finns = Home() == 0; finns; finns = (*this)++ != nullptr) {
        m_aktpost->sektion -= skillnad;
    }
    return 0;
}

int CVaglinje::SektBerak(double start) {
    if (typ == kvarn::vagtypProfil) {
        return -1;
    }
    if (Home() != 0) {
        return 0;
    }
    m_aktpost->sektion = start;
    for (Set_mark(); (*this)++ != nullptr; Set_mark()) {
        m_aktpost->sektion = m_markpost->sektion + LangdTill(*m_markpost, *m_aktpost);
    }
    return 0;
}

int CVaglinje::ForlangBorjan(double langd) {
    if (Home() != 0) {
        return -1;
    }
    kovltype const forsta = *m_aktpost;
    kvarn::Punkt inre{};
    if (Vag2xy(forsta.sektion + inpa, 0, &inre.x, &inre.y) != 0) {
        return -1;
    }
    kvarn::Punkt const inat = inre - kvarn::Punkt{forsta.x, forsta.y};
    double const steg = kvarn::Langd(inat);
    if (!(steg > 0)) {
        return -1;
    }
    kovltype ny = {inre.x - langd * (inat.x / steg), inre.y - langd * (inat.y / steg), 0,
                   forsta.sektion - langd};
    Home();
    return Ny(0, &ny);
}

int CVaglinje::ForlangSlut(double langd) {
    if (End() != 0) {
        return -1;
    }
    m_aktpost->bulge = 0;
    kovltype const sista = *m_aktpost;
    kvarn::Punkt inre{};
    if (Vag2xy(sista.sektion - inpa, 0, &inre.x, &inre.y) != 0) {
        return -1;
    }
    kvarn::Punkt const utat = kvarn::Punkt{sista.x, sista.y} - inre;
    double const steg = kvarn::Langd(utat);
    if (!(steg > 0)) {
        return -1;
    }
    kovltype ny = {inre.x + langd * (utat.x / steg), inre.y + langd * (utat.y / steg), 0,
                   sista.sektion + langd};
    return Ny(1, &ny);
}

int CVaglinje::Extend(double before, double after) {
    if (typ == kvarn::vagtypProfil || (before > 0 && ForlangBorjan(before) != 0)) {
        return -1;
    }
    return after > 0 ? ForlangSlut(after) : 0;
}
