// What the peers' answers lack: side and sideways.
#include "roadline.h"

#include <cmath>

double SignedOffset(Point from, Point to, Point point, double distance) {
    double const cross =
        (to.x - from.x) * (point.y - from.y) - (to.y - from.y) * (point.x - from.x);
    return cross < 0 ? -distance : distance;
}

Point Moved(Point from, Point to, Point point, double offset) {
    double const dx = to.x - from.x;
    double const dy = to.y - from.y;
    double const step = offset / std::sqrt(dx * dx + dy * dy);
    return {point.x - dy * step, point.y + dx * step};
}
