// Texts that are turned, and can still be read.
#pragma once

namespace kvarnio {

// Turns a text by half a turn where it would stand on its head, and is then false. The angle is in
// degrees, clockwise from the text that lies flat, from -180 to 180.
inline bool Upright(double& angle) {
    constexpr double halfTurn = 180;
    constexpr double mostDown = 85; // nearly straight up reads from below
    constexpr double mostUp = -95;
    if (angle > mostDown) {
        angle -= halfTurn;
        return false;
    }
    if (angle < mostUp) {
        angle += halfTurn;
        return false;
    }
    return true;
}

} // namespace kvarnio
