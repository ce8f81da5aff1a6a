#include "host/drawing/edit/Elevation.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/edit/Transform.h"
#include "host/drawing/edit/TransformRows.h"
#include "host/drawing/geometry/Matrix.h"

#include <algorithm>
#include <cmath>

namespace drawing {

using geometry::Matrix;

namespace {

constexpr double Rounding = 1e-9;

// Of texts the second place counts only where they are justified by it, and then it lies beside the first.
bool hasSecondPlaceAside(const std::u16string &type)
{
    return type == u"TEXT" || type == u"ATTDEF" || type == u"ATTRIB";
}

// The heights of all places over the plane of the entity's own coordinates.
std::vector<double> heights(const Database &database, RecordId entity)
{
    std::vector<double> found;
    if (const std::optional<PolylineData> polyline = polylineOf(database, entity)) {
        for (const PolylineData::Vertex &vertex : polyline->vertices)
            found.push_back(vertex.place.z);
        return found;
    }
    const GroupList groups = database.groups(entity);
    const std::u16string type = textOf(groups, groupcode::Type);
    if (type == u"HATCH")
        return {placeOf(groups, groupcode::FirstX).z};
    const TransformSchema *schema = transformSchema(type);
    const Matrix toObject = geometry::inverse(Matrix::ofExtrusion(extrusionOf(groups)));
    for (const Group &group : groups) {
        const auto *point = std::get_if<Point>(&group.value);
        if (!point || !schema || (group.code != groupcode::FirstX && hasSecondPlaceAside(type)))
            continue;
        const auto row = std::ranges::find(schema->rows, group.code, &RoleRow::code);
        if (row != schema->rows.end() && row->role == GroupRole::Place)
            found.push_back(toObject.place(geometry::vectorOf(*point)).z);
        else if (row != schema->rows.end() && row->role == GroupRole::ObjectPlace)
            found.push_back(point->z);
    }
    return found;
}

} // namespace

bool setElevation(Drawing &drawing, RecordId entity, double elevation)
{
    const std::vector<double> now = heights(drawing.database(), entity);
    if (now.empty() || std::ranges::any_of(now, [&](double z) { return std::abs(z - now.front()) > Rounding; }))
        return false;
    if (now.front() == elevation)
        return true;
    const geometry::Vector normal =
        Matrix::ofExtrusion(extrusionOf(drawing.database().groups(entity))).direction({0, 0, 1});
    return transformEntity(drawing, entity, {Matrix::translation(normal * (elevation - now.front())), false});
}

} // namespace drawing
