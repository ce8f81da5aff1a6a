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

bool isInvisible(const Database &database, RecordId entity)
{
    constexpr int InvisibleCode = 60;
    const std::optional<drawing::Group> group = database.firstGroup(entity, InvisibleCode);
    const auto *value = group ? std::get_if<std::int64_t>(&group->value) : nullptr;
    return value && *value != 0;
}

bool isVisible(const Database &database, LayerStates &layers, Space space, RecordId entity)
{
    return isInSpace(database.record(entity), space) && layers.of(entity).isSeen() && !isInvisible(database, entity);
}

} // namespace

std::vector<RecordId> allEntities(const Drawing &drawing)
{
    return entitiesIn(drawing.database(), drawing.database().section(drawing::known::Entities));
}

std::vector<RecordId> entitiesOf(const Drawing &drawing, Space space)
{
    return entitiesIn(drawing.database(), drawing.database().section(drawing::known::Entities), space);
}

std::vector<RecordId> thawedEntities(const Drawing &drawing, const Sight &sight)
{
    LayerStates layers(drawing, sight.viewport);
    std::vector<RecordId> entities = entitiesOf(drawing, sight.space);
    std::erase_if(entities, [&](RecordId id) { return layers.of(id).isFrozen; });
    return entities;
}

std::vector<RecordId> entitiesOn(const Drawing &drawing, const drawing::Layout &layout)
{
    if (layout.blockRecord == NoRecord)
        return {};
    const Database &database = drawing.database();
    std::vector<RecordId> entities =
        entitiesIn(database, drawing.tables().find(drawing::known::Block, database.name(layout.blockRecord)));
    if (drawing.tables().find(drawing::known::BlockRecord, drawing::PaperSpace) == layout.blockRecord) {
        const std::vector<RecordId> current = entitiesOf(drawing, Space::Paper);
        entities.insert(entities.end(), current.begin(), current.end());
    }
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

std::vector<RecordId> visibleEntities(const Drawing &drawing, const Sight &sight)
{
    std::vector<RecordId> entities = entitiesOf(drawing, sight.space);
    keepVisible(entities, drawing, sight);
    return entities;
}

void keepVisible(std::vector<RecordId> &entities, const Drawing &drawing, const Sight &sight,
                 const std::function<void()> &watch)
{
    LayerStates layers(drawing, sight.viewport);
    std::erase_if(entities, [&](RecordId id) {
        if (watch)
            watch();
        return !isVisible(drawing.database(), layers, sight.space, id);
    });
}

RecordId newestEntity(const Drawing &drawing, const Sight &sight)
{
    const Database &database = drawing.database();
    RecordId newest = lastEntity(database);
    while (newest != NoRecord && !isInSpace(database.record(newest), sight.space))
        newest = entityBefore(database, newest);
    if (newest == NoRecord || isInvisible(database, newest) || LayerStates(drawing, sight.viewport).of(newest).isFrozen)
        return NoRecord;
    return newest;
}

bool isOnLockedLayer(const Drawing &drawing, RecordId entity)
{
    return LayerStates(drawing).of(entity).isLocked;
}

} // namespace selection
