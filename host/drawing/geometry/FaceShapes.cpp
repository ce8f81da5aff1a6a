// SOLID and TRACE, 3DFACE.
#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

using drawing::Item;
using drawing::RecordId;

namespace {

struct CornerGroups
{
    Vector corners[4];
    bool hasFourth = false;
    double thickness = 0;
    Vector extrusion{0, 0, 1};
    std::int64_t hiddenEdges = 0;
};

CornerGroups readCorners(const drawing::Database &database, RecordId id)
{
    CornerGroups groups;
    EntityReader reader(database, id);
    for (Item item; reader.next(item);)
        if (item.code >= 10 && item.code <= 13) {
            groups.corners[item.code - 10] = vectorOf(item.point);
            groups.hasFourth = groups.hasFourth || item.code == 13;
        } else if (item.code == code::Thickness) {
            groups.thickness = item.real;
        } else if (item.code == code::Extrusion) {
            groups.extrusion = vectorOf(item.point);
        } else if (item.code == drawing::groupcode::Count) {
            groups.hiddenEdges = item.integer;
        }
    if (!groups.hasFourth)
        groups.corners[3] = groups.corners[2];
    return groups;
}

} // namespace

void solidShapes(ShapeWalk &walk, RecordId id)
{
    const CornerGroups groups = readCorners(walk.database(), id);
    const Matrix plane = Matrix::ofExtrusion(groups.extrusion);
    Area area;
    area.hasOutline = true;
    area.loops.emplace_back();
    constexpr std::size_t AroundIt[] = {0, 1, 3, 2, 0}; // the corners stand as those of a Z
    for (std::size_t i = 0; i < 4; ++i)
        area.loops[0].push_back(
            Line{plane.place(groups.corners[AroundIt[i]]), plane.place(groups.corners[AroundIt[i + 1]])});
    walk.thickArea(area, plane.z * groups.thickness);
}

void faceShapes(ShapeWalk &walk, RecordId id)
{
    const CornerGroups groups = readCorners(walk.database(), id);
    Face face;
    for (std::size_t i = 0; i < 4; ++i) {
        face.corners[i] = groups.corners[i]; // in world coordinates
        face.isEdgeVisible[i] = (groups.hiddenEdges & (std::int64_t{1} << i)) == 0;
    }
    walk.face(face);
}

} // namespace geometry
