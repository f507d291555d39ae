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

int CVaglinje::Forlang(kovltype const& ande, double inat, double langd, int var) {
    kvarn::Punkt inre{};
    if (Vag2xy(ande.sektion + inat * inpa, 0, &inre.x, &inre.y) != 0) {
        return -1;
    }
    kvarn::Punkt const utat = kvarn::Punkt{ande.x, ande.y} - inre;
    double const steg = kvarn::Langd(utat);
    if (!(steg > 0)) {
        return -1;
    }
    kovltype ny = {inre.x + langd * (utat.x / steg), inre.y + langd * (utat.y / steg), 0,
                   ande.sektion - inat * langd};
    Home();
    return Ny(var, &ny);
}

int CVaglinje::Extend(double before, double after) {
    constexpr int fore = 0; // as Ny takes them
    constexpr int sist = 1;
    if (typ == kvarn::vagtypProfil) {
        return -1;
    }
    if (before > 0 && (Home() != 0 || Forlang(*m_aktpost, 1, before, fore) != 0)) {
        return -1;
    }
    if (!(after > 0)) {
        return 0;
    }
    if (End() != 0) {
        return -1;
    }
    m_aktpost->bulge = 0;
    return Forlang(*m_aktpost, -1, after, sist);
}
