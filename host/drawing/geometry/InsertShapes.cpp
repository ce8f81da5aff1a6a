// What shows a block: INSERT, DIMENSION, tables.
#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

using drawing::Item;
using drawing::NoRecord;
using drawing::RecordId;

namespace {

struct InsertGroups
{
    std::u16string block;
    Vector insertion, scale{1, 1, 1}, extrusion{0, 0, 1};
    double rotation = 0; // in degrees
    double columnSpacing = 0, rowSpacing = 0;
    std::int64_t columns = 1, rows = 1;
};

InsertGroups readInsert(const drawing::Database &database, RecordId id)
{
    InsertGroups groups;
    EntityReader(database, id)
        .readInto(Into{drawing::groupcode::Name, groups.block}, Into{10, groups.insertion}, Into{41, groups.scale.x},
                  Into{42, groups.scale.y}, Into{43, groups.scale.z}, Into{44, groups.columnSpacing},
                  Into{45, groups.rowSpacing}, Into{50, groups.rotation}, Into{70, groups.columns},
                  Into{71, groups.rows}, Into{code::Extrusion, groups.extrusion});
    groups.columns = std::max<std::int64_t>(1, groups.columns);
    groups.rows = std::max<std::int64_t>(1, groups.rows);
    return groups;
}

Vector basePoint(const drawing::Database &database, RecordId block)
{
    const auto group = database.firstGroup(block, drawing::groupcode::FirstX);
    const drawing::Point *point = group ? std::get_if<drawing::Point>(&group->value) : nullptr;
    return point ? vectorOf(*point) : Vector{};
}

bool isInvisible(const drawing::Database &database, RecordId attribute)
{
    constexpr std::int64_t Invisible = 1;
    const auto flags = database.firstGroup(attribute, drawing::groupcode::Count);
    const std::int64_t *value = flags ? std::get_if<std::int64_t>(&flags->value) : nullptr;
    return value && (*value & Invisible) != 0;
}

// Attributes stand where they are shown, not where the insert would take them.
void attributeShapes(ShapeWalk &walk, RecordId insert)
{
    const drawing::Database &database = walk.database();
    for (RecordId part = database.nextIn(insert); part != NoRecord && database.isPart(part);
         part = database.nextIn(part))
        if (database.record(part).container == insert && !database.record(part).isGone() &&
            database.record(part).type == drawing::known::Attribute && !isInvisible(database, part))
            walk.part(part);
}

// The copy numbers to show of `count`: all, or the first and the last.
std::int64_t stepOf(const ShapeWalk &walk, std::int64_t count)
{
    return walk.wantsEveryCopy() || count < 2 ? 1 : count - 1;
}

} // namespace

void insertShapes(ShapeWalk &walk, RecordId id)
{
    const InsertGroups groups = readInsert(walk.database(), id);
    const RecordId block = walk.drawing().tables().find(drawing::known::Block, groups.block);
    if (block == NoRecord)
        return attributeShapes(walk, id);
    const Matrix plane = Matrix::ofExtrusion(groups.extrusion) * Matrix::translation(groups.insertion) *
                         Matrix::rotation(radians(groups.rotation));
    const Matrix scale = Matrix::scale(groups.scale.x, groups.scale.y, groups.scale.z) *
                         Matrix::translation(-basePoint(walk.database(), block));
    for (std::int64_t row = 0; row < groups.rows && walk.isComplete(); row += stepOf(walk, groups.rows))
        for (std::int64_t column = 0; column < groups.columns && walk.isComplete();
             column += stepOf(walk, groups.columns)) {
            const Vector offset{static_cast<double>(column) * groups.columnSpacing,
                                static_cast<double>(row) * groups.rowSpacing, 0};
            walk.block(block, plane * Matrix::translation(offset) * scale);
        }
    attributeShapes(walk, id);
}

void dimensionShapes(ShapeWalk &walk, RecordId id)
{
    std::u16string block;
    Vector offset, extrusion{0, 0, 1};
    constexpr int OffsetCode = 12; // of a copy that shares its block
    EntityReader(walk.database(), id)
        .readInto(Into{drawing::groupcode::Name, block}, Into{OffsetCode, offset}, Into{code::Extrusion, extrusion});
    // The block is in the coordinates of the dimension's space.
    walk.block(walk.drawing().tables().find(drawing::known::Block, block),
               Matrix::translation(Matrix::ofExtrusion(extrusion).direction(offset)));
}

void tableShapes(ShapeWalk &walk, RecordId id)
{
    std::u16string block;
    Vector insertion, direction{1, 0, 0}, extrusion{0, 0, 1};
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        if (item.code == drawing::groupcode::Subclass && item.value == "AcDbTable") // what follows are the cells
            break;
        else if (item.code == drawing::groupcode::Name)
            block = reader.text(item);
        else if (item.code == 10)
            insertion = vectorOf(item.point);
    for (Item item; reader.next(item) && item.code != 171;) // the first cell
        if (item.code == 11)
            direction = vectorOf(item.point);
        else if (item.code == code::Extrusion)
            extrusion = vectorOf(item.point);
    const Vector z = normalized(extrusion), x = normalized(direction, {1, 0, 0});
    walk.block(walk.drawing().tables().find(drawing::known::Block, block), {x, cross(z, x), z, insertion});
}

} // namespace geometry
