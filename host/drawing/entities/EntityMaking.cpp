#include "host/drawing/entities/EntityMaking.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/GroupWriter.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/Layouts.h"
#include "host/drawing/entities/Attachments.h"
#include "host/drawing/entities/EntityChange.h"
#include "host/drawing/entities/EntityPlace.h"
#include "host/drawing/entities/EntitySchema.h"
#include "host/drawing/entities/RecordTypes.h"

#include <algorithm>
#include <map>

namespace drawing {

namespace {

constexpr int LayoutCode = 410, FlagsCode = 70, ExtrusionCode = 210, LastPointCode = 18;

std::u16string typeOf(const GroupList &list)
{
    const auto *type = findValue<std::u16string>(list, groupcode::Type);
    return type ? *type : std::u16string();
}

std::int64_t integerOf(const GroupList &list, int code)
{
    const auto *value = findValue<std::int64_t>(list, code);
    return value ? *value : 0;
}

// Of a type of the schemas, which are ASCII; another text stays none of them.
std::string narrowed(std::u16string_view type)
{
    std::string text(type.size(), '\0');
    std::ranges::transform(type, text.begin(),
                           [](char16_t unit) { return unit < 0x80 ? static_cast<char>(unit) : '?'; });
    return text;
}

const EntitySchema *schemaFor(const GroupList &list)
{
    return schemaOf(narrowed(typeOf(list)), integerOf(list, FlagsCode));
}

bool isMarker(const Group &group, std::u16string_view marker)
{
    const auto *text = std::get_if<std::u16string>(&group.value);
    return group.code == groupcode::Subclass && text && *text == marker;
}

bool hasMarkers(const GroupList &list)
{
    return std::ranges::any_of(
        list, [](const Group &group) { return group.code == groupcode::Subclass && !isMarker(group, u"AcDbEntity"); });
}

// What the new record has of its own, whatever the list says.
bool isGivenByDrawing(int code)
{
    return code == groupcode::Type || code == groupcode::Handle || code == groupcode::Owner || code == LayoutCode ||
           code == groupcode::Space;
}

// Points of two coordinates lie in the plane; polylines of light weight have no other ones.
Group withDimensions(Group group, const std::u16string &type)
{
    auto *point = std::get_if<Point>(&group.value);
    const bool isPlace = group.code >= groupcode::FirstX && group.code <= LastPointCode;
    if (point && isPlace && type == u"LWPOLYLINE")
        *point = {point->x, point->y, 0, 2};
    else if (point && (isPlace || group.code == ExtrusionCode))
        point->dimensions = 3;
    return group;
}

Group currentValue(const Database &database, const SchemaRow &row)
{
    const std::optional<Group> value = variable(database, row.text);
    return {row.code, value ? value->value : GroupValue(row.number)};
}

// With what the list takes from the drawing, each group behind those that come before it in the schema.
GroupList withCurrentValues(const Database &database, const EntitySchema &schema, GroupList list)
{
    for (const SubclassSchema &subclass : schema.subclasses) {
        auto place = list.begin();
        for (const SchemaRow &row : subclass.rows) {
            const auto there = std::ranges::find(list, row.code, &Group::code);
            if (there != list.end())
                place = there + 1;
            else if (row.presence == SchemaRow::Presence::Current)
                place = list.insert(place, currentValue(database, row)) + 1;
        }
    }
    return list;
}

bool takesCurrentValue(const EntitySchema &schema, const GroupList &list)
{
    const auto isMissing = [&list](const SchemaRow &row) {
        return row.presence == SchemaRow::Presence::Current && !findGroup(list, row.code);
    };
    return std::ranges::any_of(schema.subclasses, [&](const SubclassSchema &subclass) {
        return std::ranges::any_of(subclass.rows, isMissing);
    });
}

// Builds the groups of a new entity.
class Builder
{
public:
    Builder(const Drawing &drawing, const GroupList &list)
        : m_type(typeOf(list)), m_schema(schemaFor(list)), m_isOld(drawing.database().isBefore2000()), m_list(list)
    {
        if (findGroup(list, groupcode::Braces)) {
            m_attachments = attachmentsForNew(drawing, list);
            m_list = withoutAttachments(list);
        }
        if (m_schema && takesCurrentValue(*m_schema, list))
            m_list = withCurrentValues(drawing.database(), *m_schema, std::move(m_list));
    }

    GroupList build(Handle owner, bool isPaperSpace, const std::u16string &layer)
    {
        m_groups = {{groupcode::Type, m_type}};
        m_groups.insert(m_groups.end(), m_attachments.begin(), m_attachments.end());
        if (!m_isOld && owner.value != 0)
            m_groups.push_back({groupcode::Owner, owner});
        addMarker(u"AcDbEntity");
        if (isPaperSpace)
            m_groups.push_back({groupcode::Space, std::int64_t{1}});
        if (!findGroup(m_list, groupcode::Layer))
            m_groups.push_back({groupcode::Layer, layer});
        if (hasMarkers(m_list))
            takeInOrder();
        else
            divide();
        for (const Group &group : m_list)
            if (group.code >= groupcode::ExtendedString)
                m_groups.push_back(group);
        return std::move(m_groups);
    }

private:
    void addMarker(std::u16string_view marker)
    {
        if (!m_isOld)
            m_groups.push_back({groupcode::Subclass, std::u16string(marker)});
    }

    static bool isOwn(const Group &group)
    {
        return !isGivenByDrawing(group.code) && group.code < groupcode::ExtendedString;
    }

    void take(const Group &group) { m_groups.push_back(withDimensions(group, m_type)); }

    // The common groups come first, wherever they stand; everything else as in the list.
    void takeInOrder()
    {
        const auto isCommon = [this](const Group &group) { return isCommonCode(group.code) && !isInSubclass(group); };
        for (const Group &group : m_list)
            if (isOwn(group) && isCommon(group))
                take(group);
        for (const Group &group : m_list)
            if (isOwn(group) && !isCommon(group) && !isMarker(group, u"AcDbEntity") &&
                (!m_isOld || group.code != groupcode::Subclass))
                take(group);
    }

    // A few types use a common code, 92 for example, as their own as well.
    bool isInSubclass(const Group &group) const
    {
        if (group.code != 92 && group.code != 160 && group.code != 310)
            return false;
        const auto marker = std::ranges::find_if(
            m_list, [](const Group &one) { return one.code == groupcode::Subclass && !isMarker(one, u"AcDbEntity"); });
        return &group > &*marker;
    }

    void divide()
    {
        for (const Group &group : m_list)
            if (isOwn(group) && isCommonCode(group.code))
                take(group);
        const auto subclasses = m_schema ? m_schema->subclasses : std::span<const SubclassSchema>();
        for (const SubclassSchema &subclass : subclasses) {
            addMarker(widened(subclass.marker));
            for (const Group &group : m_list)
                if (isOwn(group) && subclassOf(group.code) == &subclass)
                    take(group);
        }
        if (subclasses.empty())
            for (const Group &group : m_list)
                if (isOwn(group) && !isCommonCode(group.code) && group.code != groupcode::Subclass)
                    take(group);
    }

    // The first that has the code; the last for a code that none has.
    const SubclassSchema *subclassOf(int code) const
    {
        if (isCommonCode(code) || code == groupcode::Subclass)
            return nullptr;
        const auto found =
            std::ranges::find_if(m_schema->subclasses, [code](const SubclassSchema &one) { return one.has(code); });
        return found != m_schema->subclasses.end() ? &*found : &m_schema->subclasses.back();
    }

    std::u16string m_type;
    const EntitySchema *m_schema;
    bool m_isOld;
    GroupList m_list, m_attachments, m_groups;
};

bool hasRequired(const GroupList &list, const EntitySchema &schema)
{
    for (const SubclassSchema &subclass : schema.subclasses) {
        for (const SchemaRow &row : subclass.rows)
            if (row.presence == SchemaRow::Presence::Required && !findGroup(list, row.code))
                return false;
        const auto isItsMarker = [&subclass](const Group &group) { return isMarker(group, widened(subclass.marker)); };
        if (schema.markers == Markers::Needed && std::ranges::none_of(list, isItsMarker))
            return false;
    }
    return true;
}

bool canBeShown(const Drawing &drawing, std::u16string_view block)
{
    return drawing.tables().find(known::Block, block) != NoRecord && !isSpaceBlock(drawing.database(), block);
}

bool hasItsBlock(const Drawing &drawing, const GroupList &list)
{
    if (typeOf(list) != u"INSERT")
        return true;
    const auto *name = findValue<std::u16string>(list, groupcode::Name);
    return name && canBeShown(drawing, *name);
}

RecordId addBefore(Drawing &drawing, RecordId next, const GroupList &groups)
{
    Database &database = drawing.database();
    const RecordId added = database.add(RecordKind::Entity, groups, next);
    if (added == NoRecord)
        return NoRecord;
    ensureLayer(drawing, database.name(added));
    ownExtensionDictionary(database, added);
    return added;
}

const char16_t *recordMarker(NameId table)
{
    static const std::map<NameId, const char16_t *> markers = {
        {known::Layer, u"AcDbLayerTableRecord"},       {known::Linetype, u"AcDbLinetypeTableRecord"},
        {known::Style, u"AcDbTextStyleTableRecord"},   {known::DimensionStyle, u"AcDbDimStyleTableRecord"},
        {known::View, u"AcDbViewTableRecord"},         {known::UserCoordinates, u"AcDbUCSTableRecord"},
        {known::Viewport, u"AcDbViewportTableRecord"}, {known::Application, u"AcDbRegAppTableRecord"},
        {known::BlockRecord, u"AcDbBlockTableRecord"}};
    const auto found = markers.find(table);
    return found != markers.end() ? found->second : nullptr;
}

} // namespace

bool isComplete(const Drawing &drawing, const GroupList &list)
{
    if (!canHoldEntities(drawing.database(), typeOf(list)))
        return false;
    const EntitySchema *schema = schemaFor(list);
    if (schema)
        return hasRequired(list, *schema) && hasItsBlock(drawing, list);
    return typeOf(list) == u"SEQEND" || (hasMarkers(list) && isEntityType(drawing.database(), typeOf(list)));
}

std::optional<Placement> placementOf(const Drawing &drawing, const GroupList &list, const Placement &current)
{
    Placement placement = current;
    if (findGroup(list, groupcode::Space))
        placement.isPaperSpace = integerOf(list, groupcode::Space) != 0;
    const auto *name = findValue<std::u16string>(list, LayoutCode);
    if (!name)
        return placement;
    placement.isPaperSpace = !isModelName(*name);
    if (!placement.isPaperSpace)
        return placement;
    const Database &database = drawing.database();
    const std::optional<Layout> layout = findLayout(database, *name);
    if (!layout || layout->blockRecord == NoRecord)
        return std::nullopt;
    const std::u16string block = database.name(layout->blockRecord);
    if (folded(block) != folded(PaperSpace))
        placement.container = drawing.tables().find(known::Block, block);
    return placement;
}

RecordId addEntity(Drawing &drawing, const GroupList &list, const Placement &placement)
{
    if (!isComplete(drawing, list))
        return NoRecord;
    Database &database = drawing.database();
    const bool isInSpace = placement.container == NoRecord;
    const RecordId container = isInSpace ? ensureEntities(database) : placement.container;
    const Handle owner = ownerOf(database, drawing.tables(), container, placement.isPaperSpace);
    const GroupList groups = Builder(drawing, list).build(owner, placement.isPaperSpace, placement.layer);
    return addBefore(drawing, database.endOf(container), groups);
}

bool isWritable(const Drawing &drawing, const GroupList &list)
{
    const Database &database = drawing.database();
    const GroupList groups = Builder(drawing, list).build({}, false, u"0");
    return GroupWriter(database.format(), database.codec()).bytesOf(groups).has_value();
}

bool canShow(const Drawing &drawing, RecordId insert, const GroupList &wanted)
{
    const Database &database = drawing.database();
    const auto *name = findValue<std::u16string>(wanted, groupcode::Name);
    if (database.record(insert).type != known::Insert || !name)
        return true;
    const std::optional<Group> shown = database.firstGroup(insert, groupcode::Name);
    if (shown && shown->value == GroupValue(*name))
        return true;
    const RecordId container = database.record(insert).container;
    const bool isInBlock = database.record(container).kind == RecordKind::BlockStart;
    return canBeShown(drawing, *name) &&
           !(isInBlock && showsBlock(database, drawing.tables(), *name, database.name(container)));
}

RecordId addPart(Drawing &drawing, RecordId whole, const GroupList &list)
{
    const Database &database = drawing.database();
    RecordId last = whole;
    for (RecordId part = database.record(whole).next; part != NoRecord && database.record(part).container == whole;
         part = database.record(part).next)
        last = part;
    return addPartBehind(drawing, last, whole, list);
}

RecordId addPartBehind(Drawing &drawing, RecordId last, RecordId whole, const GroupList &list)
{
    if (!isComplete(drawing, list))
        return NoRecord;
    const Database &database = drawing.database();
    const Record &record = database.record(whole);
    const GroupList groups =
        Builder(drawing, list).build({record.handle}, record.has(Record::PaperSpace), database.name(whole));
    return addBefore(drawing, database.record(last).next, groups);
}

bool namesArrows(const Database &database)
{
    return database.version() < "AC1015"; // R2000
}

RecordId addTableRecord(Drawing &drawing, const GroupList &list)
{
    Database &database = drawing.database();
    const std::u16string type = typeOf(list);
    const NameId table = database.names().find(database.codec().encode(type));
    const char16_t *marker = recordMarker(table);
    if (!marker)
        return NoRecord;
    GroupList groups{{groupcode::Type, type}};
    const GroupList attachments = attachmentsForNew(drawing, list);
    groups.insert(groups.end(), attachments.begin(), attachments.end());
    if (!database.isBefore2000())
        groups.insert(groups.end(),
                      {{groupcode::Owner, Handle{database.record(drawing.tables().ensureTable(table)).handle}},
                       {groupcode::Subclass, u"AcDbSymbolTableRecord"},
                       {groupcode::Subclass, std::u16string(marker)}});
    const bool namesArrow = table == known::DimensionStyle && namesArrows(database);
    for (const Group &group : withoutAttachments(list))
        if (group.code != groupcode::Type && (group.code != groupcode::Handle || namesArrow) &&
            group.code != groupcode::DimStyleHandle && group.code != groupcode::Owner &&
            group.code != groupcode::Subclass)
            groups.push_back(group);
    if (!findGroup(groups, FlagsCode))
        groups.push_back({FlagsCode, std::int64_t{0}});
    const RecordId added = drawing.tables().add(table, groups);
    if (added != NoRecord)
        ownExtensionDictionary(database, added);
    return added;
}

} // namespace drawing
