#include "dxfdrawing.h"

#include <cmath>
#include <numbers>
#include <optional>
#include <unordered_map>

#include <text/codepage.h>

#include "../road/alignment.h"
#include "dxfentity.h"
#include "dxflayers.h"

namespace kvarnio::dxf {
namespace {

// Codes of groups.
constexpr int layerName = 8;
constexpr int handle = 5;
constexpr int east = 10;
constexpr int north = 20;
constexpr int height = 30;
constexpr int flags = 70;
constexpr int bulge = 42;

constexpr double mostBulge = 1e6; // an arc that is the full circle but for some millionths

struct Place { // as the drawing has it
    double east;
    double north;
};

RoadPoint OnMap(Place p, bool isMirrored) {
    return {p.north, isMirrored ? -p.east : p.east};
}

double BulgeIn(Group const& group, bool isMirrored) {
    double const value = NumberIn(group);
    if (std::fabs(value) > mostBulge) {
        throw NotTaken(LineText(group.line) + ": the bulge " + std::string(group.value) +
                       " is that of a full circle");
    }
    return isMirrored ? -value : value;
}

Edge LineOf(Entity const& entity) {
    constexpr int endEast = 11;
    constexpr int endNorth = 21;
    constexpr int endHeight = 31;
    return {{entity.Coordinate(north), entity.Coordinate(east)},
            {entity.Coordinate(endNorth), entity.Coordinate(endEast)},
            0,
            entity.line,
            entity.CoordinateOr(height, 0) != 0 || entity.CoordinateOr(endHeight, 0) != 0};
}

Edge ArcOf(Entity const& entity) {
    constexpr int radiusCode = 40;
    constexpr int startAngle = 50;
    constexpr int endAngle = 51;
    constexpr double turn = 360;
    constexpr double radian = std::numbers::pi / 180;
    bool const isMirrored = IsMirrored(entity);
    Place const centre = {entity.Coordinate(east), entity.Coordinate(north)};
    double const radius = entity.Coordinate(radiusCode);
    if (radius <= 0) {
        entity.Refuse("its radius is not above 0");
    }
    double const start = entity.Number(startAngle);
    double const sweep = std::remainder(entity.Number(endAngle) - start, turn);
    double const arc = std::tan((sweep <= 0 ? sweep + turn : sweep) * radian / 4);
    if (!std::isfinite(arc) || arc <= 0 || arc > mostBulge) {
        entity.Refuse("it is a full circle, or nothing");
    }
    auto const at = [&](double angle) {
        return OnMap({centre.east + radius * std::cos(angle * radian),
                      centre.north + radius * std::sin(angle * radian)},
                     isMirrored);
    };
    RoadPoint const first = at(start);
    RoadPoint const last = at(entity.Number(endAngle));
    return {isMirrored ? last : first, isMirrored ? first : last, arc, entity.line,
            entity.CoordinateOr(height, 0) != 0};
}

void RequireCount(Entity const& entity, std::size_t vertices) {
    constexpr int count = 90;
    Group const* const stated = entity.Find(count);
    if (stated != nullptr && IntegerIn(*stated) != static_cast<std::int64_t>(vertices)) {
        entity.Refuse("it states " + std::string(stated->value) + " vertices and has " +
                      std::to_string(vertices));
    }
}

Polyline LwPolylineOf(Entity const& entity) {
    constexpr int elevation = 38;
    bool const isMirrored = IsMirrored(entity);
    Polyline polyline{entity.type,
                      entity.line,
                      (entity.FlagsOr0(flags) & 1) != 0,
                      entity.CoordinateOr(elevation, 0) != 0,
                      entity.Dictionary(),
                      {}};
    std::optional<Group> waiting; // an X without its Y
    for (Group const& group : entity.groups) {
        if (group.code == east) {
            if (waiting) {
                break;
            }
            waiting = group;
        } else if (group.code == north && waiting) {
            polyline.vertices.push_back(
                {OnMap({CoordinateIn(*waiting), CoordinateIn(group)}, isMirrored), 0,
                 waiting->line});
            waiting.reset();
        } else if (group.code == bulge && !polyline.vertices.empty() && !waiting) {
            polyline.vertices.back().bulge = BulgeIn(group, isMirrored);
        }
    }
    if (waiting) {
        throw NotTaken(LineText(waiting->line) + ": the vertex of this X has no Y");
    }
    RequireCount(entity, polyline.vertices.size());
    return polyline;
}

class DrawingReader {
  public:
    explicit DrawingReader(std::string_view text) : m_groups(text) {}

    Drawing Read() {
        for (Group group = m_groups.Next(); group.value != "EOF"; group = m_groups.Next()) {
            if (group.code != 0 || group.value != "SECTION") {
                throw NotTaken(LineText(group.line) + ": wanted SECTION or EOF");
            }
            ReadSection(m_groups.Next().value);
        }
        return std::move(m_drawing);
    }

  private:
    void ReadSection(std::string_view name) {
        if (name == "HEADER") {
            ReadHeader();
        } else if (name == "ENTITIES") {
            EachEntity([this](Entity const& entity) { TakeEntity(entity); });
            RequireSequenceEnd();
        } else if (name == "OBJECTS") {
            EachEntity([this](Entity const& entity) { TakeObject(entity); });
        } else {
            while (!IsSectionEnd(m_groups.Next())) {
            }
        }
    }

    static bool IsSectionEnd(Group const& group) {
        if (group.code == 0 && (group.value == "EOF" || group.value == "SECTION")) {
            throw NotTaken(LineText(group.line) + ": the section before it has no ENDSEC");
        }
        return group.code == 0 && group.value == "ENDSEC";
    }

    void ReadHeader() {
        constexpr int variableName = 9;
        std::string_view variable;
        for (Group group = m_groups.Next(); !IsSectionEnd(group); group = m_groups.Next()) {
            if (group.code == variableName) {
                variable = group.value;
            } else if (variable == "$INSUNITS" && group.code == flags) {
                m_drawing.unit = IntegerIn(group);
            }
        }
    }

    template <class Take> void EachEntity(Take take) {
        Entity entity;
        Group group = m_groups.Next();
        if (group.code != 0) {
            throw NotTaken(LineText(group.line) + ": wanted an entity or ENDSEC");
        }
        while (!IsSectionEnd(group)) {
            entity.type = group.value;
            entity.line = group.line;
            entity.groups.clear();
            for (group = m_groups.Next(); group.code != 0; group = m_groups.Next()) {
                entity.groups.push_back(group);
            }
            take(entity);
        }
    }

    Layer& LayerOf(Entity const& entity) {
        Group const* const group = entity.Find(layerName);
        std::string_view const name = group == nullptr ? std::string_view("0") : group->value;
        auto const [spelling, isNew] = m_bySpelling.try_emplace(name, 0);
        if (isNew) {
            std::string const utf8 = group == nullptr ? "0" : TextIn(*group);
            auto const [layer, isFirst] =
                m_byKey.try_emplace(LayerKey(utf8), m_drawing.layers.size());
            if (isFirst) {
                m_drawing.layers.push_back({utf8, {}, {}, {}});
            }
            spelling->second = layer->second;
        }
        return m_drawing.layers[spelling->second];
    }

    void TakeEntity(Entity const& entity) {
        if (entity.type == "VERTEX") {
            TakeVertex(entity);
            return;
        }
        if (entity.type == "SEQEND") {
            m_sequence.reset();
            return;
        }
        RequireSequenceEnd();
        Layer& layer = LayerOf(entity);
        if (entity.IsInPaperSpace()) {
            ++layer.others["in paper space"];
        } else if (entity.type == "LINE") {
            layer.edges.push_back(LineOf(entity));
        } else if (entity.type == "ARC") {
            layer.edges.push_back(ArcOf(entity));
        } else if (entity.type == "LWPOLYLINE") {
            layer.polylines.push_back(LwPolylineOf(entity));
        } else if (entity.type == "POLYLINE") {
            BeginPolyline(entity, layer);
        } else {
            ++layer.others[entity.type];
        }
    }

    // The vertices of a polyline of the old form follow as entities of their own.
    void BeginPolyline(Entity const& entity, Layer& layer) {
        constexpr std::int64_t inSpace = 8 + 16 + 64; // a line in space, a mesh, faces
        std::int64_t const kind = entity.FlagsOr0(flags);
        if ((kind & inSpace) != 0) {
            ++layer.others["POLYLINE in space"];
            return;
        }
        m_sequence = Sequence{static_cast<std::size_t>(&layer - m_drawing.layers.data()),
                              IsMirrored(entity)};
        layer.polylines.push_back({entity.type,
                                   entity.line,
                                   (kind & 1) != 0,
                                   entity.CoordinateOr(height, 0) != 0,
                                   entity.Dictionary(),
                                   {}});
    }

    void TakeVertex(Entity const& entity) {
        constexpr std::int64_t controlPoint = 16; // of a spline, beside the line
        if (!m_sequence || (entity.FlagsOr0(flags) & controlPoint) != 0) {
            return;
        }
        Group const* const bow = entity.Find(bulge);
        Layer& layer = m_drawing.layers[m_sequence->layer];
        layer.polylines.back().vertices.push_back(
            {OnMap({entity.Coordinate(east), entity.Coordinate(north)}, m_sequence->isMirrored),
             bow == nullptr ? 0 : BulgeIn(*bow, m_sequence->isMirrored), entity.line});
    }

    void RequireSequenceEnd() const {
        if (m_sequence) {
            Polyline const& open = m_drawing.layers[m_sequence->layer].polylines.back();
            throw NotTaken(LineText(open.line) + ", POLYLINE: its vertices have no SEQEND");
        }
    }

    void TakeObject(Entity const& entity) {
        Group const* const own = entity.Find(handle);
        std::uint64_t const number = own == nullptr ? 0 : HandleIn(*own);
        if (number == 0) {
            return;
        }
        if (entity.type == "DICTIONARY") {
            TakeDictionary(entity, number);
        } else if (entity.type == "XRECORD") {
            TakeRecord(entity, number);
        }
    }

    void TakeDictionary(Entity const& entity, std::uint64_t number) {
        constexpr int entryName = 3;
        constexpr int entry = 350;
        constexpr int ownedEntry = 360;
        bool isRoad = false;
        for (Group const& group : entity.groups) {
            if (group.code == entryName) {
                isRoad = group.value == roadRecord;
            } else if (isRoad && (group.code == entry || group.code == ownedEntry)) {
                m_drawing.recordOf[number] = HandleIn(group);
            }
        }
    }

    void TakeRecord(Entity const& entity, std::uint64_t number) {
        constexpr int text = 1;
        constexpr int value = 40;
        Group const* const mark = entity.Find(text);
        if (mark == nullptr || mark->value != roadRecord) {
            return;
        }
        RoadRecord& record = m_drawing.records[number];
        record = {};
        for (Group const& group : entity.groups) {
            if (group.code == text && group.line != mark->line) {
                record.name += TextIn(group);
            } else if (group.code == value) {
                bool const isStation = record.stations.size() == record.lengths.size();
                (isStation ? record.stations : record.lengths).push_back(CoordinateIn(group));
            }
        }
    }

    struct Sequence {
        std::size_t layer;
        bool isMirrored;
    };

    Groups m_groups;
    Drawing m_drawing;
    std::optional<Sequence> m_sequence;
    std::unordered_map<std::string_view, std::size_t> m_bySpelling;
    std::map<std::string, std::size_t> m_byKey;
};

} // namespace

Drawing ReadDrawing(std::string_view text) {
    return DrawingReader(text).Read();
}

std::string LayerKey(std::string_view utf8) {
    auto key = kvarn::FromUtf8(utf8);
    if (!key) {
        return std::string(utf8);
    }
    for (char& c : *key) {
        c = kvarn::Lower1252(c);
    }
    return *std::move(key);
}

} // namespace kvarnio::dxf
