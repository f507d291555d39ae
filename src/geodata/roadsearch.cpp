#include "roadsearch.h"

#include <algorithm>

namespace kvarn {

namespace {

// Beside an arc with the angle 2 a a point may lie beyond an end by n sin(a), n being its distance
// from that end; sin(a) <= 2 |bulge|, and 17 for 16 leaves room for rounding.
bool IsOffArc(double bulge, double toP, double toQ, double chord) {
    double const beyond = SquareBeyond(toP, toQ, chord);
    double const nearer = std::min(toP, toQ);
    return beyond > 0 && beyond * beyond > 17 * (bulge * bulge) * chord * nearer;
}

// An arc up to a half circle lies in the circle on its chord c, so a foot at the distance w has an
// end within w + 0.71 c, and (w + 0.77 c)^2 <= 1.25 w^2 + 3 c^2. What is between 0.71 and 0.77 is
// far more than rounding takes.
bool IsFarther(double square, double toP, double toQ, double chord) {
    return std::min(toP, toQ) > 1.25 * square + 3 * chord;
}

} // namespace

bool IsArcRuledOut(kovltype const& p, kovltype const& q, double toP, double toQ, double square) {
    double const chord = Square(PlaceOf(q) - PlaceOf(p));
    return IsFarther(square, toP, toQ, chord) || IsOffArc(p.bulge, toP, toQ, chord);
}

// No direction along an axis, of which the pseudo-angle makes another, lies within 0.0005 of the
// arc's directions (with a chord of 0.1 m that is farther than 0.00001 m), nor is the centre's
// rounding anything beside the chord.
bool IsPlainArc(kovltype const& p, kovltype const& q) {
    double const b = std::fabs(p.bulge); // the tangents turn from the chord by 2 b / (1 - b^2)
    double const dx = std::fabs(q.x - p.x);
    double const dy = std::fabs(q.y - p.y);
    double const chord = dx * dx + dy * dy;
    return std::min(dx, dy) * (1 - b * b) > (2 * b + 0.001) * std::max(dx, dy) && chord > 0.01 &&
           Square(PlaceOf(p)) < 1e18 * chord;
}

} // namespace kvarn
