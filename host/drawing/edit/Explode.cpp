#include "host/drawing/edit/Explode.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/edit/CopyLinks.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/edit/Stretch.h"
#include "host/drawing/edit/Transform.h"

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

// Adds what the original is at its place outside of the block; false when it cannot be there.
bool addFromBlock(Drawing &drawing, RecordId original, const Matrix &matrix, const Destination &where,
                  std::vector<RecordId> &copies)
{
    const auto add = [&copies](RecordId copy) {
        if (copy != NoRecord)
            copies.push_back(copy);
        return copy != NoRecord;
    };
    if (matrix == Matrix())
        return add(copyEntity(drawing, original, where));
    if (isSimilarity(matrix) || !isShapedAnew(drawing.database(), original))
        return add(copyTransformed(drawing, original, where, {matrix, false}));
    const std::vector<GroupList> parts = stretched(drawing.database(), original, matrix);
    return !parts.empty() &&
           std::ranges::all_of(parts, [&](const GroupList &part) { return add(addEntityTo(drawing, part, where)); });
}

// The entities of a block, copied out of it and put to their places; none when one of them cannot be.
std::vector<RecordId> copiesOfBlock(Drawing &drawing, RecordId block, const Matrix &matrix, const Destination &where)
{
    Database &database = drawing.database();
    std::vector<RecordId> copies;
    std::vector<EntityCopy> links;
    for (const RecordId original : entitiesIn(database, block)) {
        const std::size_t first = copies.size();
        if (!addFromBlock(drawing, original, matrix, where, copies)) {
            for (const RecordId copy : copies)
                database.erase(copy);
            return {};
        }
        if (copies.size() == first + 1) // else no single one stands for the original
            links.push_back({original, copies.back()});
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
