// GEOS by its linear referencing: the location of the nearest point, and the stations of the
// vertices from a table, which is quicker than its length index, since that would walk the line a
// second time for the offset.
#include <geos/geom/CoordinateArraySequence.h>
#include <geos/geom/GeometryFactory.h>
#include <geos/geom/LineSegment.h>
#include <geos/geom/LineString.h>
#include <geos/linearref/ExtractLineByLocation.h> // LocationIndexedLine.h forgets it
#include <geos/linearref/LinearLocation.h>
#include <geos/linearref/LocationIndexedLine.h>

#include "roadline.h"

namespace {

using geos::geom::Coordinate;
using geos::geom::CoordinateArraySequence;

std::unique_ptr<geos::geom::LineString> LineOf(RoadVertices const& vertices) {
    std::vector<Coordinate> coordinates;
    for (RoadVertex const& v : vertices) {
        coordinates.emplace_back(v.point.x, v.point.y);
    }
    return geos::geom::GeometryFactory::getDefaultInstance()->createLineString(
        std::make_unique<CoordinateArraySequence>(std::move(coordinates)));
}

class GeosLineImpl : public RoadLine {
  public:
    explicit GeosLineImpl(RoadVertices const& vertices)
        : m_vertices(vertices), m_line(LineOf(vertices)), m_byLocation(m_line.get()) {}
    RoadPoint ToRoad(Point point) override {
        Coordinate const p(point.x, point.y);
        geos::linearref::LinearLocation const foot = m_byLocation.project(p);
        double const distance = foot.getCoordinate(m_line.get()).distance(p);
        std::size_t const i = foot.getSegmentIndex();
        RoadVertex const& from = m_vertices[i];
        RoadVertex const& to = m_vertices[i + 1];
        return {from.station + foot.getSegmentFraction() * (to.station - from.station),
                SignedOffset(from.point, to.point, point, distance)};
    }

  private:
    RoadVertices m_vertices;
    std::unique_ptr<geos::geom::LineString> m_line;
    geos::linearref::LocationIndexedLine m_byLocation;
};

} // namespace

std::unique_ptr<RoadLine> GeosLine(RoadVertices const& vertices) {
    return std::make_unique<GeosLineImpl>(vertices);
}
