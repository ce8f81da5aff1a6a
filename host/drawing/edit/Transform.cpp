#include "host/drawing/edit/Transform.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/HatchTransform.h"
#include "host/drawing/edit/MultileaderTransform.h"
#include "host/drawing/edit/RoleTransform.h"
#include "host/drawing/entities/EntityMaking.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

constexpr int ElevationCode = 38, ExtrusionCode = 210, FlagsCode = 70;

class Transformer
{
public:
    Transformer(const Similarity &similarity, const Vector &extrusion) : m_roles(similarity, extrusion) {}

    GroupList apply(GroupList groups, const TransformSchema &schema) const
    {
        const GroupList embedded = takeEmbedded(groups);
        addRotation(groups, schema);
        const double elevation = realOf(groups, ElevationCode);
        std::span<const RoleRow> rows = schema.rows;
        for (Group &group : groups) {
            if (group.code >= groupcode::ExtendedString)
                m_roles.applyExtended(group);
            else if (schema.laterMarker && group == textGroup(groupcode::Subclass, schema.laterMarker))
                rows = schema.laterRows;
            else
                m_roles.apply(group, rows, elevation);
        }
        setElevation(groups, schema, object().place({0, 0, elevation}).z);
        if (hasRow(schema, ExtrusionCode) && !hasGroup(groups, ExtrusionCode) &&
            object().extrusion() != Vector{0, 0, 1})
            setGroupInFirstPart(groups, pointGroup(ExtrusionCode, object().extrusion()));
        if (schema.finish)
            schema.finish(groups, object(), m_roles.similarity().mirrorsTexts);
        putEmbedded(groups, embedded);
        return groups;
    }

private:
    const ObjectSimilarity &object() const { return m_roles.object(); }

    // What stands in an embedded object has codes of its own, which mean other things.
    static GroupList takeEmbedded(GroupList &groups)
    {
        const auto begin = std::ranges::find(groups, groupcode::EmbeddedObject, &Group::code);
        const auto end = std::find_if(begin, groups.end(), isExtended);
        GroupList embedded(begin, end);
        groups.erase(begin, end);
        return embedded;
    }

    void putEmbedded(GroupList &groups, GroupList embedded) const
    {
        const std::u16string type = textOf(groups, groupcode::Type);
        if (type == u"MTEXT")
            transformColumns(embedded, directionOfParagraph(groups));
        else if (!embedded.empty() && (type == u"ATTRIB" || type == u"ATTDEF"))
            embedded = transformedParagraphs(std::move(embedded));
        groups.insert(std::ranges::find_if(groups, isExtended), embedded.begin(), embedded.end());
    }

    // The lines of an attribute that has several: behind the marker of the object they are as those of a MTEXT.
    GroupList transformedParagraphs(GroupList embedded) const
    {
        const Group marker = embedded.front();
        embedded.erase(embedded.begin());
        embedded = Transformer(m_roles.similarity(), extrusionOf(embedded)).apply(embedded, *transformSchema(u"MTEXT"));
        embedded.insert(embedded.begin(), marker);
        return embedded;
    }

    // The columns of a paragraph: its direction, its place, widths and heights.
    void transformColumns(GroupList &embedded, const Vector &direction) const
    {
        enum Code : int { DirectionCode = 10, PlaceCode, FirstLengthCode = 40, LastLengthCode = 46 };
        for (Group &group : embedded) {
            auto *point = std::get_if<Point>(&group.value);
            if (point && group.code == DirectionCode)
                setPlace(*point, direction);
            else if (point && group.code == PlaceCode)
                m_roles.apply(group, GroupRole::Place);
            else if (group.code >= FirstLengthCode && group.code <= LastLengthCode)
                m_roles.apply(group, GroupRole::Length);
        }
    }

    Vector directionOfParagraph(const GroupList &groups) const
    {
        constexpr int DirectionCode = 11, RotationCode = 50;
        const Matrix turned = Matrix::ofExtrusion(object().extrusion()) *
                              Matrix::rotation(geometry::radians(realOf(groups, RotationCode)));
        return placeOf(groups, DirectionCode, turned.x);
    }

    static bool isExtended(const Group &group) { return group.code >= groupcode::ExtendedString; }

    // Paragraphs may have a direction instead.
    void addRotation(GroupList &groups, const TransformSchema &schema) const
    {
        constexpr int ParagraphDirectionCode = 11;
        const auto row = std::ranges::find(schema.rows, GroupRole::Rotation, &RoleRow::role);
        const bool hasDirection =
            schema.type == std::u16string_view(u"MTEXT") && hasGroup(groups, ParagraphDirectionCode);
        if (row != schema.rows.end() && !hasGroup(groups, row->code) && !hasDirection && object().angle(0) != 0)
            setGroupInFirstPart(groups, realGroup(row->code, 0));
    }

    // Ahead of the places.
    static void setElevation(GroupList &groups, const TransformSchema &schema, double elevation)
    {
        if (hasGroup(groups, ElevationCode))
            setGroup(groups, realGroup(ElevationCode, elevation));
        else if (hasRow(schema, ElevationCode) && elevation != 0)
            groups.insert(std::ranges::find(groups, groupcode::FirstX, &Group::code),
                          realGroup(ElevationCode, elevation));
    }

    static bool hasRow(const TransformSchema &schema, int code)
    {
        return std::ranges::find(schema.rows, code, &RoleRow::code) != schema.rows.end();
    }

    RoleTransform m_roles;
};

constexpr RoleRow lightRows[] = {{10, GroupRole::ObjectPlace}, {38, GroupRole::Elevation}, {39, GroupRole::Length},
                                 {40, GroupRole::Length},      {41, GroupRole::Length},    {42, GroupRole::Bulge},
                                 {43, GroupRole::Length},      {210, GroupRole::Extrusion}};
constexpr TransformSchema lightSchema{u"LWPOLYLINE", lightRows};

std::optional<GroupList> transformedPart(const Database &database, RecordId part, const GroupList &whole,
                                         const Similarity &similarity)
{
    const GroupList groups = database.groups(part);
    const bool isVertex = database.record(part).type == known::Vertex;
    if (isVertex && (integerOf(whole, FlagsCode) & InSpaceFlags) != 0)
        return Transformer(similarity, {0, 0, 1}).apply(groups, spaceVertexSchema);
    return transformed(groups, similarity, isVertex ? std::optional(extrusionOf(whole)) : std::nullopt);
}

// `pictures` are those that have gone along already: a file may have a dimension in its own picture.
bool transformWithPicture(Drawing &drawing, RecordId entity, const Similarity &similarity, std::set<RecordId> &pictures)
{
    Database &database = drawing.database();
    const GroupList whole = database.groups(entity);
    const std::optional<GroupList> moved = transformed(whole, similarity);
    if (!moved)
        return false;
    const RecordId picture = pictureOf(drawing, whole);
    if (picture != NoRecord && pictures.insert(picture).second)
        for (const RecordId shown : entitiesIn(database, picture))
            transformWithPicture(drawing, shown, similarity, pictures);
    for (const RecordId part : partsOf(database, entity))
        if (const std::optional<GroupList> groups = transformedPart(database, part, whole, similarity))
            database.replace(part, *groups);
    return database.replace(entity, *moved);
}

// Copies entities. A copied dimension gets a picture of its own, so that the two can be moved apart.
class Copying
{
public:
    explicit Copying(Drawing &drawing) : m_drawing(drawing), m_database(drawing.database()) {}

    RecordId copy(RecordId entity, const Destination &where)
    {
        const std::vector<RecordId> parts = partsOf(m_database, entity);
        const RecordId copy =
            append(entity, ownerOf(m_database, m_drawing.tables(), where.container, where.isPaperSpace), where);
        if (copy == NoRecord)
            return NoRecord;
        for (const RecordId part : parts)
            append(part, Handle{m_database.record(copy).handle}, where);
        givePicture(copy);
        return copy;
    }

private:
    RecordId append(RecordId original, Handle owner, const Destination &where)
    {
        GroupList groups = groupsForCopy(m_database.groups(original));
        removeGroups(groups, groupcode::Space);
        if (where.isPaperSpace)
            setGroupBehindLayer(groups, integerGroup(groupcode::Space, 1));
        if (hasGroup(groups, groupcode::Owner))
            setGroup(groups, {groupcode::Owner, owner});
        return m_database.add(RecordKind::Entity, groups, m_database.endOf(where.container));
    }

    void givePicture(RecordId dimension)
    {
        GroupList groups = m_database.groups(dimension);
        const RecordId picture = pictureOf(m_drawing, groups);
        const std::optional<std::u16string> name = picture != NoRecord ? copyOfPicture(picture) : std::nullopt;
        if (!name)
            return;
        setGroup(groups, textGroup(groupcode::Name, *name));
        m_database.replace(dimension, groups);
    }

    // None for an empty one.
    std::optional<std::u16string> copyOfPicture(RecordId picture)
    {
        if (const auto copied = m_pictures.find(picture); copied != m_pictures.end())
            return copied->second;
        const std::vector<RecordId> entities = entitiesIn(m_database, picture);
        const std::u16string name = freeBlockName(m_drawing.tables(), PicturePrefix);
        const RecordId block =
            entities.empty() ? NoRecord : addBlock(m_database, m_drawing.tables(), {name, {}, AnonymousBlock, u"0"});
        if (block == NoRecord)
            return std::nullopt;
        m_pictures[picture] = name;
        for (const RecordId entity : entities)
            copy(entity, {block, false});
        return name;
    }

    Drawing &m_drawing;
    Database &m_database;
    std::map<RecordId, std::u16string> m_pictures; // the names of the copies: a file may have a dimension in its own
};

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

RecordId pictureOf(const Drawing &drawing, const GroupList &dimension)
{
    const std::u16string name = textOf(dimension, groupcode::Name);
    if (textOf(dimension, groupcode::Type) != u"DIMENSION" || !name.starts_with(PicturePrefix))
        return NoRecord;
    return drawing.tables().find(known::Block, name);
}

std::optional<GroupList> transformed(const GroupList &groups, const Similarity &similarity,
                                     const std::optional<Vector> &extrusion)
{
    const std::u16string type = textOf(groups, groupcode::Type);
    if (type == u"HATCH")
        return transformedHatch(groups, similarity);
    if (type == u"MULTILEADER" || type == u"MLEADER")
        return transformedMultileader(groups, similarity);
    const TransformSchema *schema = type == lightSchema.type ? &lightSchema : transformSchema(type);
    if (!schema)
        return std::nullopt;
    return Transformer(similarity, extrusion.value_or(extrusionOf(groups))).apply(groups, *schema);
}

bool transformEntity(Drawing &drawing, RecordId entity, const Similarity &similarity)
{
    std::set<RecordId> pictures;
    return transformWithPicture(drawing, entity, similarity, pictures);
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
    return Copying(drawing).copy(entity, where);
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
