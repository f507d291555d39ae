// CVaglinje: the walk along the line, for the queries and the search.
#include "roadsegment.h"
#include "vaglinje.h"

bool CVaglinje::Vaxande() const {
    return m_forsta->nasta == nullptr || !(m_forsta->nasta->post.sektion < m_forsta->post.sektion);
}

void CVaglinje::StallSegment(nod* from, nod* to, int position) {
    mark = from;
    aktel = to;
    m_position = position;
    Set_pael();
    Sort_mark();
}

int CVaglinje::SokSegment(double sektion) {
    if (Home() != 0) {
        return -1;
    }
    // A line whose stations decrease is walked by the stations' negatives.
    double const sign = Vaxande() ? 1 : -1;
    double const wanted = sign * sektion;
    if (wanted <= sign * m_forsta->post.sektion - kvarn::stationTolerance) {
        return -1;
    }
    nod* from = m_forsta;
    int position = 1;
    for (nod* to = from->nasta; to != nullptr; from = to, to = to->nasta) {
        ++position;
        if (sign * to->post.sektion + kvarn::stationTolerance > wanted) {
            StallSegment(from, to, position);
            return 0;
        }
    }
    StallSegment(from, from, position);
    return -1;
}
