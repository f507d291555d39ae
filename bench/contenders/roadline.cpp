// What the peers' answers lack: the side.
#include "roadline.h"

#include <cmath>

double SignedOffset(Point from, Point to, Point point, double distance) {
    double const cross =
        (to.x - from.x) * (point.y - from.y) - (to.y - from.y) * (point.x - from.x);
    return cross < 0 ? -distance : distance;
}
