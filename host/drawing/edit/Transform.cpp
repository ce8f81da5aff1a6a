#include "host/drawing/edit/Transform.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/HatchTransform.h"
#include "host/drawing/edit/TransformRows.h"
#include "host/drawing/entities/EntityMaking.h"

#include <algorithm>
#include <vector>

namespace drawing {

using geometry::Vector;

namespace {

constexpr std::u16string_view DimensionPrefix = u"*D";
constexpr std::int64_t AnonymousFlag = 1; // of a block

constexpr int ElevationCode = 38, ExtrusionCode = 210, FlagsCode = 70;

class Transformer
{
public:
    Transformer(const Similarity &similarity, const Vector &extrusion)
        : m_similarity(similarity), m_object(similarity, extrusion)
    {
    }

    GroupList apply(GroupList groups, const TransformSchema &schema)
    {
        const double elevation = realOf(groups, ElevationCode);
        for (Group &group : groups) {
            if (group.code >= groupcode::ExtendedString)
                transformExtended(group);
            else if (const RoleRow *row = rowOf(schema, group.code))
                transform(group, row->role, elevation);
        }
        if (hasGroup(groups, ElevationCode))
            setGroup(groups, realGroup(ElevationCode, m_object.place({0, 0, elevation}).z));
        if (std::ranges::count(schema.rows, ExtrusionCode, &RoleRow::code) != 0 && !hasGroup(groups, ExtrusionCode) &&
            m_object.extrusion() != Vector{0, 0, 1})
            setGroupInFirstPart(groups, pointGroup(ExtrusionCode, m_object.extrusion()));
        if (schema.finish)
            schema.finish(groups, m_object, m_similarity.mirrorsTexts);
        return groups;
    }

private:
    static const RoleRow *rowOf(const TransformSchema &schema, int code)
    {
        const auto row = std::ranges::find(schema.rows, code, &RoleRow::code);
        return row != schema.rows.end() ? &*row : nullptr;
    }

    void transform(Group &group, GroupRole role, double elevation) const
    {
        if (auto *number = std::get_if<double>(&group.value))
            *number = transformedNumber(*number, role);
        if (auto *point = std::get_if<Point>(&group.value))
            set(*point, transformedPoint(*point, role, elevation));
    }

    double transformedNumber(double number, GroupRole role) const
    {
        switch (role) {
        case GroupRole::Length:
            return number * m_object.scale();
        case GroupRole::ObjectAngle:
            return m_object.angle(number);
        case GroupRole::Bulge:
            return m_object.mirrors() ? -number : number;
        default:
            return number;
        }
    }

    Vector transformedPoint(const Point &point, GroupRole role, double elevation) const
    {
        const Vector old = geometry::vectorOf(point);
        switch (role) {
        case GroupRole::Place:
            return m_similarity.matrix.place(old);
        case GroupRole::Offset:
            return m_similarity.matrix.direction(old);
        case GroupRole::Direction:
            return geometry::normalized(m_similarity.matrix.direction(old));
        case GroupRole::Extrusion:
            return m_object.extrusion();
        case GroupRole::ObjectPlace:
            return m_object.place(point.dimensions == 2 ? Vector{old.x, old.y, elevation} : old);
        default:
            return old;
        }
    }

    // Places and lengths in extended data go along by their codes.
    void transformExtended(Group &group) const
    {
        enum Code : int {
            PlaceCode = 1011,
            OffsetCode = 1012,
            DirectionCode = 1013,
            DistanceCode = 1041,
            ScaleCode = 1042
        };
        if (auto *number = std::get_if<double>(&group.value);
            number && (group.code == DistanceCode || group.code == ScaleCode))
            *number *= m_similarity.scale();
        auto *point = std::get_if<Point>(&group.value);
        if (point && group.code == PlaceCode)
            set(*point, transformedPoint(*point, GroupRole::Place, 0));
        else if (point && group.code == OffsetCode)
            set(*point, transformedPoint(*point, GroupRole::Offset, 0));
        else if (point && group.code == DirectionCode)
            set(*point, transformedPoint(*point, GroupRole::Direction, 0));
    }

    static void set(Point &point, const Vector &place)
    {
        point.x = place.x;
        point.y = place.y;
        if (point.dimensions > 2)
            point.z = place.z;
    }

    const Similarity &m_similarity;
    ObjectSimilarity m_object;
};

constexpr RoleRow lightRows[] = {{10, GroupRole::ObjectPlace}, {39, GroupRole::Length}, {40, GroupRole::Length},
                                 {41, GroupRole::Length},      {42, GroupRole::Bulge},  {43, GroupRole::Length},
                                 {210, GroupRole::Extrusion}};
constexpr TransformSchema lightSchema{u"LWPOLYLINE", lightRows};

constexpr std::int64_t InSpaceFlags = 8 | 16 | 64; // polylines in space and meshes

std::vector<RecordId> partsOf(const Database &database, RecordId entity)
{
    std::vector<RecordId> parts;
    RecordId part = database.record(entity).next;
    for (; part != NoRecord && database.record(part).container == entity; part = database.record(part).next)
        if (!database.record(part).isGone())
            parts.push_back(part);
    return parts;
}

std::optional<GroupList> transformedPart(const Database &database, RecordId part, const GroupList &whole,
                                         const Similarity &similarity)
{
    const GroupList groups = database.groups(part);
    const bool isVertex = database.record(part).type == known::Vertex;
    if (isVertex && (integerOf(whole, FlagsCode) & InSpaceFlags) != 0)
        return Transformer(similarity, {0, 0, 1}).apply(groups, spaceVertexSchema);
    return transformed(groups, similarity, isVertex ? std::optional(extrusionOf(whole)) : std::nullopt);
}

// The entities that a dimension shows. Its block is its own when the name says that it was made for it.
std::vector<RecordId> pictureOf(const Drawing &drawing, const GroupList &dimension)
{
    const std::u16string name = textOf(dimension, groupcode::Name);
    std::vector<RecordId> entities;
    if (textOf(dimension, groupcode::Type) != u"DIMENSION" || !name.starts_with(DimensionPrefix))
        return entities;
    const Database &database = drawing.database();
    const RecordId block = drawing.tables().find(known::Block, name);
    for (RecordId id = block != NoRecord ? database.firstIn(block) : NoRecord; id != NoRecord; id = database.nextIn(id))
        if (!database.record(id).isGone() && !database.isPart(id))
            entities.push_back(id);
    return entities;
}

// A copied dimension gets a picture of its own, so that the two can be moved apart.
void givePicture(Drawing &drawing, RecordId dimension)
{
    Database &database = drawing.database();
    GroupList groups = database.groups(dimension);
    const std::vector<RecordId> picture = pictureOf(drawing, groups);
    if (picture.empty())
        return;
    const std::u16string name = freeBlockName(drawing.tables(), DimensionPrefix);
    const RecordId block = addBlock(database, drawing.tables(), {name, {}, AnonymousFlag, u"0"});
    if (block == NoRecord)
        return;
    for (const RecordId entity : picture)
        copyEntity(drawing, entity, {block, false});
    setGroup(groups, textGroup(groupcode::Name, name));
    database.replace(dimension, groups);
}

} // namespace

GroupList groupsForCopy(GroupList groups)
{
    removeGroups(groups, groupcode::Handle);
    // Reactors and extension dictionaries belong to the original.
    for (auto begin = groups.begin(); begin != groups.end();) {
        const auto *text = std::get_if<std::u16string>(&begin->value);
        if (begin->code != groupcode::Braces || !text || !text->starts_with(u'{')) {
            ++begin;
            continue;
        }
        auto end = begin + 1;
        while (end != groups.end() && end->code != groupcode::Braces)
            ++end;
        begin = groups.erase(begin, end != groups.end() ? end + 1 : end);
    }
    return groups;
}

std::optional<GroupList> transformed(const GroupList &groups, const Similarity &similarity,
                                     const std::optional<Vector> &extrusion)
{
    const std::u16string type = textOf(groups, groupcode::Type);
    if (type == u"HATCH")
        return transformedHatch(groups, similarity);
    const TransformSchema *schema = type == lightSchema.type ? &lightSchema : transformSchema(type);
    if (!schema)
        return std::nullopt;
    return Transformer(similarity, extrusion.value_or(extrusionOf(groups))).apply(groups, *schema);
}

bool transformEntity(Drawing &drawing, RecordId entity, const Similarity &similarity)
{
    Database &database = drawing.database();
    const GroupList whole = database.groups(entity);
    const std::optional<GroupList> moved = transformed(whole, similarity);
    if (!moved)
        return false;
    for (const RecordId inPicture : pictureOf(drawing, whole))
        transformEntity(drawing, inPicture, similarity);
    for (const RecordId part : partsOf(database, entity))
        if (const std::optional<GroupList> groups = transformedPart(database, part, whole, similarity))
            database.replace(part, *groups);
    return database.replace(entity, *moved);
}

Destination destinationOf(const Database &database, RecordId entity)
{
    return {database.record(entity).container, database.record(entity).has(Record::PaperSpace)};
}

// A space of the drawing has no container of its own.
RecordId addEntityTo(Drawing &drawing, const GroupList &groups, const Destination &where)
{
    const bool isBlock = drawing.database().record(where.container).kind == RecordKind::BlockStart;
    return addEntity(drawing, groups, {isBlock ? where.container : NoRecord, where.isPaperSpace, u"0"});
}

RecordId copyEntity(Drawing &drawing, RecordId entity)
{
    return copyEntity(drawing, entity, destinationOf(drawing.database(), entity));
}

RecordId copyEntity(Drawing &drawing, RecordId entity, const Destination &where)
{
    Database &database = drawing.database();
    const RecordId end = database.endOf(where.container);
    const Handle owner = ownerOf(database, drawing.tables(), where.container, where.isPaperSpace);
    const auto append = [&](RecordId original, Handle ownerHandle) {
        GroupList groups = groupsForCopy(database.groups(original));
        removeGroups(groups, groupcode::Space);
        if (where.isPaperSpace)
            setGroupBehindLayer(groups, integerGroup(groupcode::Space, 1));
        if (hasGroup(groups, groupcode::Owner))
            setGroup(groups, {groupcode::Owner, ownerHandle});
        return database.add(RecordKind::Entity, groups, end);
    };
    const std::vector<RecordId> parts = partsOf(database, entity);
    const RecordId copy = append(entity, owner);
    if (copy == NoRecord)
        return NoRecord;
    for (const RecordId part : parts)
        append(part, Handle{database.record(copy).handle});
    givePicture(drawing, copy);
    return copy;
}

RecordId copyTransformed(Drawing &drawing, RecordId entity, const Destination &where, const Similarity &similarity)
{
    const RecordId copy = copyEntity(drawing, entity, where);
    if (copy == NoRecord || transformEntity(drawing, copy, similarity))
        return copy;
    drawing.database().erase(copy);
    return NoRecord;
}

RecordId copyTransformed(Drawing &drawing, RecordId entity, const Similarity &similarity)
{
    return copyTransformed(drawing, entity, destinationOf(drawing.database(), entity), similarity);
}

} // namespace drawing
