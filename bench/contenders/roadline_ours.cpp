#include <kvarnprog.h>

#include "roadline.h"

namespace {

class OurLineImpl : public RoadLine {
  public:
    explicit OurLineImpl(RoadVertices const& vertices) {
        for (RoadVertex const& v : vertices) {
            kovltype vertex = {v.point.x, v.point.y, v.bulge, v.station};
            m_line.Ny(1, &vertex);
        }
    }
    RoadPoint ToRoad(Point point) override {
        RoadPoint result{};
        m_line.Vagstv(point.x, point.y, &result.station, &result.offset, 0);
        return result;
    }
    Point ToPlane(RoadPoint point) override {
        Point result{};
        m_line.Vag2xy(point.station, point.offset, &result.x, &result.y);
        return result;
    }

  private:
    CVaglinje m_line;
};

} // namespace

std::unique_ptr<RoadLine> OurLine(RoadVertices const& vertices) {
    return std::make_unique<OurLineImpl>(vertices);
}
