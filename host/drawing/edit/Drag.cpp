#include "host/drawing/edit/Drag.h"

#include "host/drawing/edit/CentreLine.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/edit/RoleTransform.h"
#include "host/drawing/edit/Transform.h"
#include "host/drawing/geometry/Extents.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

enum Code : int {
    FitPointCode = 11,
    StartTangentCode = 12,
    EndTangentCode = 13,
    RadiusCode = 40,
    StartAngleCode = 50,
    EndAngleCode = 51,
    FitCountCode = 74,
};

// Whose places are dragged one by one.
bool isPliable(const std::u16string &type)
{
    constexpr std::array<std::u16string_view, 6> types = {u"3DFACE", u"LEADER", u"LINE", u"SOLID", u"SPLINE", u"TRACE"};
    return std::ranges::binary_search(types, type);
}

// Which have several places, and go along with all of them only.
bool isStiff(const std::u16string &type)
{
    return type == u"DIMENSION" || type == u"MLINE";
}

// Whether a place of the entity is one to be dragged by.
bool isHandle(const std::u16string &type, const TransformSchema &schema, int code)
{
    const auto row = std::ranges::find(schema.rows, code, &RoleRow::code);
    if (row == schema.rows.end())
        return false;
    if (type == u"SPLINE" || (!isPliable(type) && !isStiff(type)))
        return code == groupcode::FirstX;
    return row->role == GroupRole::Place || (row->role == GroupRole::ObjectPlace && !isStiff(type));
}

// From the coordinates in which the place of an entity is written.
Matrix toWorldOf(const GroupList &groups, const TransformSchema &schema)
{
    const auto row = std::ranges::find(schema.rows, groupcode::FirstX, &RoleRow::code);
    const bool isOwn = row != schema.rows.end() && row->role == GroupRole::ObjectPlace;
    return isOwn ? Matrix::ofExtrusion(extrusionOf(groups)) : Matrix();
}

Matrix toWorldOf(const PolylineData &polyline)
{
    return polyline.isInSpace ? Matrix() : Matrix::ofExtrusion(polyline.extrusion);
}

std::vector<Vector> cornersOf(const Drawing &drawing, RecordId entity)
{
    const std::optional<geometry::Box> box = geometry::extentsOf(drawing, entity);
    if (!box)
        return {};
    const Vector &a = box->minimum, &b = box->maximum;
    return {a, {b.x, a.y, a.z}, b, {a.x, b.y, b.z}};
}

std::vector<Vector> placesOf(const Drawing &drawing, RecordId entity)
{
    std::vector<Vector> places;
    if (const std::optional<PolylineData> polyline = polylineOf(drawing.database(), entity)) {
        const Matrix toWorld = toWorldOf(*polyline);
        for (const PolylineData::Vertex &vertex : polyline->vertices)
            places.push_back(toWorld.place(vertex.place));
        return places;
    }
    const GroupList groups = drawing.database().groups(entity);
    const std::u16string type = textOf(groups, groupcode::Type);
    const TransformSchema *schema = transformSchema(type);
    if (!schema || type == u"POLYLINE") // a mesh
        return cornersOf(drawing, entity);
    if (const std::vector<geometry::Curve> arc = centreLine(drawing, entity); type == u"ARC" && !arc.empty())
        return {startOf(arc.front()), endOf(arc.front())};
    const Matrix toWorld = toWorldOf(groups, *schema);
    for (const Group &group : groups)
        if (const auto *point = std::get_if<Point>(&group.value); point && isHandle(type, *schema, group.code))
            places.push_back(toWorld.place(geometry::vectorOf(*point)));
    return places;
}

bool dragVertices(Drawing &drawing, RecordId entity, PolylineData polyline, const Vector &by, const IsWithin &isWithin)
{
    const Matrix toWorld = toWorldOf(polyline);
    Vector own = geometry::inverse(toWorld).direction(by);
    if (!polyline.isInSpace)
        own.z = 0; // the vertices have one height
    for (PolylineData::Vertex &vertex : polyline.vertices)
        if (isWithin(toWorld.place(vertex.place)))
            vertex.place += own;
    return replacePolyline(drawing, entity, polyline);
}

double degreesOf(const Vector &direction)
{
    const double angle = std::atan2(direction.y, direction.x) * (360 / geometry::FullTurn);
    return angle < 0 ? angle + 360 : angle;
}

// Counter-clockwise from one end to the other, in its own coordinates.
GroupList arcBetween(GroupList groups, const Vector &start, const Vector &end)
{
    const double radius = realOf(groups, RadiusCode);
    const double sweep = geometry::counterclockwise(geometry::radians(realOf(groups, StartAngleCode)),
                                                    geometry::radians(realOf(groups, EndAngleCode)));
    const double height = radius * (1 - std::cos(sweep / 2));
    const Vector chord = end - start;
    const double half = std::hypot(chord.x, chord.y) / 2;
    const double newRadius = (half * half + height * height) / (2 * height);
    const Vector left = geometry::normalized({-chord.y, chord.x, 0});
    const Vector centre = (start + end) * 0.5 + left * (newRadius - height);
    setGroup(groups, pointGroup(groupcode::FirstX, centre));
    setGroup(groups, realGroup(RadiusCode, newRadius));
    setGroup(groups, realGroup(StartAngleCode, degreesOf(start - centre)));
    setGroup(groups, realGroup(EndAngleCode, degreesOf(end - centre)));
    return groups;
}

bool dragEnds(Drawing &drawing, RecordId entity, std::vector<Vector> ends, const Vector &by, const IsWithin &isWithin)
{
    const GroupList groups = drawing.database().groups(entity);
    const Matrix toOwn = geometry::inverse(Matrix::ofExtrusion(extrusionOf(groups)));
    const double height = placeOf(groups, groupcode::FirstX).z;
    for (Vector &end : ends) {
        end = toOwn.place(isWithin(end) ? end + by : end);
        end.z = height;
    }
    return drawing.database().replace(entity, arcBetween(groups, ends.front(), ends.back()));
}

bool dragGroups(Drawing &drawing, RecordId entity, GroupList groups, const Vector &by, const IsWithin &isWithin)
{
    const std::u16string type = textOf(groups, groupcode::Type);
    const TransformSchema &schema = *transformSchema(type);
    const Matrix toWorld = toWorldOf(groups, schema);
    const Vector own = geometry::inverse(toWorld).direction(by);
    for (Group &group : groups)
        if (auto *point = std::get_if<Point>(&group.value); point && isHandle(type, schema, group.code))
            if (const Vector place = geometry::vectorOf(*point); isWithin(toWorld.place(place)))
                setPlace(*point, place + own);
    if (type == u"SPLINE" && hasGroup(groups, FitPointCode)) {
        for (const int code : {FitPointCode, StartTangentCode, EndTangentCode})
            removeGroups(groups, code);
        setGroup(groups, integerGroup(FitCountCode, 0));
    }
    return drawing.database().replace(entity, groups);
}

} // namespace

bool dragEntity(Drawing &drawing, RecordId entity, const Vector &by, const IsWithin &isWithin)
{
    const std::vector<Vector> places = placesOf(drawing, entity);
    const auto within = std::ranges::count_if(places, isWithin);
    if (within == 0)
        return true;
    if (within == std::ssize(places))
        return transformEntity(drawing, entity, {Matrix::translation(by), false});
    if (const std::optional<PolylineData> polyline = polylineOf(drawing.database(), entity))
        return dragVertices(drawing, entity, *polyline, by, isWithin);
    const GroupList groups = drawing.database().groups(entity);
    const std::u16string type = textOf(groups, groupcode::Type);
    if (type == u"ARC")
        return dragEnds(drawing, entity, places, by, isWithin);
    return isPliable(type) && dragGroups(drawing, entity, groups, by, isWithin);
}

} // namespace drawing
