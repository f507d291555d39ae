// CVaglinje: stations corrected at a known point or computed from the geometry, and the
// lengthening.
#include "segments.h"
#include "vaglinje.h"

namespace {

constexpr double inside = 0.5; // metres inside the line, from where it is lengthened

// The length of the segment that ends at a vertex. Known quirk, kept on purpose: it is measured
// backwards, with the bulge of the vertex at its end.
double LengthTo(kovltype const& previous, kovltype const& vertex) {
    kvarn::Point const from = {vertex.x, vertex.y};
    kvarn::Point const to = {previous.x, previous.y};
    return kvarn::IsArc(vertex.bulge) ? kvarn::Arc(from, to, vertex.bulge).FootOf(to).along
                                      : kvarn::Length(from - to);
}

} // namespace

int CVaglinje::SektKorr(double x, double y, double sektion) {
    constexpr double samePoint = 0.001; // metres
    if (typ == kvarn::vagtypProfil || m_forsta == nullptr) {
        return -1;
    }
    kovltype const* known = nullptr;
    for (bool there = Home() == 0; there; there = (*this)++ != nullptr) {
        if (kvarn::Length({m_aktpost->x - x, m_aktpost->y - y}) <= samePoint) {
            known = m_aktpost;
        }
    }
    if (known == nullptr) {
        return -1;
    }
    double const difference = known->sektion - sektion;
    for (bool there = Home() == 0; there; there = (*this)++ != nullptr) {
        m_aktpost->sektion -= difference;
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
        m_aktpost->sektion = m_markpost->sektion + LengthTo(*m_markpost, *m_aktpost);
    }
    return 0;
}

int CVaglinje::Forlang(kovltype const& end, double inwards, double length, int where) {
    kvarn::Point inner{};
    if (Vag2xy(end.sektion + inwards * inside, 0, &inner.x, &inner.y) != 0) {
        return -1;
    }
    kvarn::Point const outwards = kvarn::Point{end.x, end.y} - inner;
    double const step = kvarn::Length(outwards);
    if (!(step > 0)) {
        return -1;
    }
    kovltype added = {inner.x + length * (outwards.x / step),
                      inner.y + length * (outwards.y / step), 0, end.sektion - inwards * length};
    Home();
    return Ny(where, &added);
}

int CVaglinje::Extend(double before, double after) {
    constexpr int atStart = 0; // as Ny takes them
    constexpr int atEnd = 1;
    if (typ == kvarn::vagtypProfil) {
        return -1;
    }
    if (before > 0 && (Home() != 0 || Forlang(*m_aktpost, 1, before, atStart) != 0)) {
        return -1;
    }
    if (!(after > 0)) {
        return 0;
    }
    if (End() != 0) {
        return -1;
    }
    m_aktpost->bulge = 0; // the new segment is straight
    return Forlang(*m_aktpost, -1, after, atEnd);
}
