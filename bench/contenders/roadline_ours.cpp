#include <kvarnprog.h>

#include <optional>

#include "roadline.h"

namespace {

void Fill(CVaglinje& line, RoadVertices const& vertices) {
    line.typ = 1; // a plan
    for (RoadVertex const& v : vertices) {
        kovltype vertex = {v.point.x, v.point.y, v.bulge, v.station};
        line.Ny(1, &vertex);
    }
}

class OurLineImpl : public RoadLine {
  public:
    explicit OurLineImpl(RoadVertices const& vertices) { Fill(m_line, vertices); }
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

class OurIndexImpl : public RoadLine {
  public:
    explicit OurIndexImpl(RoadVertices const& vertices) {
        CVaglinje line;
        Fill(line, vertices);
        m_index.emplace(line);
    }
    RoadPoint ToRoad(Point point) override {
        RoadPoint result{};
        m_index->Vagstv(point.x, point.y, &result.station, &result.offset);
        return result;
    }
    Point ToPlane(RoadPoint point) override {
        Point result{};
        m_index->Vag2xy(point.station, point.offset, &result.x, &result.y);
        return result;
    }

  private:
    std::optional<CVagindex> m_index;
};

class OurIndexMakerImpl : public IndexMaker {
  public:
    explicit OurIndexMakerImpl(RoadVertices const& vertices) { Fill(m_line, vertices); }
    void Make() override { CVagindex const index(m_line); }

  private:
    CVaglinje m_line;
};

} // namespace

std::unique_ptr<RoadLine> OurLine(RoadVertices const& vertices) {
    return std::make_unique<OurLineImpl>(vertices);
}

std::unique_ptr<RoadLine> OurIndex(RoadVertices const& vertices) {
    return std::make_unique<OurIndexImpl>(vertices);
}

std::unique_ptr<IndexMaker> OurIndexMaker(RoadVertices const& vertices) {
    return std::make_unique<OurIndexMakerImpl>(vertices);
}
