// Roads that tests of several formats write.
#pragma once

#include <neighbours/road/alignment.h>

// North along y = 240; arcs of the radius 50 from (70, 240) to (130, 240) round (100, 200), to the
// left, and from (190, 240) to (250, 240) round (220, 280), to the right. An arc is
// 100 * asin(0.6) = 64.3501 long.
inline kvarnio::Road Arcs() {
    constexpr double third = 1.0 / 3;
    return {"V\xC3\xA4g \\ 27 ^",
            {{10, 240, 0, 0},
             {70, 240, third, 60},
             {130, 240, 0, 124.3501},
             {190, 240, -third, 184.3501},
             {250, 240, 0, 248.7002}},
            {}};
}

// With 2 % up to station 100, and then a sag of 120 m that hangs 0.6 m.
inline kvarnio::Road ArcsWithProfile() {
    kvarnio::Road road = Arcs();
    road.profile = {{100, 0, 0, 0}, {102, 100, 0.01, 100}, {102, 220, 0, 220}};
    return road;
}
