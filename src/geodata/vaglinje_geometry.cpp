// CVaglinje: straights, arcs and vertical curves, and the points on them.
#include "../core/messageout.h"
#include "../text/format.h"
#include "roadsegment.h"
#include "vaglinje.h"

int CVaglinje::Bulge_r(kokotype* p1, kokotype* p2, double* radius, double* centreA, double* centreB,
                       int mode) {
    if (mode != 0) { // the centre of the mirrored plane
        kvarn::Circle const circle =
            kvarn::CircleThrough({p1->y, p1->x}, {p2->y, p2->x}, p1->bulge);
        *radius = circle.radius;
        *centreA = circle.centre.y;
        *centreB = circle.centre.x;
        return 0;
    }
    double const r = *radius;
    double const chord = kvarn::Length({p2->x - p1->x, p2->y - p1->y});
    double const rest = r * r - chord * chord / 4;
    // The arc's height is h = r - t, where t is the distance from the centre to the chord, and the
    // bulge is h / (chord / 2).
    if (rest >= 0 && chord > 0) {
        double const t = std::sqrt(rest);
        p1->bulge = (r > 0 ? -(r - t) : -(t + r)) / chord * 2;
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
    kvarn::LineFoot const foot({a1, b1}, {a2, b2}, {pa, pb});
    if (foot.IsTooShort()) {
        return 0;
    }
    *dist = foot.Distance();
    *along = foot.Along();
    return foot.IsOnSegment() ? 1 : 2;
}

int CVaglinje::Padist(kovltype* p1, kovltype* p2, double px, double py, double* along,
                      double* offset) {
    if (typ == kvarn::vagtypProfil) {
        return -1;
    }
    kvarn::Foot const foot = kvarn::Arc({p1->x, p1->y}, {p2->x, p2->y}, p1->bulge).FootOf({px, py});
    if (!foot.isWithin) {
        return 2;
    }
    *along = foot.along;
    *offset = foot.offset;
    return 1;
}

int CVaglinje::Vag2xy(double sektion, double offset, double* x, double* y) {
    *x = kvarn::noCoordinate;
    *y = kvarn::noCoordinate;
    if (typ == kvarn::vagtypProfil || SokSegment(sektion) != 0) {
        return -1;
    }
    kvarn::Point const point = kvarn::PlanSegment(*m_markpost, *m_aktpost).At(sektion, offset);
    *x = point.x;
    *y = point.y;
    return 0;
}

int CVaglinje::Vagprofz(double sektion, double* z) {
    *z = kvarn::noCoordinate;
    if (typ == kvarn::vagtypPlan || Home() != 0 || m_forsta->post.y > sektion) {
        return -1;
    }
    nod* from = m_forsta;
    nod* to = from->nasta;
    int position = 2;
    for (; to != nullptr && to->post.y <= sektion; from = to, to = to->nasta) {
        ++position;
    }
    if (to == nullptr) {
        StallSegment(from, from, position - 1);
        return -1;
    }
    StallSegment(from, to, position);
    *z = kvarn::ProfileSegment(from->post, to->post).HeightAt(sektion);
    return 0;
}
