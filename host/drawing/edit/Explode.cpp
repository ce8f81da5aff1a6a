#include "host/drawing/edit/Explode.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>
#include <cmath>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

enum Code : int {
    BlockNameCode = 2,
    ScaleXCode = 41,
    ScaleYCode = 42,
    ScaleZCode = 43,
    RotationCode = 50,
    ColumnsCode = 70,
    RowsCode = 71
};

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
    const Vector u = matrix.direction(major), v = matrix.direction(minor);
    const double turn = 0.5 * std::atan2(2 * dot(u, v), dot(u, u) - dot(v, v));
    Vector a = u * std::cos(turn) + v * std::sin(turn), b = v * std::cos(turn) - u * std::sin(turn);
    double start = realOf(groups, 41) - turn, end = realOf(groups, 42, geometry::FullTurn) - turn;
    if (length(b) > length(a)) {
        std::swap(a, b);
        b = -b;
        start -= geometry::FullTurn / 4;
        end -= geometry::FullTurn / 4;
    }
    const double shift = std::floor(start / geometry::FullTurn) * geometry::FullTurn;
    setGroup(groups, pointGroup(groupcode::FirstX, matrix.place(placeOf(groups, groupcode::FirstX))));
    setGroup(groups, pointGroup(11, a));
    setGroup(groups, pointGroup(210, geometry::normalized(geometry::cross(a, b))));
    setGroup(groups, realGroup(40, length(b) / length(a)));
    setGroup(groups, realGroup(41, start - shift));
    setGroup(groups, realGroup(42, end - shift));
    return groups;
}

bool isSimilarity(const Matrix &matrix)
{
    constexpr double Tolerance = 1e-9;
    const double x = length(matrix.x), y = length(matrix.y), z = length(matrix.z);
    return std::abs(x - y) <= Tolerance * x && std::abs(x - z) <= Tolerance * x;
}

// The entities of a block, copied out of it and put to their places.
std::vector<RecordId> copiesOfBlock(Drawing &drawing, RecordId block, const Matrix &matrix, const Destination &where)
{
    Database &database = drawing.database();
    std::vector<RecordId> originals, copies;
    for (RecordId id = database.firstIn(block); id != NoRecord; id = database.nextIn(id))
        if (!database.record(id).isGone() && !database.isPart(id))
            originals.push_back(id);
    for (const RecordId original : originals) {
        const RecordId copy = copyEntity(drawing, original, where);
        if (copy == NoRecord)
            continue;
        copies.push_back(copy);
        const std::u16string type = database.type(original);
        const bool isRound = type == u"CIRCLE" || type == u"ARC" || type == u"ELLIPSE";
        if (isSimilarity(matrix) || !isRound || database.isBefore2000()) {
            transformEntity(drawing, copy, {matrix, false});
            continue;
        }
        const GroupList groups = database.groups(copy);
        const GroupList ellipse = stretchedEllipse(type == u"ELLIPSE" ? groups : asEllipse(groups), matrix);
        database.erase(copy);
        copies.back() = addEntityTo(drawing, ellipse, where);
    }
    return copies;
}

std::vector<RecordId> explodeInsert(Drawing &drawing, const GroupList &groups, const Destination &where)
{
    const RecordId block = drawing.tables().find(known::Block, textOf(groups, BlockNameCode));
    if (block == NoRecord || integerOf(groups, ColumnsCode, 1) > 1 || integerOf(groups, RowsCode, 1) > 1)
        return {};
    return copiesOfBlock(drawing, block, insertMatrix(drawing, groups), where);
}

// A dimension's picture stands in the world's coordinates.
std::vector<RecordId> explodeDimension(Drawing &drawing, const GroupList &groups, const Destination &where)
{
    const RecordId block = drawing.tables().find(known::Block, textOf(groups, BlockNameCode));
    return block != NoRecord ? copiesOfBlock(drawing, block, Matrix(), where) : std::vector<RecordId>();
}

std::vector<RecordId> explodePolyline(Drawing &drawing, RecordId entity, const Destination &where)
{
    std::vector<RecordId> parts;
    for (const GroupList &segment : segmentsOf(drawing.database(), entity))
        if (const RecordId part = addEntityTo(drawing, segment, where); part != NoRecord)
            parts.push_back(part);
    return parts;
}

} // namespace

Matrix insertMatrix(const Drawing &drawing, const GroupList &insert)
{
    const RecordId block = drawing.tables().find(known::Block, textOf(insert, BlockNameCode));
    const GroupList start = block != NoRecord ? drawing.database().groups(block) : GroupList();
    return Matrix::ofExtrusion(extrusionOf(insert)) * Matrix::translation(placeOf(insert, groupcode::FirstX)) *
           Matrix::rotation(geometry::radians(realOf(insert, RotationCode))) *
           Matrix::scale(realOf(insert, ScaleXCode, 1), realOf(insert, ScaleYCode, 1), realOf(insert, ScaleZCode, 1)) *
           Matrix::translation(-placeOf(start, groupcode::FirstX));
}

std::vector<RecordId> explodeEntity(Drawing &drawing, RecordId entity)
{
    Database &database = drawing.database();
    const Destination where = destinationOf(database, entity);
    const GroupList groups = database.groups(entity);
    const std::u16string type = database.type(entity);
    std::vector<RecordId> parts;
    if (type == u"INSERT")
        parts = explodeInsert(drawing, groups, where);
    else if (type == u"DIMENSION")
        parts = explodeDimension(drawing, groups, where);
    else if (type == u"LWPOLYLINE" || type == u"POLYLINE")
        parts = explodePolyline(drawing, entity, where);
    if (!parts.empty())
        database.erase(entity);
    return parts;
}

} // namespace drawing
