#include "vagindex.h"

#include <algorithm>
#include <memory>
#include <new>
#include <optional>

#include "footindex.h"
#include "roadsegment.h"
#include "stationtable.h"

namespace {

// The sign that lets the stations increase.
double SignOf(std::vector<kovltype> const& vertices) {
    return vertices.size() > 1 && vertices[1].sektion < vertices[0].sektion ? -1 : 1;
}

// By what a segment is found: the first that ends beyond a station holds it.
std::vector<double> StationKeys(std::vector<kovltype> const& vertices) {
    double const sign = SignOf(vertices);
    std::vector<double> keys;
    keys.reserve(vertices.size());
    for (std::size_t i = 1; i < vertices.size(); ++i) {
        keys.push_back(sign * vertices[i].sektion + kvarn::stationTolerance);
    }
    return keys;
}

// Likewise in a profile, whose walk ends at a station that is no number.
std::vector<double> ProfileKeys(std::vector<kovltype> const& vertices) {
    std::vector<double> keys;
    keys.reserve(vertices.size());
    for (std::size_t i = 1; i < vertices.size(); ++i) {
        double const y = vertices[i].y;
        keys.push_back(std::isnan(y) ? std::numeric_limits<double>::infinity() : y);
    }
    return keys;
}

// The segment of a profile where the walk to a station ends.
std::size_t FirstNotBefore(std::vector<kovltype> const& vertices, double sektion) {
    auto const ends = vertices.begin() + 1;
    auto const end =
        std::find_if(ends, vertices.end(), [=](kovltype const& q) { return !(q.y <= sektion); });
    return static_cast<std::size_t>(end - ends);
}

template <class Segment> std::vector<Segment> SegmentsOf(std::vector<kovltype> const& vertices) {
    std::vector<Segment> segments;
    segments.reserve(vertices.size());
    for (std::size_t i = 1; i < vertices.size(); ++i) {
        segments.emplace_back(vertices[i - 1], vertices[i]);
    }
    return segments;
}

struct Plan {
    explicit Plan(std::vector<kovltype> const& vertices)
        : stations(StationKeys(vertices)), segments(SegmentsOf<kvarn::PlanSegment>(vertices)) {
        if (vertices.size() > 1) {
            feet.emplace(vertices);
        }
    }

    kvarn::StationTable stations;
    std::vector<kvarn::PlanSegment> segments;
    std::optional<kvarn::FootIndex> feet;
};

struct Profile {
    explicit Profile(std::vector<kovltype> const& vertices)
        : stations(ProfileKeys(vertices)), segments(SegmentsOf<kvarn::ProfileSegment>(vertices)) {}

    kvarn::StationTable stations;
    std::vector<kvarn::ProfileSegment> segments;
};

// Asks for each element, and counts what succeeded.
template <class Ask> int AskAll(int antal, int* resultat, Ask ask) {
    int succeeded = 0;
    for (int i = 0; i < antal; ++i) {
        int const result = ask(i);
        succeeded += result == 0 ? 1 : 0;
        if (resultat != nullptr) {
            resultat[i] = result;
        }
    }
    return succeeded;
}

double* At(double* values, int i) {
    return values != nullptr ? values + i : nullptr;
}

} // namespace

struct CVagindex::Innehall {
    std::vector<kovltype> vertices;
    double sign;
    kvarn::RoadArea area;
    std::optional<Plan> plan; // unless the line is a profile
    std::optional<Profile> profile;
};

CVagindex::CVagindex(CVaglinje const& linje) try : m_innehall(nullptr) {
    auto innehall = std::make_unique<Innehall>();
    innehall->vertices.reserve(static_cast<std::size_t>(linje.m_antal));
    for (CVaglinje::nod const* n = linje.m_forsta; n != nullptr; n = n->nasta) {
        innehall->vertices.push_back(n->post);
    }
    innehall->sign = SignOf(innehall->vertices);
    innehall->area = {linje.omrSekFran, linje.omrSekTill, linje.omrAvstMin, linje.omrAvstMax};
    if (linje.typ != kvarn::vagtypProfil) {
        innehall->plan.emplace(innehall->vertices);
    }
    if (linje.typ != kvarn::vagtypPlan) {
        innehall->profile.emplace(innehall->vertices);
    }
    m_innehall = innehall.release();
} catch (std::bad_alloc const&) {
    throw ListFel("Minnesbrist (Class CVagindex)");
}

CVagindex::~CVagindex() {
    delete m_innehall;
}

int CVagindex::Vag2xy(double sektion, double offset, double* x, double* y) const {
    *x = kvarn::noCoordinate;
    *y = kvarn::noCoordinate;
    Innehall const& in = *m_innehall;
    double const wanted = in.sign * sektion;
    if (!in.plan || in.plan->segments.empty() ||
        wanted <= in.sign * in.vertices.front().sektion - kvarn::stationTolerance) {
        return -1;
    }
    std::size_t const segment = in.plan->stations.FirstAbove(wanted);
    if (segment == in.plan->segments.size()) {
        return -1;
    }
    kvarn::Point const point = in.plan->segments[segment].At(sektion, offset);
    *x = point.x;
    *y = point.y;
    return 0;
}

int CVagindex::Vagprofz(double sektion, double* z) const {
    *z = kvarn::noCoordinate;
    Innehall const& in = *m_innehall;
    if (!in.profile || in.profile->segments.empty() || in.vertices.front().y > sektion) {
        return -1;
    }
    std::size_t const segment = std::isfinite(sektion) ? in.profile->stations.FirstAbove(sektion)
                                                       : FirstNotBefore(in.vertices, sektion);
    if (segment == in.profile->segments.size()) {
        return -1;
    }
    *z = in.profile->segments[segment].HeightAt(sektion);
    return 0;
}

int CVagindex::Vagstv(double x, double y, double* sektion, double* offset) const {
    *sektion = CVaglinje::Seknoll;
    *offset = 0;
    Innehall const& in = *m_innehall;
    if (!in.plan || !in.plan->feet) {
        return -1;
    }
    kvarn::Point const point = {x, y};
    kvarn::NearestOnLine const found = in.plan->feet->Find(point);
    auto const vertex = in.vertices.begin() + static_cast<std::ptrdiff_t>(found.vertex);
    bool const isInner = vertex != in.vertices.begin() && vertex + 1 != in.vertices.end();
    return kvarn::WriteNearer(
        found.foot.isWithin ? kvarn::HitOn(in.vertices[found.segment], found.foot, in.sign)
                            : kvarn::NoFoot(),
        isInner ? kvarn::HitAt(*(vertex - 1), *vertex, found.distance, point) : kvarn::NoVertex(),
        sektion, offset);
}

int CVagindex::PktIomr(double x, double y, double* sektion, double* offset) const {
    double s = 0;
    double o = 0;
    if (Vagstv(x, y, &s, &o) != 0) {
        return -1;
    }
    return m_innehall->area.Write(s, o, sektion, offset);
}

int CVagindex::Vag2xy(int antal, double const* sektion, double const* offset, double* x, double* y,
                      int* resultat) const {
    return AskAll(antal, resultat,
                  [&](int i) { return Vag2xy(sektion[i], offset[i], x + i, y + i); });
}

int CVagindex::Vagprofz(int antal, double const* sektion, double* z, int* resultat) const {
    return AskAll(antal, resultat, [&](int i) { return Vagprofz(sektion[i], z + i); });
}

int CVagindex::Vagstv(int antal, double const* x, double const* y, double* sektion, double* offset,
                      int* resultat) const {
    return AskAll(antal, resultat,
                  [&](int i) { return Vagstv(x[i], y[i], sektion + i, offset + i); });
}

int CVagindex::PktIomr(int antal, double const* x, double const* y, double* sektion, double* offset,
                       int* resultat) const {
    return AskAll(antal, resultat,
                  [&](int i) { return PktIomr(x[i], y[i], At(sektion, i), At(offset, i)); });
}
