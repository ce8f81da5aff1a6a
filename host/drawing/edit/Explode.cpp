#include "host/drawing/edit/Explode.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/edit/CopyLinks.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/edit/Stretch.h"
#include "host/drawing/edit/Transform.h"
#include "host/drawing/entities/EntityMaking.h"

#include <algorithm>

namespace drawing {

using geometry::Matrix;

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

void eraseAll(Database &database, const std::vector<RecordId> &entities)
{
    for (const RecordId entity : entities)
        database.erase(entity);
}

void addStretchedAttributes(Drawing &drawing, RecordId original, const Matrix &matrix, RecordId insert)
{
    for (const RecordId part : partsOf(drawing.database(), original)) {
        const std::vector<GroupList> groups =
            isShapedAnew(drawing.database(), part)
                ? stretched(drawing, part, matrix)
                : std::vector<GroupList>{groupsForCopy(drawing.database().groups(part))};
        for (const GroupList &one : groups)
            addPart(drawing, insert, one);
    }
}

// What becomes of an entity that is stretched: as many entities as it takes; none when it cannot be.
std::vector<RecordId> addStretched(Drawing &drawing, RecordId original, const Matrix &matrix, const Destination &where)
{
    std::vector<RecordId> added;
    for (const GroupList &one : stretched(drawing, original, matrix)) {
        const RecordId record = addEntityTo(drawing, one, where);
        if (record == NoRecord) {
            eraseAll(drawing.database(), added);
            return {};
        }
        added.push_back(record);
    }
    if (!added.empty() && drawing.database().record(original).type == known::Insert)
        addStretchedAttributes(drawing, original, matrix, added.front());
    return added;
}

// Of a dimension its picture is stretched entity by entity; it shows the length that it has shown, as it may measure
// another way now.
RecordId addStretchedDimension(Drawing &drawing, RecordId original, const Matrix &matrix, const Destination &where)
{
    constexpr int MeasurementCode = 42;
    Database &database = drawing.database();
    const RecordId copy = copyEntity(drawing, original, where);
    if (copy == NoRecord)
        return NoRecord;
    const GroupList groups = database.groups(copy);
    if (std::optional<GroupList> moved = transformed(groups, {matrix, false})) {
        if (const Group *measurement = findGroup(groups, MeasurementCode))
            setGroup(*moved, *measurement);
        database.replace(copy, *moved);
    }
    const RecordId picture = pictureOf(drawing, groups);
    for (const RecordId shown : picture != NoRecord ? entitiesIn(database, picture) : std::vector<RecordId>()) {
        const std::vector<RecordId> added = isShapedAnew(database, shown)
                                                ? addStretched(drawing, shown, matrix, {picture, false})
                                                : std::vector<RecordId>();
        if (!added.empty())
            database.erase(shown);
        else
            transformEntity(drawing, shown, {matrix, false});
    }
    return copy;
}

// Adds what the original is at its place outside of the block; none when it cannot be there.
std::vector<RecordId> addFromBlock(Drawing &drawing, RecordId original, const Matrix &matrix, const Destination &where)
{
    const auto only = [](RecordId copy) {
        return copy != NoRecord ? std::vector<RecordId>{copy} : std::vector<RecordId>();
    };
    if (matrix == Matrix())
        return only(copyEntity(drawing, original, where));
    if (isSimilarity(matrix))
        return only(copyTransformed(drawing, original, where, {matrix, false}));
    if (isShapedAnew(drawing.database(), original))
        return addStretched(drawing, original, matrix, where);
    if (drawing.database().type(original) == u"DIMENSION")
        return only(addStretchedDimension(drawing, original, matrix, where));
    return only(copyTransformed(drawing, original, where, {matrix, false}));
}

// The entities of a block, copied out of it and put to their places; none when one of them cannot be.
std::vector<RecordId> copiesOfBlock(Drawing &drawing, RecordId block, const Matrix &matrix, const Destination &where)
{
    Database &database = drawing.database();
    std::vector<RecordId> copies;
    std::vector<EntityCopy> links;
    for (const RecordId original : entitiesIn(database, block)) {
        const std::vector<RecordId> added = addFromBlock(drawing, original, matrix, where);
        if (added.empty()) {
            eraseAll(database, copies);
            return {};
        }
        copies.insert(copies.end(), added.begin(), added.end());
        if (added.size() == 1) // else no single one stands for the original
            links.push_back({original, added.front()});
    }
    linkCopies(drawing, links);
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
