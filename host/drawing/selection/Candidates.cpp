#include "host/drawing/selection/Candidates.h"

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

} // namespace

std::vector<RecordId> allEntities(const Drawing &drawing)
{
    const Database &database = drawing.database();
    std::vector<RecordId> entities;
    const RecordId section = database.section(drawing::known::Entities);
    for (RecordId id = section != NoRecord ? database.firstIn(section) : NoRecord; id != NoRecord;
         id = database.nextIn(id)) {
        const Record &record = database.record(id);
        if (!record.isGone() && !database.isPart(id) && record.kind == drawing::RecordKind::Entity)
            entities.push_back(id);
    }
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

std::vector<RecordId> visibleEntities(const Drawing &drawing, Space space)
{
    const Database &database = drawing.database();
    LayerStates layers(drawing);
    std::vector<RecordId> entities = allEntities(drawing);
    std::erase_if(entities, [&](RecordId id) {
        return !isInSpace(database.record(id), space) || !layers.of(id).isSeen() || isInvisible(database, id);
    });
    return entities;
}

bool isOnLockedLayer(const Drawing &drawing, RecordId entity)
{
    return LayerStates(drawing).of(entity).isLocked;
}

} // namespace selection
