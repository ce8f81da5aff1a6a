#include "host/drawing/edit/Stretch.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PlaneMap.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/edit/Rewriting.h"
#include "host/drawing/edit/RoleTransform.h"
#include "host/drawing/edit/StretchedHatch.h"
#include "host/drawing/edit/StretchedText.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

constexpr double Tolerance = 1e-9;
constexpr int ExtrusionCode = 210;

// A circle or arc that is stretched in one direction is an ellipse or a part of one.
GroupList asEllipse(const GroupList &groups)
{
    constexpr int RadiusCode = 40, StartCode = 50, EndCode = 51;
    const Vector extrusion = extrusionOf(groups);
    const Matrix toWorld = Matrix::ofExtrusion(extrusion);
    const bool isArc = hasGroup(groups, StartCode);
    GroupList ellipse = commonGroups(groups, u"ELLIPSE");
    ellipse.push_back(textGroup(groupcode::Subclass, u"AcDbEllipse"));
    ellipse.push_back(pointGroup(groupcode::FirstX, toWorld.place(placeOf(groups, groupcode::FirstX))));
    ellipse.push_back(pointGroup(11, toWorld.direction({realOf(groups, RadiusCode), 0, 0})));
    ellipse.push_back(pointGroup(210, extrusion));
    ellipse.push_back(realGroup(40, 1));
    ellipse.push_back(realGroup(41, isArc ? geometry::radians(realOf(groups, StartCode)) : 0));
    ellipse.push_back(realGroup(42, isArc ? geometry::radians(realOf(groups, EndCode)) : geometry::FullTurn));
    return ellipse;
}

// The axes of an ellipse under any affine matrix, from two conjugate half diameters.
GroupList stretchedEllipse(GroupList groups, const Matrix &matrix)
{
    const Vector major = placeOf(groups, 11);
    const Vector normal = extrusionOf(groups);
    const Vector minor = geometry::cross(normal, major) * realOf(groups, 40, 1);
    const auto [a, b, turn] = principalAxes(matrix.direction(major), matrix.direction(minor));
    const double start = realOf(groups, 41) - turn, end = realOf(groups, 42, geometry::FullTurn) - turn;
    const double shift = std::floor(start / geometry::FullTurn) * geometry::FullTurn;
    setGroup(groups, pointGroup(groupcode::FirstX, matrix.place(placeOf(groups, groupcode::FirstX))));
    setGroup(groups, pointGroup(11, a));
    setGroup(groups, pointGroup(210, geometry::normalized(geometry::cross(a, b))));
    setGroup(groups, realGroup(40, length(b) / length(a)));
    setGroup(groups, realGroup(41, start - shift));
    setGroup(groups, realGroup(42, end - shift));
    return groups;
}

// An insert is put by a rotation and a scale along each of its axes. A mirror turns round the first of them.
std::optional<GroupList> stretchedInsert(GroupList groups, const Matrix &matrix)
{
    enum Code : int { ScaleX = 41, ScaleY, ScaleZ, ColumnSpacing, RowSpacing, Rotation = 50 };
    const Matrix turned = matrix * Matrix::ofExtrusion(extrusionOf(groups)) *
                          Matrix::rotation(geometry::radians(realOf(groups, Rotation)));
    const Vector x = turned.x * realOf(groups, ScaleX, 1), y = turned.y * realOf(groups, ScaleY, 1),
                 z = turned.z * realOf(groups, ScaleZ, 1);
    const double sizeX = length(x), sizeY = length(y), sizeZ = length(z);
    const auto isUpright = [](const Vector &a, const Vector &b) {
        return std::abs(dot(a, b)) <= Tolerance * length(a) * length(b);
    };
    if (sizeX == 0 || sizeY == 0 || sizeZ == 0 || !isUpright(x, y) || !isUpright(y, z) || !isUpright(z, x))
        return std::nullopt;
    const double sign = dot(cross(x, y), z) < 0 ? -1 : 1;
    const Vector normal = normalized(z);
    const Matrix toObject = geometry::inverse(Matrix::ofExtrusion(normal));
    const Vector along = toObject.direction(x * sign);
    const Vector oldPlace = Matrix::ofExtrusion(extrusionOf(groups)).place(placeOf(groups, groupcode::FirstX));
    // Columns and rows run along the rotated axes, to where these pointed whatever the signs of the old scales were.
    const double columns =
                     realOf(groups, ColumnSpacing) * std::copysign(length(turned.x), realOf(groups, ScaleX, 1)) * sign,
                 rows = realOf(groups, RowSpacing) * std::copysign(length(turned.y), realOf(groups, ScaleY, 1));
    setGroup(groups, pointGroup(groupcode::FirstX, toObject.place(matrix.place(oldPlace))));
    setGroup(groups, realGroup(ScaleX, sizeX * sign));
    setGroup(groups, realGroup(ScaleY, sizeY));
    setGroup(groups, realGroup(ScaleZ, sizeZ));
    setGroup(groups, realGroup(Rotation, std::atan2(along.y, along.x) * (180 / std::numbers::pi)));
    if (hasGroup(groups, ColumnSpacing))
        setGroup(groups, realGroup(ColumnSpacing, columns));
    if (hasGroup(groups, RowSpacing))
        setGroup(groups, realGroup(RowSpacing, rows));
    setGroup(groups, pointGroup(ExtrusionCode, normal));
    return groups;
}

std::vector<GroupList> stretchedSegments(const Database &database, RecordId polyline, const Matrix &matrix)
{
    std::vector<GroupList> parts;
    for (const GroupList &segment : segmentsOf(database, polyline)) {
        if (textOf(segment, groupcode::Type) == u"ARC")
            parts.push_back(stretchedEllipse(asEllipse(segment), matrix));
        else if (std::optional<GroupList> line = transformed(segment, {matrix, false}))
            parts.push_back(std::move(*line));
    }
    return parts;
}

// With places and lengths in extended data where they go.
GroupList groupsForStretching(const Database &database, RecordId entity, const Matrix &matrix)
{
    const RoleTransform roles({matrix, false}, {0, 0, 1});
    GroupList groups = groupsForCopy(database.groups(entity));
    for (Group &group : groups)
        if (group.code >= groupcode::ExtendedString)
            roles.applyExtended(group);
    return groups;
}

bool isRound(std::u16string_view type)
{
    return type == u"CIRCLE" || type == u"ARC" || type == u"ELLIPSE";
}

bool hasArcs(const Database &database, RecordId entity)
{
    const std::optional<PolylineData> polyline = polylineOf(database, entity);
    return polyline && !polyline->isInSpace &&
           std::ranges::any_of(polyline->vertices, [](const auto &vertex) { return vertex.bulge != 0; });
}

} // namespace

bool isSimilarity(const Matrix &matrix)
{
    const double x = length(matrix.x), y = length(matrix.y), z = length(matrix.z);
    return std::abs(x - y) <= Tolerance * x && std::abs(x - z) <= Tolerance * x;
}

bool isShapedAnew(const Database &database, RecordId entity)
{
    const std::u16string type = database.type(entity);
    return isRound(type) || isTextType(type) || type == u"HATCH" || type == u"INSERT" || hasArcs(database, entity);
}

std::vector<GroupList> stretched(const Drawing &drawing, RecordId entity, const Matrix &matrix)
{
    const Database &database = drawing.database();
    const std::u16string type = database.type(entity);
    const auto only = [](std::optional<GroupList> one) {
        return one ? std::vector<GroupList>{std::move(*one)} : std::vector<GroupList>();
    };
    if (type == u"INSERT")
        return only(stretchedInsert(groupsForStretching(database, entity, matrix), matrix));
    if (isTextType(type))
        return only(stretchedText(drawing, groupsForCopy(database.groups(entity)), matrix));
    if (type == u"HATCH")
        return only(stretchedHatch(groupsForCopy(database.groups(entity)), matrix));
    if (database.isBefore2000())
        return {};
    if (!isRound(type))
        return stretchedSegments(database, entity, matrix);
    const GroupList groups = groupsForStretching(database, entity, matrix);
    return {withExtendedDataOf(groups, stretchedEllipse(type == u"ELLIPSE" ? groups : asEllipse(groups), matrix))};
}

} // namespace drawing
