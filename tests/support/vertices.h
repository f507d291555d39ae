// The vertices of a road line as values that tests compare and print.
#pragma once

#include <ostream>
#include <vector>

#include "geodata/vaglinje.h"

using Vertices = std::vector<kovltype>;

inline bool operator==(kovltype const& a, kovltype const& b) {
    return a.x == b.x && a.y == b.y && a.bulge == b.bulge && a.sektion == b.sektion;
}

inline std::ostream& operator<<(std::ostream& out, kovltype const& v) {
    return out << '(' << v.x << ' ' << v.y << ' ' << v.bulge << ' ' << v.sektion << ')';
}

inline Vertices VerticesOf(CVaglinje& line) {
    Vertices vertices;
    for (bool there = line.Home() == 0; there; there = line++ != nullptr) {
        vertices.push_back(*line.Get_aktel());
    }
    return vertices;
}

inline void Append(CVaglinje& line, Vertices vertices) {
    for (kovltype& vertex : vertices) {
        line.Ny(1, &vertex);
    }
}
