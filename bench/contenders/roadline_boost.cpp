// Boost.Geometry by its segments: it has no linear referencing of its own that gives a side.
#include <algorithm>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <limits>

#include "roadline.h"

namespace {

namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using Segment = bg::model::segment<BoostPoint>;
using ReferringSegment = bg::model::referring_segment<BoostPoint const>;

BoostPoint ToBoost(Point point) {
    return {point.x, point.y};
}

// Station and offset of a point on the segment that was found to be nearest.
RoadPoint OnSegment(RoadVertex const& from, RoadVertex const& to, Point point) {
    BoostPoint along = ToBoost(to.point);
    BoostPoint across = ToBoost(point);
    bg::subtract_point(along, ToBoost(from.point));
    bg::subtract_point(across, ToBoost(from.point));
    double const fraction =
        std::clamp(bg::dot_product(across, along) / bg::dot_product(along, along), 0.0, 1.0);
    double const distance =
        bg::distance(ToBoost(point), Segment(ToBoost(from.point), ToBoost(to.point)));
    return {from.station + fraction * (to.station - from.station),
            SignedOffset(from.point, to.point, point, distance)};
}

class BoostLineImpl : public RoadLine {
  public:
    explicit BoostLineImpl(RoadVertices const& vertices) : m_vertices(vertices) {
        for (RoadVertex const& v : vertices) {
            bg::append(m_line, ToBoost(v.point));
        }
    }
    RoadPoint ToRoad(Point point) override {
        BoostPoint const p = ToBoost(point);
        double best = std::numeric_limits<double>::infinity();
        std::size_t nearest = 0;
        for (std::size_t i = 0; i + 1 < m_line.size(); ++i) {
            double const distance =
                bg::comparable_distance(p, ReferringSegment(m_line[i], m_line[i + 1]));
            if (distance < best) {
                best = distance;
                nearest = i;
            }
        }
        return OnSegment(m_vertices[nearest], m_vertices[nearest + 1], point);
    }

  private:
    RoadVertices m_vertices;
    bg::model::linestring<BoostPoint> m_line;
};

using Entry = std::pair<Segment, std::size_t>;
using Tree = bg::index::rtree<Entry, bg::index::rstar<16>>;

// Made of all segments at once, which packs it.
Tree TreeOf(RoadVertices const& vertices) {
    std::vector<Entry> entries;
    entries.reserve(vertices.size());
    for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
        entries.emplace_back(Segment(ToBoost(vertices[i].point), ToBoost(vertices[i + 1].point)),
                             i);
    }
    return Tree(entries);
}

class BoostTreeImpl : public RoadLine {
  public:
    explicit BoostTreeImpl(RoadVertices const& vertices)
        : m_vertices(vertices), m_tree(TreeOf(vertices)) {}
    RoadPoint ToRoad(Point point) override {
        Entry found;
        m_tree.query(bg::index::nearest(ToBoost(point), 1), &found);
        return OnSegment(m_vertices[found.second], m_vertices[found.second + 1], point);
    }

  private:
    RoadVertices m_vertices;
    Tree m_tree;
};

class BoostTreeMakerImpl : public IndexMaker {
  public:
    explicit BoostTreeMakerImpl(RoadVertices const& vertices) : m_vertices(vertices) {}
    void Make() override { Tree const tree = TreeOf(m_vertices); }

  private:
    RoadVertices m_vertices;
};

} // namespace

std::unique_ptr<RoadLine> BoostLine(RoadVertices const& vertices) {
    return std::make_unique<BoostLineImpl>(vertices);
}

std::unique_ptr<RoadLine> BoostTree(RoadVertices const& vertices) {
    return std::make_unique<BoostTreeImpl>(vertices);
}

std::unique_ptr<IndexMaker> BoostTreeMaker(RoadVertices const& vertices) {
    return std::make_unique<BoostTreeMakerImpl>(vertices);
}
