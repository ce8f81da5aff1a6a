#include "host/render/Spaces.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Dictionaries.h"

#include <algorithm>
#include <unordered_map>

namespace render {

using drawing::NoRecord;
using drawing::RecordId;

namespace {

enum class Space { Model, Paper, Any };

bool isShown(const drawing::Database &database, RecordId id, Space space)
{
    const drawing::Record &record = database.record(id);
    const bool isWanted = space == Space::Any || record.has(drawing::Record::PaperSpace) == (space == Space::Paper);
    return record.kind == drawing::RecordKind::Entity && !record.isGone() && isWanted && !database.isPart(id);
}

void addFrom(const drawing::Database &database, RecordId container, Space space, std::vector<RecordId> &entities)
{
    if (container == NoRecord)
        return;
    for (RecordId id = database.firstIn(container); id != NoRecord; id = database.nextIn(id))
        if (isShown(database, id, space))
            entities.push_back(id);
}

// Handles to draw by instead of the entities' own, from the table in the extension dictionary of the block's record.
std::unordered_map<RecordId, std::uint64_t> sortHandles(const drawing::Database &database, RecordId blockRecord)
{
    constexpr int EntityCode = 331;
    std::unordered_map<RecordId, std::uint64_t> handles;
    const RecordId dictionary =
        blockRecord == NoRecord ? NoRecord : drawing::extensionDictionary(database, blockRecord);
    const RecordId table =
        dictionary == NoRecord ? NoRecord : drawing::findEntry(database, dictionary, u"ACAD_SORTENTS");
    if (table == NoRecord)
        return handles;
    drawing::GroupReader reader = database.reader(table);
    RecordId entity = NoRecord;
    for (drawing::Item item; reader.next(item);)
        if (item.code == EntityCode)
            entity = database.find({item.handle});
        else if (item.code == drawing::groupcode::Handle && entity != NoRecord)
            handles[std::exchange(entity, NoRecord)] = item.handle;
    return handles;
}

void sortByHandles(const drawing::Database &database, RecordId blockRecord, std::vector<RecordId> &entities)
{
    const auto handles = sortHandles(database, blockRecord);
    if (handles.empty())
        return;
    const auto key = [&](RecordId id) {
        const auto found = handles.find(id);
        return found == handles.end() ? database.record(id).handle : found->second;
    };
    std::stable_sort(entities.begin(), entities.end(), [&](RecordId a, RecordId b) { return key(a) < key(b); });
}

std::vector<RecordId> entitiesOf(const drawing::Drawing &drawing, std::u16string_view block, Space space)
{
    const drawing::Database &database = drawing.database();
    std::vector<RecordId> entities;
    addFrom(database, database.section(drawing::known::Entities), space, entities);
    addFrom(database, drawing.tables().find(drawing::known::Block, block), Space::Any, entities);
    sortByHandles(database, drawing.tables().find(drawing::known::BlockRecord, block), entities);
    return entities;
}

} // namespace

std::vector<RecordId> modelEntities(const drawing::Drawing &drawing)
{
    return entitiesOf(drawing, drawing::ModelSpace, Space::Model);
}

bool isInModel(const drawing::Drawing &drawing, RecordId entity)
{
    const drawing::Database &database = drawing.database();
    const RecordId container = database.record(entity).container;
    const RecordId block = drawing.tables().find(drawing::known::Block, drawing::ModelSpace);
    return (container == database.section(drawing::known::Entities) && isShown(database, entity, Space::Model)) ||
           (container == block && isShown(database, entity, Space::Any));
}

std::vector<RecordId> activePaperEntities(const drawing::Drawing &drawing)
{
    return entitiesOf(drawing, drawing::PaperSpace, Space::Paper);
}

std::vector<RecordId> paperEntities(const drawing::Drawing &drawing, const drawing::Layout &layout)
{
    const drawing::Database &database = drawing.database();
    if (layout.blockRecord == NoRecord)
        return {};
    const std::u16string block = database.name(layout.blockRecord);
    if (drawing.tables().find(drawing::known::BlockRecord, drawing::PaperSpace) == layout.blockRecord)
        return activePaperEntities(drawing);
    std::vector<RecordId> entities;
    addFrom(database, drawing.tables().find(drawing::known::Block, block), Space::Any, entities);
    sortByHandles(database, layout.blockRecord, entities);
    return entities;
}

} // namespace render
