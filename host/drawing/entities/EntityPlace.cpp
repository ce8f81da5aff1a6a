#include "host/drawing/entities/EntityPlace.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Layouts.h"

namespace drawing {

namespace {

constexpr int LayoutCode = 410;

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

bool isSpaceBlock(const Database &database, std::u16string_view block)
{
    std::u16string name = folded(block);
    if (database.isBefore2000() && name.starts_with(u'$'))
        name.front() = u'*';
    return name.starts_with(folded(ModelSpace)) || name.starts_with(folded(PaperSpace));
}

bool leavesInPlace(const Drawing &drawing, RecordId entity, const GroupList &wanted)
{
    const Database &database = drawing.database();
    const auto *space = findValue<std::int64_t>(wanted, groupcode::Space);
    if (space && (*space != 0) != database.record(entity).has(Record::PaperSpace))
        return false;
    const auto *layout = findValue<std::u16string>(wanted, LayoutCode);
    if (!layout || folded(*layout) == folded(layoutOf(drawing, entity)))
        return true;
    const std::optional<Group> recorded = database.firstGroup(entity, LayoutCode); // an old name, in some file
    return recorded && recorded->value == GroupValue(*layout);
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
