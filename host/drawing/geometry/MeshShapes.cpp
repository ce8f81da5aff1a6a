#include "host/drawing/geometry/MeshShapes.h"

namespace geometry {

using drawing::Item;
using drawing::NoRecord;
using drawing::RecordId;

namespace {

enum VertexFlag { FrameControlPoint = 16, PolyfaceVertex = 64, PolyfacePart = 128 };

std::int64_t integerOf(const drawing::Database &database, RecordId id, int code)
{
    const auto group = database.firstGroup(id, code);
    const std::int64_t *value = group ? std::get_if<std::int64_t>(&group->value) : nullptr;
    return value ? *value : 0;
}

// A face record: numbers of vertices from 1, 0 where there is none, negative where the edge from there is not seen.
struct FaceRecord
{
    std::int64_t corners[4] = {};
    std::size_t count = 0;
};

FaceRecord readFace(const drawing::Database &database, RecordId part)
{
    FaceRecord face;
    EntityReader reader(database, part);
    for (Item item; reader.next(item);)
        if (item.code >= 71 && item.code <= 74 && item.integer != 0 && face.count < 4)
            face.corners[face.count++] = item.integer;
    return face;
}

void faceShape(ShapeWalk &walk, const FaceRecord &record, std::span<const Vector> places)
{
    if (record.count == 0)
        return;
    Face face;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::int64_t corner = record.corners[std::min(i, record.count - 1)];
        const std::uint64_t number =
            corner < 0 ? 0 - static_cast<std::uint64_t>(corner) : static_cast<std::uint64_t>(corner);
        if (number > places.size())
            return;
        face.corners[i] = places[number - 1];
        face.isEdgeVisible[i] = corner > 0 && i < record.count;
    }
    if (record.count == 3) { // the last corner stands twice; the edge back is that of the third
        face.isEdgeVisible[3] = face.isEdgeVisible[2];
        face.isEdgeVisible[2] = false;
    }
    walk.face(face);
}

} // namespace

PolylineGroups readPolyline(const drawing::Database &database, RecordId id)
{
    PolylineGroups groups;
    groups.id = id;
    Vector place;
    EntityReader(database, id)
        .readInto(Into{10, place}, Into{code::Thickness, groups.thickness}, Into{40, groups.startWidth},
                  Into{41, groups.endWidth}, Into{70, groups.flags}, Into{71, groups.countM}, Into{72, groups.countN},
                  Into{73, groups.densityM}, Into{74, groups.densityN}, Into{code::Extrusion, groups.extrusion});
    groups.elevation = place.z;
    return groups;
}

std::vector<RecordId> verticesOf(const drawing::Database &database, const PolylineGroups &groups)
{
    std::vector<RecordId> vertices;
    for (RecordId part = database.nextIn(groups.id); part != NoRecord && database.isPart(part);
         part = database.nextIn(part)) {
        const drawing::Record &record = database.record(part);
        if (record.container != groups.id || record.type != drawing::known::Vertex || record.isGone())
            continue;
        const bool isFrame = (integerOf(database, part, drawing::groupcode::Count) & FrameControlPoint) != 0;
        if (!isFrame || !groups.is(PolylineGroups::SplineFit))
            vertices.push_back(part);
    }
    return vertices;
}

Vector placeOf(const drawing::Database &database, RecordId vertex)
{
    const auto group = database.firstGroup(vertex, drawing::groupcode::FirstX);
    const drawing::Point *point = group ? std::get_if<drawing::Point>(&group->value) : nullptr;
    return point ? vectorOf(*point) : Vector{};
}

void meshShapes(ShapeWalk &walk, const PolylineGroups &groups)
{
    std::vector<Vector> places;
    for (const RecordId part : verticesOf(walk.database(), groups))
        places.push_back(placeOf(walk.database(), part));
    const bool isSmooth = groups.is(PolylineGroups::SplineFit);
    const std::size_t m =
        static_cast<std::size_t>(std::max<std::int64_t>(0, isSmooth ? groups.densityM : groups.countM));
    const std::size_t n =
        static_cast<std::size_t>(std::max<std::int64_t>(0, isSmooth ? groups.densityN : groups.countN));
    if (m == 0 || n == 0 || places.size() / m < n)
        return;
    const bool closedM = groups.is(PolylineGroups::Closed), closedN = groups.is(PolylineGroups::ClosedInN);
    const auto place = [&](std::size_t i, std::size_t j) { return places[(i % m) * n + j % n]; };
    for (std::size_t i = 0; i < (closedM ? m : m - 1); ++i)
        for (std::size_t j = 0; j < (closedN ? n : n - 1); ++j) {
            // Each inner edge is shown by one of its two faces.
            const bool isLastM = !closedM && i + 2 == m, isLastN = !closedN && j + 2 == n;
            walk.face(
                {{place(i, j), place(i + 1, j), place(i + 1, j + 1), place(i, j + 1)}, {true, isLastM, isLastN, true}});
        }
    if (m == 1 || n == 1)
        for (std::size_t i = 0; i + 1 < places.size(); ++i)
            walk.line(places[i], places[i + 1]);
}

void polyfaceShapes(ShapeWalk &walk, const PolylineGroups &groups)
{
    std::vector<Vector> places;
    std::vector<FaceRecord> faces;
    for (const RecordId part : verticesOf(walk.database(), groups)) {
        const std::int64_t flags = integerOf(walk.database(), part, drawing::groupcode::Count);
        if ((flags & PolyfacePart) != 0 && (flags & PolyfaceVertex) == 0)
            faces.push_back(readFace(walk.database(), part));
        else
            places.push_back(placeOf(walk.database(), part));
    }
    for (const FaceRecord &face : faces)
        faceShape(walk, face, places);
}

} // namespace geometry
