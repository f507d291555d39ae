#include "vagmodell.h"

#include <cmath>

namespace {

constexpr double pi = 3.14159265359;
constexpr double twoPi = 6.28318530718;
constexpr double halfPi = 1.570796326795;
constexpr double threeHalfPi = 4.712388980385;

constexpr std::int32_t plan = kvarn::vagtypPlan;
constexpr std::int32_t profile = kvarn::vagtypProfil;

double Distance(double x1, double y1, double x2, double y2) {
    return std::sqrt((x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1));
}

bool IsArc(double bulge) {
    return std::fabs(bulge) > 1e-6;
}

struct Circle {
    double x;
    double y;
    double r;
};

// The centre lies to the right of a positive bulge's chord, where x points right and y up; to the
// left where the axes are exchanged.
Circle CircleOf(double x1, double y1, double x2, double y2, double bulge, bool exchanged = false) {
    double const c = Distance(x1, y1, x2, y2);
    double const h = std::fabs(bulge * c / 2);
    double const r = (c * c / 4 + h * h) / (2 * h);
    double const s = (bulge >= 0) != exchanged ? 1 : -1;
    double const mx = (x1 + x2) / 2;
    double const my = (y1 + y2) / 2;
    return {mx + s * (r - h) * (y2 - y1) / c, my - s * (r - h) * (x2 - x1) / c, r};
}

struct Direction {
    double q;
    double a;
};

// Clockwise from the north, by quarters of the circle.
Direction DirectionOf(double dx, double dy) {
    constexpr double quarters[] = {0, halfPi, pi, threeHalfPi};
    int const quarter = dy >= 0 && dx >= 0   ? 0
                        : dy <= 0 && dx >= 0 ? 1
                        : dy <= 0 && dx <= 0 ? 2
                                             : 3;
    double const along = quarter == 0 ? dy : quarter == 1 ? dx : quarter == 2 ? -dy : -dx;
    double const across = quarter == 0 ? dx : quarter == 1 ? -dy : quarter == 2 ? -dx : dy;
    if (along <= 1e-5) {
        return {static_cast<double>(quarter), quarters[quarter]};
    }
    double const t = across / along;
    double const q = (std::sqrt(t * t + 1) - 1) / t + quarter;
    return {q, 2 * std::atan(q - quarter) + quarters[quarter]};
}

double Bearing(double dx, double dy) {
    double const a = std::atan2(dx, dy);
    return a < 0 ? a + twoPi : a;
}

} // namespace

Svar BulgeToRadius(kokotype const& p1, kokotype const& p2) {
    Circle const circle = CircleOf(p1.x, p1.y, p2.x, p2.y, p1.bulge, true);
    return {0, circle.r, circle.x, circle.y};
}

double RadiusToBulge(kokotype const& p1, kokotype const& p2, double radius) {
    double const c = Distance(p1.x, p1.y, p2.x, p2.y);
    double const under = radius * radius - c * c / 4;
    if (!(under >= 0 && c > 0)) {
        return 0;
    }
    double const t = std::sqrt(under);
    return radius > 0 ? -(radius - t) / c * 2 : -(t + radius) / c * 2;
}

Svar Vagmodell::Pldist(double a1, double b1, double a2, double b2, double pa, double pb,
                       Svar svar) const {
    if (typ == profile) {
        svar.result = -1;
        return svar;
    }
    double const da = a2 - a1;
    double const db = b2 - b1;
    double const l2 = da * da + db * db;
    if (l2 < 0.0001) {
        svar.result = 0;
        return svar;
    }
    double const alongA = (pa - a1) * (db * db) - da * db * (pb - b1);
    double const alongB = (pb - b1) * (da * da) - da * db * (pa - a1);
    double const distance = std::sqrt(alongA * alongA + alongB * alongB) / l2;
    double const cross = da * (pb - b1) - db * (pa - a1);
    double const t = ((pa - a1) * da + (pb - b1) * db) / l2;
    svar.first = cross > 0 ? -distance : distance;
    svar.second = t * std::sqrt(l2);
    svar.result = t < -0.0001 || t > 1.0001 ? 2 : 1;
    return svar;
}

Svar Vagmodell::Padist(kovltype const& p1, kovltype const& p2, double px, double py,
                       Svar svar) const {
    if (typ == profile) {
        svar.result = -1;
        return svar;
    }
    double const bulge = p1.bulge;
    Circle const circle = CircleOf(p1.x, p1.y, p2.x, p2.y, bulge);
    Direction const p = DirectionOf(px - circle.x, py - circle.y);
    Direction const from = DirectionOf(p1.x - circle.x, p1.y - circle.y);
    Direction const to = DirectionOf(p2.x - circle.x, p2.y - circle.y);
    bool within = false;
    if (bulge > 0) {
        within = from.q > to.q ? p.q >= from.q || p.q <= to.q : from.q <= p.q && p.q <= to.q;
    } else {
        within = to.q > from.q ? p.q >= to.q || p.q <= from.q : to.q <= p.q && p.q <= from.q;
    }
    if (!within) {
        svar.result = 2;
        return svar;
    }
    double a1 = from.a;
    double ap = p.a;
    if (bulge > 0 && a1 > ap) {
        a1 -= twoPi;
    }
    if (bulge < 0 && ap > a1) {
        ap -= twoPi;
    }
    svar.first = std::fabs((ap - a1) * circle.r);
    svar.second = (Distance(circle.x, circle.y, px, py) - circle.r) * (bulge > 0 ? 1 : -1);
    svar.result = 1;
    return svar;
}

bool Vagmodell::Increasing() const {
    return v.size() < 2 || !(v[1].sektion < v[0].sektion);
}

Gang Vagmodell::Sok(double sektion) const {
    bool const increasing = Increasing();
    double const first = v.at(0).sektion;
    if (increasing ? sektion <= first - 0.0001 : sektion >= first + 0.0001) {
        return {};
    }
    for (std::size_t i = 1; i < v.size(); ++i) {
        if (increasing ? v[i].sektion + 0.0001 > sektion : v[i].sektion - 0.0001 < sektion) {
            return {true, i - 1, i};
        }
    }
    return {false, v.size() - 1, v.size() - 1};
}

Svar Vagmodell::Vag2xy(double sektion, double offset) const {
    Svar svar = {-1, 999999.9, 999999.9};
    if (typ == profile || v.empty()) {
        return svar;
    }
    Gang const gang = Sok(sektion);
    if (!gang.found) {
        return svar;
    }
    kovltype const& p = v[gang.from];
    kovltype const& q = v[gang.to];
    if (IsArc(p.bulge)) {
        Svar const circle = BulgeToRadius({p.y, p.x, p.bulge}, {q.y, q.x, 0});
        double const cy = circle.second;
        double const cx = circle.third;
        double r = circle.first;
        double a1 = Bearing(p.x - cx, p.y - cy);
        double a2 = Bearing(q.x - cx, q.y - cy);
        if (std::fabs(a2 - a1) < pi) {
            r = a1 <= a2 ? r + offset : r - offset;
        } else if (a1 > a2) {
            r = r + offset;
            a1 -= twoPi;
        } else {
            a2 -= twoPi;
            r = r - offset;
        }
        double const angle = a1 + (sektion - p.sektion) * (a2 - a1) / (q.sektion - p.sektion);
        return {0, cx + r * std::sin(angle), cy + r * std::cos(angle)};
    }
    double const x = p.x + (sektion - p.sektion) * (q.x - p.x) / (q.sektion - p.sektion);
    double const y = p.y + (sektion - p.sektion) * (q.y - p.y) / (q.sektion - p.sektion);
    double const theta = std::atan2(p.x - q.x, q.y - p.y) - halfPi;
    return {0, x + std::sin(theta) * offset, y - std::cos(theta) * offset};
}

Gang Vagmodell::SokHojd(double sektion) const {
    if (v.at(0).y > sektion) {
        return {};
    }
    for (std::size_t i = 1; i < v.size(); ++i) {
        if (!(v[i].y <= sektion)) {
            return {true, i - 1, i};
        }
    }
    return {false, v.size() - 1, v.size() - 1};
}

Svar Vagmodell::Vagprofz(double sektion) const {
    Svar svar = {-1, 999999.9};
    if (typ == plan || v.empty()) {
        return svar;
    }
    Gang const gang = SokHojd(sektion);
    if (!gang.found) {
        return svar;
    }
    kovltype const& p = v[gang.from];
    kovltype const& q = v[gang.to];
    double const from = p.sektion;
    double const length = q.sektion - p.sektion;
    if (IsArc(p.bulge)) {
        double const c = Distance(p.x, p.y, q.x, q.y);
        Circle const circle = c <= 0 ? Circle{p.x, p.y, 0} : CircleOf(p.x, p.y, q.x, q.y, p.bulge);
        double const a1 = std::atan2(p.x - circle.x, p.y - circle.y);
        double const a2 = std::atan2(q.x - circle.x, q.y - circle.y);
        return {0, circle.x + circle.r * std::sin(a1 + (sektion - from) * (a2 - a1) / length)};
    }
    return {0, p.x + (sektion - from) * (q.x - p.x) / length};
}

Svar Vagmodell::Vagstv(double x, double y, int mode) const {
    double station = CVaglinje::Seknoll;
    double offset = 0;
    double bestOffset = 1.1e9;
    double bestVertex = 1.1e9;
    if (typ == profile || v.empty()) {
        return {-1, station, offset};
    }
    bool const increasing = Increasing();

    std::size_t start = 0;
    if (mode == 1) {
        start = Sok(v[0].sektion + Distance(v[0].x, v[0].y, x, y)).to;
        start = start < 2 ? 0 : start - 2;
    }

    bool found = false;
    for (std::size_t i = start; i + 1 < v.size(); ++i) {
        kovltype const& p = v[i];
        kovltype const& q = v[i + 1];
        Svar svar;
        double along = 0;
        double across = 0;
        if (IsArc(p.bulge)) {
            svar = Padist(p, q, x, y, svar);
            along = svar.first;
            across = svar.second;
        } else {
            svar = Pldist(p.y, p.x, q.y, q.x, y, x, svar);
            across = svar.first;
            along = svar.second;
        }
        if (svar.result == 1 && std::fabs(across) < bestOffset) {
            bestOffset = std::fabs(across);
            station = increasing ? p.sektion + along : p.sektion - along;
            offset = increasing ? across : -across;
        }
        if (mode == 1 && found) {
            break;
        }
        found = found || station < CVaglinje::Sekkoll;
    }

    int const segmentResult = bestOffset <= 1e9 ? 0 : -1;
    bool const vertices = mode == 0 || (mode == 1 && station > CVaglinje::Sekkoll);
    if (!vertices) {
        return {segmentResult, station, offset};
    }

    std::size_t nearest = v.size();
    double signedDistance = 0;
    for (std::size_t i = start; i < v.size(); ++i) {
        double const d = Distance(v[i].x, v[i].y, x, y);
        if (d < bestVertex) {
            bestVertex = d;
            nearest = i;
            signedDistance = d;
            if (i > 0) {
                Svar const side =
                    Pldist(v[i - 1].y, v[i - 1].x, v[i].y, v[i].x, y, x, {0, 1, 0, 0});
                signedDistance = side.first < 0 ? -d : d;
            }
        }
    }
    if (nearest < v.size() && bestVertex < bestOffset && nearest != 0 && nearest != v.size() - 1) {
        return {0, v[nearest].sektion, signedDistance};
    }
    return {segmentResult, station, offset};
}

Svar Vagmodell::PktIomr(double x, double y, int mode, Svar svar) const {
    Svar const found = Vagstv(x, y, mode);
    bool const within = found.first >= omrSekFran - 0.001 && found.first <= omrSekTill + 0.001 &&
                        found.second >= omrAvstMin && found.second <= omrAvstMax;
    if (found.result != 0 || !within) {
        svar.result = -1;
        return svar;
    }
    return found;
}

int Vagmodell::Reset() {
    bool const empty = v.empty();
    omrSekFran = empty ? 0 : v.front().sektion;
    omrSekTill = empty ? 0 : v.back().sektion;
    omrAvstMin = empty ? 0 : -30.0;
    omrAvstMax = empty ? 0 : 30.0;
    return empty ? -1 : 0;
}

int Vagmodell::SektKorr(double x, double y, double sektion) {
    if (typ == profile) {
        return -1;
    }
    bool known = false;
    double delta = 0;
    for (kovltype const& vertex : v) {
        if (Distance(vertex.x, vertex.y, x, y) <= 0.001) {
            known = true;
            delta = vertex.sektion - sektion;
        }
    }
    if (!known) {
        return -1;
    }
    for (kovltype& vertex : v) {
        vertex.sektion -= delta;
    }
    return 0;
}

int Vagmodell::SektBerak(double start) {
    if (typ == profile) {
        return -1;
    }
    for (std::size_t i = 0; i < v.size(); ++i) {
        if (i == 0) {
            v[i].sektion = start;
            continue;
        }
        kovltype const& forra = v[i - 1];
        double length = Distance(forra.x, forra.y, v[i].x, v[i].y);
        if (IsArc(v[i].bulge)) {
            length = Padist(v[i], forra, forra.x, forra.y, {}).first;
        }
        v[i].sektion = forra.sektion + length;
    }
    return 0;
}

int Vagmodell::ExtendStart(double before) {
    kovltype const f = v.front();
    Svar const q = Vag2xy(f.sektion + 0.5, 0);
    double const length = Distance(f.x, f.y, q.first, q.second);
    if (q.result != 0 || !(length > 0)) {
        return -1;
    }
    double const ux = (q.first - f.x) / length;
    double const uy = (q.second - f.y) / length;
    v.insert(v.begin(), {q.first - before * ux, q.second - before * uy, 0, f.sektion - before});
    return 0;
}

int Vagmodell::ExtendEnd(double after) {
    v.back().bulge = 0;
    kovltype const l = v.back();
    Svar const q = Vag2xy(l.sektion - 0.5, 0);
    double const length = Distance(q.first, q.second, l.x, l.y);
    if (q.result != 0 || !(length > 0)) {
        return -1;
    }
    double const ux = (l.x - q.first) / length;
    double const uy = (l.y - q.second) / length;
    v.push_back({q.first + after * ux, q.second + after * uy, 0, l.sektion + after});
    return 0;
}

int Vagmodell::Extend(double before, double after) {
    if (typ == profile) {
        return -1;
    }
    if (before > 0 && (v.empty() || ExtendStart(before) != 0)) {
        return -1;
    }
    if (!(after > 0)) {
        return 0;
    }
    return v.empty() ? -1 : ExtendEnd(after);
}
