#include "host/drawing/selection/Candidates.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/LayerState.h"

using drawing::Database;
using drawing::Drawing;
using drawing::LayerStates;
using drawing::NoRecord;
using drawing::Record;
using drawing::RecordId;

namespace selection {

namespace {

bool isInSpace(const Record &record, Space space)
{
    return record.has(Record::PaperSpace) == (space == Space::Paper);
}

bool isInvisible(const Database &database, RecordId entity)
{
    constexpr int InvisibleCode = 60;
    const std::optional<drawing::Group> group = database.firstGroup(entity, InvisibleCode);
    const auto *value = group ? std::get_if<std::int64_t>(&group->value) : nullptr;
    return value && *value != 0;
}

void addFrom(const Database &database, RecordId container, std::vector<RecordId> &entities)
{
    for (RecordId id = database.firstIn(container); id != NoRecord; id = database.nextIn(id)) {
        const Record &record = database.record(id);
        if (!record.isGone() && !database.isPart(id) && record.kind == drawing::RecordKind::Entity)
            entities.push_back(id);
    }
}

} // namespace

std::vector<RecordId> allEntities(const Drawing &drawing)
{
    const Database &database = drawing.database();
    std::vector<RecordId> entities;
    if (const RecordId section = database.section(drawing::known::Entities); section != NoRecord)
        addFrom(database, section, entities);
    return entities;
}

std::vector<RecordId> thawedEntities(const Drawing &drawing, Space space)
{
    LayerStates layers(drawing);
    std::vector<RecordId> entities = allEntities(drawing);
    std::erase_if(entities, [&](RecordId id) {
        return !isInSpace(drawing.database().record(id), space) || layers.of(id).isFrozen;
    });
    return entities;
}

std::vector<RecordId> entitiesOn(const Drawing &drawing, const drawing::Layout &layout)
{
    std::vector<RecordId> entities;
    if (layout.blockRecord == NoRecord)
        return entities;
    const Database &database = drawing.database();
    const RecordId block = drawing.tables().find(drawing::known::Block, database.name(layout.blockRecord));
    if (block != NoRecord)
        addFrom(database, block, entities);
    if (drawing.tables().find(drawing::known::BlockRecord, drawing::PaperSpace) == layout.blockRecord)
        for (const RecordId entity : allEntities(drawing))
            if (isInSpace(database.record(entity), Space::Paper))
                entities.push_back(entity);
    return entities;
}

std::vector<RecordId> entitiesOfAllLayouts(const Drawing &drawing)
{
    const RecordId active = drawing.tables().find(drawing::known::BlockRecord, drawing::PaperSpace);
    std::vector<RecordId> entities = allEntities(drawing);
    for (const drawing::Layout &layout : drawing::layouts(drawing.database())) {
        if (layout.blockRecord == active)
            continue;
        const std::vector<RecordId> more = entitiesOn(drawing, layout);
        entities.insert(entities.end(), more.begin(), more.end());
    }
    return entities;
}

std::vector<RecordId> visibleEntities(const Drawing &drawing, Space space)
{
    std::vector<RecordId> entities = allEntities(drawing);
    keepVisible(entities, drawing, space);
    return entities;
}

void keepVisible(std::vector<RecordId> &entities, const Drawing &drawing, Space space)
{
    const Database &database = drawing.database();
    LayerStates layers(drawing);
    std::erase_if(entities, [&](RecordId id) {
        return !isInSpace(database.record(id), space) || !layers.of(id).isSeen() || isInvisible(database, id);
    });
}

bool isOnLockedLayer(const Drawing &drawing, RecordId entity)
{
    return LayerStates(drawing).of(entity).isLocked;
}

} // namespace selection
