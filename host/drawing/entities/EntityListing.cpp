#include "host/drawing/entities/EntityListing.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Layouts.h"

#include <numbers>

namespace drawing {

namespace {

constexpr double HalfTurn = 180;

bool isAngle(int code)
{
    constexpr int FirstAngle = 50, LastAngle = 58;
    return code >= FirstAngle && code <= LastAngle;
}

} // namespace

EntityListing::EntityListing(const Drawing &drawing, RecordId record) : m_reader(drawing.database().reader(record))
{
    Item item; // one for all: to clear an item takes longer than to copy it
    while (m_reader.next(item) && item.code < groupcode::ExtendedString) {
        if (item.kind == ValueKind::Real && isAngle(item.code))
            item.real *= std::numbers::pi / HalfTurn;
        m_recorded.push_back(item);
    }
    m_plan = ListingPlan::of(drawing, record, m_recorded);
    if (m_plan->hasSpatialPoints())
        for (Item &each : m_recorded)
            each.point.dimensions = 3;
}

bool isFixed(int code)
{
    return code == groupcode::Type || code == groupcode::Handle || code == groupcode::DimStyleHandle;
}

std::vector<ListedGroup> listing(const Drawing &drawing, RecordId record)
{
    return decoded(EntityListing(drawing, record));
}

std::vector<ListedGroup> decoded(const EntityListing &items)
{
    std::vector<ListedGroup> groups;
    groups.reserve(items.size());
    for (const ListedItem listed : items)
        groups.push_back({items.group(listed), listed.origin});
    return groups;
}

namespace {

Group withAngle(Group group, double factor)
{
    if (double *angle = isAngle(group.code) ? std::get_if<double>(&group.value) : nullptr)
        *angle *= factor;
    return group;
}

} // namespace

Group inRadians(Group group)
{
    return withAngle(std::move(group), std::numbers::pi / HalfTurn);
}

Group inDegrees(Group group)
{
    return withAngle(std::move(group), HalfTurn / std::numbers::pi);
}

namespace {

// The block, entities section or other place that an entity stands in, with the polylines and inserts that have parts.
RecordId outermostContainer(const Database &database, RecordId entity)
{
    RecordId container = database.record(entity).container;
    while (container != NoRecord && database.record(container).kind == RecordKind::Entity)
        container = database.record(container).container;
    return container;
}

bool isInBlock(const Database &database, RecordId container)
{
    return database.record(container).kind == RecordKind::BlockStart;
}

} // namespace

bool isInModelSpace(const Database &database, RecordId entity)
{
    const RecordId container = outermostContainer(database, entity);
    return container != NoRecord && !isInBlock(database, container) && !database.record(entity).has(Record::PaperSpace);
}

std::u16string layoutOf(const Drawing &drawing, RecordId entity)
{
    const Database &database = drawing.database();
    if (isInModelSpace(database, entity))
        return u"Model";
    const RecordId container = outermostContainer(database, entity);
    if (container == NoRecord)
        return {};
    const std::u16string block = isInBlock(database, container) ? database.name(container) : std::u16string(PaperSpace);
    const RecordId blockRecord = drawing.tables().find(known::BlockRecord, block);
    if (blockRecord != NoRecord)
        for (const Layout &layout : layouts(database))
            if (layout.blockRecord == blockRecord)
                return layout.name;
    return {};
}

Handle ownerOf(const Drawing &drawing, RecordId id)
{
    const Database &database = drawing.database();
    const Record &record = database.record(id);
    if (record.container == NoRecord)
        return {};
    if (record.kind == RecordKind::TableRecord)
        return {database.record(record.container).handle};
    if (database.record(record.container).kind == RecordKind::Entity) // a vertex or an attribute
        return {database.record(record.container).handle};
    if (record.kind == RecordKind::Entity)
        return ownerOf(database, drawing.tables(), record.container, record.has(Record::PaperSpace));
    return {};
}

} // namespace drawing
