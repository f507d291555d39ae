// The search for the foot or the vertex that is nearest to a point, as far as the line and its
// index share it: what is found, what it answers, and which segments need no exact formula.
#pragma once

#include <algorithm>
#include <limits>

#include "roadsegment.h"
#include "vaglinje.h"

namespace kvarn {

constexpr double farAway = 1.1e9; // metres; feet and vertices count that are nearer

// A foot or a vertex, as the place on the road that a point gets.
struct RoadHit {
    double sektion;
    double offset;
    double distance; // from the point, without sign
};

inline RoadHit NoFoot() {
    return {CVaglinje::Seknoll, 0, farAway};
}

inline RoadHit NoVertex() {
    return {CVaglinje::Seknoll, 0, std::numeric_limits<double>::infinity()};
}

// sign: 1 where stations increase, otherwise -1.
inline RoadHit HitOn(kovltype const& p, Foot const& foot, double sign) {
    return {p.sektion + sign * foot.along, sign * foot.offset, std::fabs(foot.offset)};
}

// The vertex q at the end of the segment from p.
inline RoadHit HitAt(kovltype const& p, kovltype const& q, double distance, Point point) {
    return {q.sektion, IsOnNegativeSide(p, q, point) ? -distance : distance, distance};
}

// Writes the nearer one, the foot when they are equally far. The result is that of Vagstv.
inline int WriteNearer(RoadHit const& foot, RoadHit const& vertex, double* sektion,
                       double* offset) {
    constexpr double farthest = 1e9; // a foot beyond it is written, but is no success
    RoadHit const& nearer = vertex.distance < foot.distance ? vertex : foot;
    *sektion = nearer.sektion;
    *offset = nearer.offset;
    return &nearer == &vertex || foot.distance <= farthest ? 0 : -1;
}

// What PktIomr accepts.
struct RoadArea {
    double sekFran;
    double sekTill;
    double avstMin;
    double avstMax;

    // Writes a place in the area where the pointers are not null; -1 for one outside.
    int Write(double s, double o, double* sektion, double* offset) const {
        constexpr double tolerance = 0.001; // metres along the line
        bool const isWithin =
            s >= sekFran - tolerance && s <= sekTill + tolerance && o >= avstMin && o <= avstMax;
        if (!isWithin) {
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
};

// The lesser of two squares is that of the lesser distance, unless the rounded roots are equal.
inline bool IsNearer(double square, double than) {
    return square < than && (square < (1 - 1e-12) * than || std::sqrt(square) < std::sqrt(than));
}

// Segments are ruled out, without a root or a division, by squares: of the distances from a point
// to the ends, toP and toQ, and of the ends from each other, the chord.

// Beyond an end the foot would lie where the squares differ by more than the chord's, by 2 c times
// the way beyond. The room, 0.0005 c, is more than the ten-thousandth by which a foot may lie
// there, and 1e-14 of a square more than they err.
inline double SquareBeyond(double toP, double toQ, double chord) {
    return std::fabs(toP - toQ) - (1.001 * chord + 1e-14 * toP);
}

// True where an arc up to a half circle has no foot nearer than the root of a square for sure,
// if its feet are where geometry has them.
bool IsArcRuledOut(kovltype const& p, kovltype const& q, double toP, double toQ, double square);
// Whether all feet on an arc are where geometry has them.
bool IsPlainArc(kovltype const& p, kovltype const& q);

// The same of a straight.
inline bool IsStraightRuledOut(kovltype const& p, kovltype const& q, Point point, double toP,
                               double toQ, double square) {
    double const chord = Square(PlaceOf(q) - PlaceOf(p));
    return SquareBeyond(toP, toQ, chord) > 0 || !StraightFoot(p, q, point).MayBeNearerThan(square);
}

} // namespace kvarn
